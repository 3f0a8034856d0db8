#include "cli/InterruptKey.h"

namespace specialpages::cli {

namespace {

volatile std::sig_atomic_t noted = 0;

void note(int /*signal*/) {
    noted = 1;
}

} // namespace

InterruptKey::InterruptKey() {
    noted = 0;
    struct sigaction once {};
    once.sa_handler = note;
    once.sa_flags = static_cast<int>(SA_RESETHAND);
    sigemptyset(&once.sa_mask);
    sigaction(SIGINT, &once, &before_);
}

InterruptKey::~InterruptKey() {
    sigaction(SIGINT, &before_, nullptr);
}

bool InterruptKey::pressed() {
    return noted != 0;
}

} // namespace specialpages::cli

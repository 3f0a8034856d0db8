#include "qt/read_ahead.h"

#include "host/HostError.h"
#include "host/PaneModule.h"
#include "host/no_language.h"

#include <fontconfig/fontconfig.h>
#include <functional>
#include <memory>
#include <optional>
#include <pthread.h>
#include <sched.h>
#include <system_error>
#include <thread>
#include <utility>

namespace specialpages::qt {

namespace {

struct Ahead {
    std::optional<host::PpdFile> ppd;
    std::optional<host::PaneModule> pane; ///< once loaded it is there for every printer
};

void read(const std::string& ppd, Ahead& ahead) {
    try {
        ahead.ppd.emplace(ppd);
        ahead.pane.emplace(host::find_bundle());
    } catch (const host::HostError&) {
        // The dialog says why, when it asks for them.
    }
}

/// Takes a thread to another processor than this one's. A thread begins where it was made, and a scheduler
/// that sees little to do may leave it there until this thread waits: both would run one after the other.
void move_away(std::jthread& thread) {
    cpu_set_t allowed;
    const int here = sched_getcpu();
    if (here < 0 || sched_getaffinity(0, sizeof allowed, &allowed) != 0) {
        return;
    }
    CPU_CLR(static_cast<std::size_t>(here), &allowed);
    if (CPU_COUNT(&allowed) > 0) {
        pthread_setaffinity_np(thread.native_handle(), sizeof allowed, &allowed);
    }
}

/// Does both at once; one after the other where there can be no further thread.
void do_both(const std::function<void()>& aside, const std::function<void()>& here) {
    std::jthread thread;
    try {
        thread = std::jthread(aside);
    } catch (const std::system_error&) {
        aside();
    }
    if (thread.joinable()) {
        move_away(thread);
    }
    here();
}

} // namespace

PrintServices read_ahead(const PrintOptions& options, PrintServices services) {
    if (options.ppd.empty()) {
        return services;
    }
    const auto ahead = std::make_shared<Ahead>();
    {
        // Begins before the thread and ends after it: nobody writes to the environment while another reads
        // it.
        const host::NoLanguage noLanguage;
        do_both([&] { read(options.ppd, *ahead); }, [] { FcInit(); });
    }
    services.ppdFile = [ahead, known = options.ppd,
                        read = std::move(services.ppdFile)](const std::string& file) -> host::PpdFile {
        auto ppd = file == known ? std::exchange(ahead->ppd, std::nullopt) : std::nullopt;
        return ppd ? std::move(*ppd) : read(file);
    };
    return services;
}

} // namespace specialpages::qt

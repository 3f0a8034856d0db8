// Ctrl+C, as an answer to "has it been pressed?" in place of the end of the program.
#pragma once

#include <csignal>

namespace specialpages::cli {

/// While it lives, the first SIGINT is only noted. A second one ends the program, as ever. One at a time.
class InterruptKey {
  public:
    InterruptKey();
    ~InterruptKey();
    InterruptKey(const InterruptKey&) = delete;
    InterruptKey& operator=(const InterruptKey&) = delete;

    static bool pressed();

  private:
    struct sigaction before_ {};
};

} // namespace specialpages::cli

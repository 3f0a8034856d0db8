#include "cli/run_cli.h"

#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

int main(int argc, char** argv) {
    try {
        const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
        return specialpages::cli::run_cli(arguments,
                                          {std::cin, std::cout, std::cerr, isatty(STDERR_FILENO) == 1});
    } catch (const std::exception& error) { // no memory for the arguments or a message
        std::fprintf(stderr, "special-pages: %s\n", error.what());
        return 1;
    }
}

// Runs the command in this process: what it answers, what it writes.
#pragma once

#include "cli/run_cli.h"

#include <sstream>
#include <string>
#include <vector>

namespace specialpages::cli::testing {

struct Ran {
    int exit = 0;
    std::string out;
    std::string err;
};

inline Ran run(const std::vector<std::string>& arguments, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const int exit = run_cli(arguments, {in, out, err});
    return {exit, out.str(), err.str()};
}

} // namespace specialpages::cli::testing

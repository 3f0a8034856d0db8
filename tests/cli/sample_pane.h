// The real pane, loaded from the bundle of this build, on the sample printer.
#pragma once

#include "cli/cli_fixtures.h"
#include "host/PaneModule.h"
#include "host/host_fixtures.h"
#include "testing/paths.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>
#include <string>
#include <vector>

namespace specialpages::cli::testing {

inline const std::string kSamplePpd = paths::source_dir() + "/examples/ppd/production.ppd";

/// Keeps what the pane writes for the user (its help book) in a folder of the test.
class SamplePaneTest : public ::testing::Test {
  protected:
    /// The answers of one `drive`, as many as there are requests.
    static std::vector<nlohmann::ordered_json> drive(const std::vector<std::string>& requests,
                                                     const std::vector<std::string>& arguments = {}) {
        std::string input;
        for (const std::string& request : requests) {
            input += request + "\n";
        }
        std::vector<std::string> command{"drive", "--ppd", kSamplePpd};
        command.insert(command.end(), arguments.begin(), arguments.end());
        const Ran ran = run(command, input);
        EXPECT_EQ(ran.exit, 0) << ran.err;
        std::vector<nlohmann::ordered_json> answers;
        std::istringstream lines(ran.out);
        for (std::string line; std::getline(lines, line);) {
            answers.push_back(nlohmann::ordered_json::parse(line, nullptr, false));
        }
        EXPECT_EQ(answers.size(), requests.size());
        answers.resize(requests.size());
        return answers;
    }
    /// The same in a pane that was restored and shown, without the answers to these two.
    static std::vector<nlohmann::ordered_json> driveShown(std::vector<std::string> requests) {
        requests.insert(requests.begin(),
                        {R"({"do":"host","call":"restore"})", R"({"do":"host","call":"willShow"})"});
        auto answers = drive(requests);
        answers.erase(answers.begin(), answers.begin() + 2);
        return answers;
    }

    host::testing::TemporaryFolder folder_;
    host::testing::ScopedVariable configuration_{"XDG_CONFIG_HOME", folder_.path().c_str()};
    host::testing::ScopedVariable bundle_{host::kBundleVariable, paths::bundle_dir().c_str()};
};

} // namespace specialpages::cli::testing

// The line protocol over a pane made by hand.
#pragma once

#include "cli/DriveSession.h"
#include "host/fake_pane.h"
#include "host/host_fixtures.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace specialpages::cli::testing {

using Lines = std::vector<std::string>;

/// One session over the fake pane: requests in, answers out.
class DriveSessionTest : public ::testing::Test {
  protected:
    DriveSessionTest() : host_(host::PpdFile::parse(host::testing::small_ppd(), "small.ppd"), {}) {
        EXPECT_TRUE(host_.openPane(host::testing::fake_module(script_, folder_)));
        script_.calls.clear();
    }

    Lines drive(const Lines& requests) {
        std::string input;
        for (const std::string& request : requests) {
            input += request + "\n";
        }
        std::istringstream in(input);
        std::ostringstream out;
        DriveSession(host_, in, out).run();
        Lines answers;
        std::istringstream lines(out.str());
        for (std::string line; std::getline(lines, line);) {
            answers.push_back(line);
        }
        return answers;
    }

    /// The answer to one request.
    std::string ask(const std::string& request) {
        const Lines answers = drive({request});
        EXPECT_EQ(answers.size(), 1U) << request;
        return answers.empty() ? "" : answers.front();
    }

    nlohmann::ordered_json state(const std::string& before = "") {
        Lines requests{R"({"do":"state"})"};
        if (!before.empty()) {
            requests.insert(requests.begin(), before);
        }
        const Lines answers = drive(requests);
        return nlohmann::ordered_json::parse(answers.back()).at("result");
    }

    // First, so that it outlives the pane, which writes into it at its end.
    host::testing::FakePaneScript script_;
    host::testing::TemporaryFolder folder_;
    host::PrintHost host_;
};

inline const std::string kDone = R"({"ok":true,"window":"pane","alerts":[],"beeps":0})";

} // namespace specialpages::cli::testing

#include "host/HostError.h"
#include "host/host_fixtures.h"
#include "host/no_language.h"
#include "qt/read_ahead.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace specialpages::qt::testing {
namespace {

using host::testing::error_of;
using host::testing::ScopedVariable;

const std::string kSample = paths::source_dir() + "/examples/ppd/production.ppd";

class ReadAhead : public ::testing::Test {
  protected:
    /// Services that note which files they were asked for.
    PrintServices services() {
        PrintServices all;
        all.ppdFile = [this](const std::string& file) {
            asked_.push_back(file);
            return host::PpdFile(file);
        };
        return all;
    }
    static PrintOptions options(const std::string& ppd) {
        PrintOptions all;
        all.ppd = ppd;
        return all;
    }

    std::vector<std::string> asked_;
    ScopedVariable bundle_{host::kBundleVariable, paths::bundle_dir().c_str()};
};

TEST_F(ReadAhead, GivesThePpdOutOnceAndReadsItAnewAfterThat) {
    const PrintServices ahead = read_ahead(options(kSample), services());
    EXPECT_EQ(ahead.ppdFile(kSample).name(), kSample);
    EXPECT_EQ(asked_, std::vector<std::string>());
    EXPECT_EQ(ahead.ppdFile(kSample).name(), kSample);
    EXPECT_EQ(asked_, std::vector<std::string>{kSample});
}

TEST_F(ReadAhead, ThePpdIsTheOneThatIsReadOtherwise) {
    host::PpdFile ahead = read_ahead(options(kSample), services()).ppdFile(kSample);
    host::PpdFile otherwise(kSample);
    EXPECT_EQ(ahead.model_name(), otherwise.model_name());
    EXPECT_EQ(ahead.get()->num_attrs, otherwise.get()->num_attrs);
    ASSERT_TRUE(ahead.page_size().has_value()) << "the defaults are not marked";
    EXPECT_EQ(ahead.page_size()->width, otherwise.page_size()->width);
}

TEST_F(ReadAhead, AnotherFileIsReadAsEver) {
    const std::string other = paths::source_dir() + "/examples/ppd/cached.ppd";
    const PrintServices ahead = read_ahead(options(kSample), services());
    EXPECT_EQ(ahead.ppdFile(other).name(), other);
    EXPECT_EQ(asked_, std::vector<std::string>{other});
}

TEST_F(ReadAhead, AFileThatCannotBeReadIsRefusedWhenItIsAskedFor) {
    const std::string none = "/nowhere/a.ppd";
    const PrintServices ahead = read_ahead(options(none), services());
    const host::HostError error = error_of([&] { ahead.ppdFile(none); });
    EXPECT_EQ(error.code(), host::ErrorCode::input);
    EXPECT_EQ(asked_, std::vector<std::string>{none});
}

TEST_F(ReadAhead, ABundleThatIsNotThereKeepsNobodyFromThePpd) {
    const ScopedVariable bundle(host::kBundleVariable, "/nowhere");
    const PrintServices ahead = read_ahead(options(kSample), services());
    EXPECT_EQ(ahead.ppdFile(kSample).name(), kSample);
    EXPECT_EQ(asked_, std::vector<std::string>());
}

TEST_F(ReadAhead, WithoutAPpdNothingIsRead) {
    read_ahead(options(""), services());
    EXPECT_EQ(asked_, std::vector<std::string>());
}

TEST_F(ReadAhead, TheEnvironmentIsAsBefore) {
    const ScopedVariable messages("LC_MESSAGES", "fr_FR.UTF-8");
    read_ahead(options(kSample), services());
    EXPECT_STREQ(std::getenv("LC_MESSAGES"), "fr_FR.UTF-8");
}

} // namespace
} // namespace specialpages::qt::testing

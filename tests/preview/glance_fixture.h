// A printer with many papers, its marked defaults, and the pane's bundle for texts.
#pragma once

#include "platform/foundation/Bundle.h"
#include "ppd/open_ppd.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <memory>

namespace specialpages::preview::test {

class GlanceTest : public ::testing::Test {
  protected:
    GlanceTest()
        : ppd(specialpages::test::open_ppd(paths::source_dir() + "/examples/ppd/production.ppd")),
          bundle(platform::Bundle::load(paths::bundle_dir())) {
        specialpages::test::mark_defaults(ppd.get());
    }
    void mark(const char* option, const char* choice) {
        specialpages::test::mark_option(ppd.get(), option, choice);
    }

    // Places in the printer's lists.
    static constexpr int kA3 = 0;
    static constexpr int kA4 = 2;
    static constexpr int kA5 = 4;
    static constexpr int kCustom = 33;
    static constexpr int kWhite = 0;
    static constexpr int kBlue = 1;
    static constexpr int kOurColor = 12;
    static constexpr int kPlain = 0;
    static constexpr int kThick = 8;
    static constexpr int kTab = 36;

    specialpages::test::OpenPpd ppd;
    std::shared_ptr<platform::Bundle> bundle;
};

} // namespace specialpages::preview::test

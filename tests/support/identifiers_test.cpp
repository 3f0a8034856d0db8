#include "platform/foundation/Bundle.h"
#include "support/identifiers.h"
#include "support/temporary_bundle.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

TEST(Identifiers, TheClientIsNamed) {
    EXPECT_EQ(GetAppClientID(), "com.norvalen.nb.r15.SpecialPagesKind");
}

TEST(Identifiers, OfBundleClientAndPanelAreThree) {
    EXPECT_STREQ(kBundleIdentifier, "com.norvalen.nb.r15.pde.SpecialPages");
    EXPECT_STREQ(kClientIdentifier, "com.norvalen.nb.r15.SpecialPagesKind");
    EXPECT_STREQ(kPanelKind, "com.norvalen.nb.r15.pde.SpecialPagesKind");
}

TEST(Identifiers, TheLocalisedTableIsNamedByItsIndex) {
    EXPECT_EQ(localizable_table_name("2"), "Localizable2");
    EXPECT_EQ(localizable_table_name(""), "Localizable");
}

TEST(Identifiers, ThePanesBundleIsFoundForAsLongAsItLives) {
    const platform::testing::TemporaryDirectory directory;
    test::write_bundle(directory.path(), kBundleIdentifier);
    EXPECT_EQ(GetAppBundleRef(), nullptr);
    auto bundle = platform::Bundle::load(directory.path());
    ASSERT_NE(bundle, nullptr);
    EXPECT_EQ(GetAppBundleRef(), bundle);
    bundle.reset();
    EXPECT_EQ(GetAppBundleRef(), nullptr);
}

TEST(Identifiers, AnotherBundleIsNotThePanes) {
    const platform::testing::TemporaryDirectory directory;
    test::write_bundle(directory.path(), "com.norvalen.nb.r15.pde.SpecialPages2");
    const auto bundle = platform::Bundle::load(directory.path());
    ASSERT_NE(bundle, nullptr);
    EXPECT_EQ(GetAppBundleRef(), nullptr);
}

} // namespace
} // namespace specialpages

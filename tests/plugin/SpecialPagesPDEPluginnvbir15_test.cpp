#include "platform/foundation/log.h"
#include "plugin/SpecialPagesPDEPluginnvbir15.h"
#include "plugin/pane_fixture.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_builder.h"
#include "support/identifiers.h"
#include "support/plugin_bundle.h"
#include "support/temporary_bundle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

using ::testing::ElementsAre;

/// The factory asked for a hand-built PPD with that value of the product attribute.
class FactoryTest : public ::testing::Test {
  protected:
    FactoryTest() { built_bundle(); }

    static std::size_t panelsFor(ppd_file_t* ppd, std::string_view type = platform::kDialogPanelType) {
        LendingHost host(ppd);
        const auto panels = SpecialPagesPDEPluginnvbir15().PDEPanelsForType(type, &host);
        return panels ? panels->size() : 0;
    }
    static std::size_t panelsForValue(const std::string& value,
                                      const std::string& name = "NVXSpecialPagesSettings") {
        PpdBuilder ppd;
        ppd.attribute("Manufacturer", "", "NV").attribute(name, "", value);
        return panelsFor(ppd.file());
    }
};

TEST_F(FactoryTest, HandsOutExactlyOnePanelForAPpdWithTheProductAttribute) {
    EXPECT_EQ(panelsForValue("Default01-Default01"), 1U);
}

TEST_F(FactoryTest, WrongTypeGivesNoPanel) {
    PpdBuilder ppd;
    ppd.attribute("NVXSpecialPagesSettings", "", "Default01-Default01");
    EXPECT_EQ(panelsFor(ppd.file(), "BDB091F4-E57F-11D3-B5CC-0050E4603278"), 0U);
    EXPECT_EQ(panelsFor(ppd.file(), ""), 0U);
    EXPECT_EQ(panelsFor(ppd.file()), 1U);
}

TEST_F(FactoryTest, NoHostGivesNoPanel) {
    EXPECT_FALSE(
        SpecialPagesPDEPluginnvbir15().PDEPanelsForType(platform::kDialogPanelType, nullptr).has_value());
}

TEST_F(FactoryTest, HostWithoutAPpdGivesNoPanel) {
    EXPECT_EQ(panelsFor(nullptr), 0U);
}

TEST_F(FactoryTest, PpdWithoutTheAttributeGivesNoPanel) {
    PpdBuilder ppd;
    ppd.attribute("Manufacturer", "", "NV");
    EXPECT_EQ(panelsFor(ppd.file()), 0U);
}

TEST_F(FactoryTest, AMissingHelpPageHidesThePaneThoughTheNibExists) {
    EXPECT_EQ(panelsForValue("Default01-Elsewhere"), 0U);
}

TEST_F(FactoryTest, AMissingNibHidesThePaneThoughTheHelpPageExists) {
    EXPECT_EQ(panelsForValue("Elsewhere-Default01"), 0U);
}

TEST_F(FactoryTest, AValueThatEndsWithTheHyphenFindsNoHelpPage) {
    EXPECT_EQ(panelsForValue("Default01-"), 0U);
}

TEST_F(FactoryTest, AValueThatBeginsWithTheHyphenAsksForTheBarePrefixAsNib) {
    std::vector<std::string> lines;
    auto before = platform::setLogSink([&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_EQ(panelsForValue("-Default01"), 0U);
    platform::setLogSink(before);
    EXPECT_THAT(lines, ElementsAre("SpecialPagesPDE : RealChoiceStringNib1 - NVSpecialPages_"));
}

TEST_F(FactoryTest, AValueWithoutAHyphenOffersNoPane) {
    EXPECT_EQ(panelsForValue("Default01"), 0U);
    EXPECT_EQ(panelsForValue(""), 0U);
}

TEST_F(FactoryTest, AValueThatLeadsOutOfTheBundleOffersNoPane) {
    EXPECT_EQ(panelsForValue("Default01-../../SpecialPages.bundle/Help/SpecialPagesMain_Default01"), 0U);
}

TEST_F(FactoryTest, ALongerAttributeNameThatStandsEarlierSatisfiesTheTest) {
    PpdBuilder ppd;
    ppd.attribute("NVXSpecialPagesSettingsOld", "", "Default01-Default01")
        .attribute("NVXSpecialPagesSettings", "", "Elsewhere-Elsewhere");
    EXPECT_EQ(panelsFor(ppd.file()), 1U);
}

TEST_F(FactoryTest, LogsTheNibTwiceWhenThePanelIsMade) {
    std::vector<std::string> lines;
    auto before = platform::setLogSink([&](std::string_view line) { lines.emplace_back(line); });
    EXPECT_EQ(panelsForValue("Default01-Default01"), 1U);
    platform::setLogSink(before);
    EXPECT_THAT(lines, ElementsAre("SpecialPagesPDE : RealChoiceStringNib1 - NVSpecialPages_Default01",
                                   "SpecialPagesPDE : RealChoiceStringNib2 - NVSpecialPages_Default01"));
}

TEST_F(FactoryTest, ASecondBundleLeavesTheFirstInPlace) {
    const auto first = pluginBundle();
    const TemporaryDirectory other;
    write_bundle(other.path(), "com.example.other");
    const auto second = platform::Bundle::load(other.path());
    ASSERT_NE(second, nullptr);
    EXPECT_TRUE(SpecialPagesPDEPluginnvbir15().initWithBundle(second));
    EXPECT_EQ(pluginBundle(), first);
}

/// A panel on a hand-built PPD.
class IdentityTest : public FactoryTest {
  protected:
    static std::string nameFor(PpdBuilder& ppd) {
        LendingHost host(ppd.file());
        SpecialPagesPDEnvbir15 panel;
        panel.initWithCallback(&host);
        return panel.panelName();
    }
};

TEST_F(IdentityTest, TitleComesFromTheIndexedTable) {
    PpdBuilder ppd;
    ppd.attribute("NVLocalizableFileIndex", "", "01");
    EXPECT_EQ(nameFor(ppd), "Special Pages");
}

TEST_F(IdentityTest, TitleComesFromTheDefaultTableWithoutAnIndex) {
    PpdBuilder ppd;
    EXPECT_EQ(nameFor(ppd), "Special Pages");
}

TEST_F(IdentityTest, AnIndexWithoutATableGivesTheFallback) {
    PpdBuilder ppd;
    ppd.attribute("NVLocalizableFileIndex", "", "77");
    EXPECT_EQ(nameFor(ppd), "no translation");
}

TEST_F(IdentityTest, ATableChangeAfterTheFirstCallLeavesTheTitle) {
    PpdBuilder without;
    PpdBuilder missing;
    missing.attribute("NVLocalizableFileIndex", "", "77");
    LendingHost host(without.file());
    SpecialPagesPDEnvbir15 panel;
    panel.initWithCallback(&host);
    EXPECT_EQ(panel.panelName(), "Special Pages");
    host.ppd_ = missing.file();
    EXPECT_EQ(panel.panelName(), "Special Pages");
}

TEST_F(IdentityTest, NameAndKindWithoutAHost) {
    SpecialPagesPDEnvbir15 panel;
    EXPECT_EQ(panel.panelName(), "Special Pages");
    EXPECT_EQ(panel.panelKind(), "com.norvalen.nb.r15.pde.SpecialPagesKind");
    EXPECT_EQ(GetAppClientID(), "com.norvalen.nb.r15.SpecialPagesKind");
}

TEST_F(IdentityTest, KeywordsAreListedOnceHoweverOftenTheyAreAskedFor) {
    PpdBuilder ppd;
    ppd.group("First")
        .option("Duplex")
        .choice("None")
        .option("MediaType")
        .choice("Plain")
        .subgroup("Below")
        .option("Hidden")
        .choice("x")
        .group("Second")
        .option("PageSize")
        .choice("A4");
    LendingHost host(ppd.file());
    SpecialPagesPDEnvbir15 panel;
    panel.initWithCallback(&host);
    EXPECT_FALSE(panel.supportedPPDOptionKeys().has_value());
    EXPECT_FALSE(panel.supportedPPDOptionKeys().has_value());
    EXPECT_THAT(nxPPDKeywordList(), ElementsAre("Duplex", "MediaType", "PageSize"));
}

TEST_F(IdentityTest, WithoutAPpdTheKeywordListStaysAsItWas) {
    nxPPDKeywordList() = {"Kept"};
    LendingHost host(nullptr);
    SpecialPagesPDEnvbir15 panel;
    panel.initWithCallback(&host);
    EXPECT_FALSE(panel.supportedPPDOptionKeys().has_value());
    EXPECT_THAT(nxPPDKeywordList(), ElementsAre("Kept"));
    EXPECT_EQ(panel.Getxppd(), nullptr);
}

TEST_F(IdentityTest, ANullNibNameIsIgnored) {
    SpecialPagesPDEnvbir15 panel;
    panel.setPDENibFileName("NVSpecialPages_Default01");
    panel.setPDENibFileName(std::nullopt);
    EXPECT_NE(panel.panelView(), nullptr);
}

TEST_F(IdentityTest, ANibThatIsNotThereGivesNoView) {
    SpecialPagesPDEnvbir15 panel;
    panel.setPDENibFileName("NVSpecialPages_Nowhere");
    EXPECT_EQ(panel.panelView(), nullptr);
}

} // namespace
} // namespace specialpages::test

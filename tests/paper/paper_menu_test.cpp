#include "paper/paper_menu.h"
#include "paper/paper_ppd.h"
#include "ppd/ppd_keywords.h"
#include "records/record_tables.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

namespace specialpages {

void PrintTo(const SubMenuItem& item, std::ostream* out) {
    *out << item.tag << " " << item.title << " (" << item.representedObject << ")";
}

namespace test {
namespace {

using ::testing::ElementsAre;

const SubMenuTitles kTitles{"No Change", "Custom…"};

class PaperMenuItems : public ::testing::Test {
  protected:
    PaperMenuItems() { describe_paper(ppd); }
    std::vector<SubMenuItem> items(PaperPart part, const PaperOptionKeys& keys = paper_keys()) {
        return sub_menu_items(part, keys, &ppd.find(keys.of(part)), kTitles);
    }
    PpdBuilder ppd;
};

TEST_F(PaperMenuItems, SizesEndWithTheCustomTitle) {
    EXPECT_THAT(items(PaperPart::size),
                ElementsAre(SubMenuItem{"No Change", 2000, kNoChangeKey}, SubMenuItem{"A3", 2001, "A3"},
                            SubMenuItem{"A4", 2002, "A4"}, SubMenuItem{"US Letter", 2003, "Letter"},
                            SubMenuItem{"Custom…", 2004, "Custom"}));
}

TEST_F(PaperMenuItems, TheLastSizeHasTheCustomTitleWhateverItIs) {
    ppd.option("Size2").choices({"Custom", "A4"});
    EXPECT_THAT(items(PaperPart::size, {"Size2", "NVMediaColor", "MediaType"}),
                ElementsAre(SubMenuItem{"No Change", 2000, kNoChangeKey},
                            SubMenuItem{"Custom", 2001, "Custom"}, SubMenuItem{"Custom…", 2002, "A4"}));
}

TEST_F(PaperMenuItems, TheColorAnyHasNoItem) {
    EXPECT_THAT(items(PaperPart::color),
                ElementsAre(SubMenuItem{"No Change", 3000, kNoChangeKey}, SubMenuItem{"White", 3001, "White"},
                            SubMenuItem{"Light Blue", 3002, "Blue"}));
}

TEST_F(PaperMenuItems, TagsGoOnCountingBehindAny) {
    PpdBuilder colors;
    colors.option("NVMediaColor").choices({"White", "Any", "Blue", "Red"});
    EXPECT_THAT(sub_menu_items(PaperPart::color, paper_keys(), &colors.find("NVMediaColor"), kTitles),
                ElementsAre(SubMenuItem{"No Change", 3000, kNoChangeKey}, SubMenuItem{"White", 3001, "White"},
                            SubMenuItem{"Blue", 3003, "Blue"}, SubMenuItem{"Red", 3004, "Red"}));
}

TEST_F(PaperMenuItems, AnyOfAnotherOptionStays) {
    ppd.option("MediaColor").choices({"Any"}).option("NVmediacolor").choices({"White", "Any"});
    EXPECT_EQ(items(PaperPart::color, {"PageSize", "MediaColor", "MediaType"}).size(), 2U);
    EXPECT_EQ(items(PaperPart::color, {"PageSize", "NVmediacolor", "MediaType"}).size(), 3U);
    EXPECT_EQ(items(PaperPart::type, {"PageSize", "MediaColor", "NVMediaColor"}).size(), 4U)
        << "the option is here the type, not the color";
}

TEST_F(PaperMenuItems, TypesHaveTheirOwnTitles) {
    const auto types = items(PaperPart::type);
    ASSERT_EQ(types.size(), 6U);
    EXPECT_EQ(types[1], (SubMenuItem{"Plain", 4001, "Stationary"}));
    EXPECT_EQ(types[5], (SubMenuItem{"Tab Stock 2", 4005, "TabbedPaper2"}));
}

TEST_F(PaperMenuItems, WithoutAnOptionOnlyNoChangeStands) {
    EXPECT_THAT(sub_menu_items(PaperPart::type, paper_keys(), nullptr, kTitles),
                ElementsAre(SubMenuItem{"No Change", 4000, kNoChangeKey}));
    ppd_option_t empty{};
    EXPECT_EQ(sub_menu_items(PaperPart::size, paper_keys(), &empty, kTitles).size(), 1U);
}

TEST(TransparencyIndexes, AreTakenFromWhicheverMenuHasThem) {
    PpdBuilder ppd;
    ppd.option("Size")
        .choices({"Clear", "A4"})
        .option("Color")
        .choices({"White", "Clear", "Transparency"})
        .option("Type")
        .choices({"Transparency", "transparency", "clear"});
    TransparencyIndexes indexes;
    note_transparency(nullptr, indexes);
    EXPECT_EQ(indexes, (TransparencyIndexes{-1, -1}));
    note_transparency(&ppd.find("Size"), indexes);
    EXPECT_EQ(indexes, (TransparencyIndexes{-1, 0}));
    note_transparency(&ppd.find("Color"), indexes);
    EXPECT_EQ(indexes, (TransparencyIndexes{2, 1}));
    note_transparency(&ppd.find("Type"), indexes);
    EXPECT_EQ(indexes, (TransparencyIndexes{0, 1}));
}

TEST(VendorTitle, IsTheFirstKeyWithTheVendorPrefix) {
    using Keys = std::vector<const char*>;
    EXPECT_EQ(vendor_title_position(Keys{"Size", "NVOther", kInterposerKey}), 1);
    EXPECT_EQ(vendor_title_position(Keys{"Size", "nvOther", "XNV"}), std::nullopt);
    EXPECT_EQ(vendor_title_position(Keys{}), std::nullopt);
}

TEST(SeparatorText, IsTheTextOfTheChoiceThatTheKeyEndsWith) {
    PpdBuilder ppd;
    ppd.option(KPPDUncollateSeparator).choice("None").choice("INT", "Tray 8").choice("A-INT", "Other");
    EXPECT_EQ(separator_text(ppd.file(), kInterposerKey), "Tray 8");
    EXPECT_EQ(separator_text(ppd.file(), "NVUncollateSeparator-A-INT"), "Tray 8") << "the last piece counts";
    EXPECT_EQ(separator_text(ppd.file(), "NVUncollateSeparator-int"), std::nullopt);
    EXPECT_EQ(separator_text(ppd.file(), "None"), "None") << "a key without a dash is its own last piece";
    EXPECT_EQ(separator_text(nullptr, kInterposerKey), std::nullopt);
    PpdBuilder without;
    without.option("Other").choice("INT", "Tray 8");
    EXPECT_EQ(separator_text(without.file(), kInterposerKey), std::nullopt);
}

} // namespace
} // namespace test
} // namespace specialpages

#include "records/record_builder.h"
#include "records/setup_text.h"

#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>
#include <utility>

namespace specialpages::test {
namespace {

/// Each text is its key in brackets, from the default table in double ones.
class KeyWords : public SetupWords {
  public:
    std::string localizedText(std::string_view key) const override {
        return key == "Quantity String" ? "%d sheets" : "[" + std::string(key) + "]";
    }
    std::string defaultTableText(std::string_view key) const override {
        return "[[" + std::string(key) + "]]";
    }
    std::optional<std::string> interposerText() const override { return interposer; }
    std::string sizeKeyword(std::int32_t index) const override {
        const auto found = sizes.find(index);
        return found == sizes.end() ? std::string() : found->second;
    }

    std::optional<std::string> interposer;
    std::map<std::int32_t, std::string> sizes{{0, "A4"}, {1, "A3"}, {5, "Custom"}};
};

/// Titles and keywords by kind and index.
class GivenTitles : public PaperTitles {
  public:
    std::optional<std::string> getSelectedMenuItemTitle(std::int64_t kind,
                                                        std::int64_t index) const override {
        const auto found = items.find({kind, index});
        return found == items.end() ? std::nullopt : std::optional(found->second.first);
    }
    std::optional<std::string> getSelectedMenuItemChoice(std::int64_t kind,
                                                         std::int64_t index) const override {
        const auto found = items.find({kind, index});
        return found == items.end() ? std::nullopt : std::optional(found->second.second);
    }

    std::map<std::pair<std::int64_t, std::int64_t>, std::pair<std::string, std::string>> items{
        {{2, 0}, {"A4 (210 x 297)", "A4"}},     {{2, 1}, {"A3", "A3"}},
        {{2, 5}, {"Custom...", "Custom"}},      {{3, 0}, {"White", "White"}},
        {{3, 1}, {"Our blue", "CustomColor1"}}, {{4, 0}, {"Plain", "Stationary"}},
        {{4, 1}, {"Our card", "MediaCustom2"}}};
};

class SetupText : public ::testing::Test {
  protected:
    KeyWords words;
    GivenTitles paper;
};

TEST_F(SetupText, IsHeadSizeColorAndType) {
    EXPECT_EQ(cover_setup_text(cover_front(), paper, words),
              "[Blank or Pre-Printed String]; A4 (210 x 297), White, Plain");
    EXPECT_EQ(insert_setup_text(insert_after(3, 12), paper, words),
              "12 sheets; A4 (210 x 297), White, Plain");
    EXPECT_EQ(exception_setup_text(exception("5").with(RecordKey::twoSidePrint, "2"), paper, words),
              "[2 Side Print Option String]; A4 (210 x 297), White, Plain");
}

TEST_F(SetupText, TheHeadFollowsTheRecord) {
    const auto head = [&](const char* option) {
        const std::string text =
            cover_setup_text(cover_front().with(RecordKey::printingoptions, option), paper, words);
        return text.substr(0, text.find(';'));
    };
    EXPECT_EQ(head("1"), "[Print On Side One String]");
    EXPECT_EQ(head("2"), "[Print On Side Two String]");
    EXPECT_EQ(head("3"), "[Print On Both Sides String]");
    EXPECT_EQ(head("4"), "[]") << "no such option";
    EXPECT_EQ(head("-1"), "[]");
}

TEST_F(SetupText, AnInterposerSheetHasNoPaper) {
    const auto cover = cover_front().with(RecordKey::interposer, "true");
    EXPECT_EQ(cover_setup_text(cover, paper, words),
              "[Blank or Pre-Printed String]; [NVUncollateSeparator-INT]");
    words.interposer = "Tray 8";
    EXPECT_EQ(cover_setup_text(cover, paper, words), "[Blank or Pre-Printed String]; Tray 8");
    EXPECT_EQ(cover_setup_text(cover.with(RecordKey::interposer, "TRUE"), paper, words),
              "[Blank or Pre-Printed String]; A4 (210 x 297), White, Plain")
        << "any other text is no interposer";
}

TEST_F(SetupText, ACustomSizeIsItsMeasures) {
    const auto custom = insert_after(1).with(RecordKey::pagesize, "5");
    EXPECT_EQ(insert_setup_text(custom, paper, words),
              "1 sheets; 210.0 x 297.0 [Custom Size MM Text], White, Plain");
    EXPECT_EQ(insert_setup_text(custom.with(RecordKey::longmeasure, "0"), paper, words),
              "1 sheets; 8.27 x 11.69 [Custom Size Inch Text], White, Plain");
    EXPECT_EQ(insert_setup_text(custom.with(RecordKey::longmeasure, "2"), paper, words),
              "1 sheets; 210.0 x 297.0 [], White, Plain");
}

TEST_F(SetupText, AMeasureAlwaysHasAPoint) {
    const auto custom = insert_after(1)
                            .with(RecordKey::pagesize, "5")
                            .with(RecordKey::width, "210")
                            .with(RecordKey::length, "99.5");
    EXPECT_EQ(insert_setup_text(custom, paper, words),
              "1 sheets; 210.0 x 99.5 [Custom Size MM Text], White, Plain");
}

TEST_F(SetupText, NamesThatTheUserGaveAreLabelled) {
    EXPECT_EQ(insert_setup_text(insert_after(1).with(RecordKey::pagecolor, "1"), paper, words),
              "1 sheets; A4 (210 x 297), [[Color String]]:Our blue, Plain");
    EXPECT_EQ(insert_setup_text(insert_after(1).with(RecordKey::pagetype, "1"), paper, words),
              "1 sheets; A4 (210 x 297), White, [[Type String]]:Our card");
}

TEST_F(SetupText, APartWithoutATitleLeavesItsPlaceEmpty) {
    const auto record = insert_after(1)
                            .with(RecordKey::pagesize, "77")
                            .with(RecordKey::pagecolor, "-1")
                            .with(RecordKey::pagetype, "9");
    EXPECT_EQ(insert_setup_text(record, paper, words), "1 sheets; , , ");
}

TEST_F(SetupText, AProperty) {
    const auto added = [&](std::optional<std::string_view> info, std::optional<std::string_view> choice,
                           std::int32_t type) {
        std::string text = "x";
        addPropertyInfoString(&text, info, choice, type, words);
        return text;
    };
    EXPECT_EQ(added("Blue", "Blue", kSetupColor), "xBlue");
    EXPECT_EQ(added("Blue", "MyCustom", kSetupColor), "x[[Color String]]:Blue");
    EXPECT_EQ(added("Blue", "custom", kSetupColor), "xBlue") << "letter case counts";
    EXPECT_EQ(added("Blue", std::nullopt, kSetupColor), "x[[Color String]]:Blue")
        << "a null choice is labelled too";
    EXPECT_EQ(added("Card", std::nullopt, kSetupType), "x[[Type String]]:Card");
    EXPECT_EQ(added("A4", "Custom", kSetupSize), "xA4") << "only colors and types have labels";
    EXPECT_EQ(added("Head", std::nullopt, kSetupHead), "xHead");
    EXPECT_EQ(added("Tray", std::nullopt, kSetupInterposer), "xTray");
    EXPECT_EQ(added(std::nullopt, "MyCustom", kSetupColor), "x");
    addPropertyInfoString(nullptr, "A4", "A4", kSetupSize, words);
}

TEST_F(SetupText, AFormatTakesItsNumberOnce) {
    EXPECT_EQ(format_number("%d sheet(s)", 9999), "9999 sheet(s)");
    EXPECT_EQ(format_number("sheets: %d of %d", -1), "sheets: -1 of %d");
    EXPECT_EQ(format_number("no number %s %n", 3), "no number %s %n");
    EXPECT_EQ(format_number("", 3), "");
}

} // namespace
} // namespace specialpages::test

#include "ppd/constraint_index.h"
#include "ppd/ppd_access.h"
#include "ppd/ui_list.h"
#include "ppd_builder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace specialpages {
namespace {

using test::PpdBuilder;
using testing::ElementsAre;

class UIList : public testing::Test {
  protected:
    UIList() {
        ppd.option("NVStaple").choices({"None", "Front"}).option("Empty");
        ppd.option("Duplex", "None", "Two-sided").choice("None", "Off").choice("DuplexTumble", "Short edge");
        ppd.constraint("NVStaple", "Front", "Duplex", "DuplexTumble");
    }
    void compile() { compile_constraints(ppd.file(), &index, option_keywords(ppd.file())); }

    PpdBuilder ppd;
    ConstraintIndex index;
    std::vector<UIListEntry> list;
    std::int16_t count = 0;
};

TEST_F(UIList, HasFourTextsForEachChoiceInOrder) {
    compile();
    EXPECT_EQ(GetUIListFromPPD(ppd.file(), &index, "Duplex", &list, count), 0);
    EXPECT_THAT(list, ElementsAre(UIListEntry{"Duplex", "None", "Off", "ConflictFalse"},
                                  UIListEntry{"Duplex", "DuplexTumble", "Short edge", "ConflictFalse"}));
    EXPECT_EQ(count, 2);
}

TEST_F(UIList, SaysWhichChoicesTheMarksForbid) {
    compile();
    ppd.mark("NVStaple", "Front");
    GetUIListFromPPD(ppd.file(), &index, "Duplex", &list, count);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[0][kUIListConflict], kConflictFalse);
    EXPECT_EQ(list[1][kUIListConflict], kConflictTrue);
}

TEST_F(UIList, TakesTheKeywordFromThePpdInWhateverCaseItIsAskedFor) {
    compile();
    ppd.mark("NVStaple", "Front");
    GetUIListFromPPD(ppd.file(), &index, "DUPLEX", &list, count);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1][kUIListOption], "Duplex");
    EXPECT_EQ(list[1][kUIListConflict], kConflictTrue);
}

TEST_F(UIList, AppendsAndCountsOn) {
    compile();
    list.push_back({"a", "b", "c", "d"});
    count = 40;
    GetUIListFromPPD(ppd.file(), &index, "Duplex", &list, count);
    GetUIListFromPPD(ppd.file(), &index, "NVStaple", &list, count);
    EXPECT_EQ(list.size(), 5U);
    EXPECT_EQ(list[0][kUIListOption], "a");
    EXPECT_EQ(list[3][kUIListOption], "NVStaple");
    EXPECT_EQ(count, 44);
}

TEST_F(UIList, TheCountWrapsAt16Bits) {
    count = std::numeric_limits<std::int16_t>::max();
    GetUIListFromPPD(ppd.file(), &index, "Duplex", &list, count);
    EXPECT_EQ(count, std::numeric_limits<std::int16_t>::min() + 1);
}

TEST_F(UIList, NothingHappensWithoutListOptionOrChoices) {
    compile();
    EXPECT_EQ(GetUIListFromPPD(ppd.file(), &index, "Duplex", nullptr, count), 0);
    EXPECT_EQ(GetUIListFromPPD(ppd.file(), &index, "NoSuchOption", &list, count), 0);
    EXPECT_EQ(GetUIListFromPPD(ppd.file(), &index, "Empty", &list, count), 0);
    EXPECT_EQ(GetUIListFromPPD(ppd.file(), &index, nullptr, &list, count), 0);
    EXPECT_EQ(GetUIListFromPPD(nullptr, &index, "Duplex", &list, count), 0);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(count, 0);
}

TEST_F(UIList, WithoutAnIndexNothingConflicts) {
    ppd.mark("NVStaple", "Front");
    GetUIListFromPPD(ppd.file(), nullptr, "Duplex", &list, count);
    ASSERT_EQ(list.size(), 2U);
    EXPECT_EQ(list[1][kUIListConflict], kConflictFalse);
}

TEST_F(UIList, ReadsTextsInThePpdsEncoding) {
    struct Case {
        const char* encoding;
        const char* text;
        const char* utf8;
    };
    const std::vector<Case> cases = {
        {"ISOLatin1",
         "gr\xFC"
         "n",
         "gr\xC3\xBCn"},
        {"WindowsANSI", "\x80", "\xE2\x82\xAC"},
        {"JIS83-RKSJ", "\x83\x65\x83\x58\x83\x67", "\xE3\x83\x86\xE3\x82\xB9\xE3\x83\x88"},
        {"UTF-8", "gr\xC3\xBCn", "gr\xC3\xBCn"},
        {"UTF8", "gr\xC3\xBCn", "gr\xC3\xBCn"},
        {"None", "gr\x9Fn", "gr\xC3\xBCn"}, // Mac Roman for every unknown name
    };
    for (const Case& each : cases) {
        PpdBuilder other;
        other.option("A").choice("x", each.text).lang_encoding(each.encoding);
        std::vector<UIListEntry> texts;
        GetUIListFromPPD(other.file(), nullptr, "A", &texts, count);
        ASSERT_EQ(texts.size(), 1U);
        EXPECT_EQ(texts[0][kUIListText], each.utf8) << each.encoding;
    }
}

TEST_F(UIList, AnIllFormedTextIsEmptyAndTheChoiceStays) {
    PpdBuilder other;
    other.option("A")
        .choice("x", "gr\xFC"
                     "n")
        .choice("y")
        .lang_encoding("UTF-8");
    GetUIListFromPPD(other.file(), nullptr, "A", &list, count);
    EXPECT_THAT(list, ElementsAre(UIListEntry{"A", "x", "", "ConflictFalse"},
                                  UIListEntry{"A", "y", "y", "ConflictFalse"}));
    EXPECT_EQ(count, 2);
}

TEST_F(UIList, InitializingIsTrueInAllCases) {
    compile();
    EXPECT_TRUE(InitializeValueFromPPD(ppd.file(), &index, &list, "NoSuchOption"));
    EXPECT_TRUE(InitializeValueFromPPD(nullptr, nullptr, nullptr, nullptr));
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(InitializeValueFromPPD(ppd.file(), &index, &list, "Duplex"));
    EXPECT_EQ(list.size(), 2U);
}

} // namespace
} // namespace specialpages

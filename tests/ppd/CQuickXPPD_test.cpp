#include "index_entries.h"
#include "open_ppd.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/system_version.h"
#include "ppd/CQuickXPPD.h"
#include "ppd/ppd_access.h"
#include "ppd_builder.h"
#include "support/settings_access.h"
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidcheck.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <locale>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {
namespace {

using test::EntryText;
using test::ordered_entries;
using test::PpdBuilder;
using test::sorted_entries;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kTiger = "SpecialPagesPDETiger";

/// What a reader of the section takes from a file.
ConstraintIndex read_section(const std::string& file, std::string_view section = kTiger) {
    ConstraintIndex index;
    CQuickXPPD reader(&index, section);
    std::istringstream stream(file);
    stream >> reader;
    return index;
}

std::string section_file(const std::string& data) {
    return kTiger + "\n" + data + "\n";
}

struct Section {
    std::string name;
    std::vector<std::string> keywords;
};

std::string written(ppd_file_t* ppd, const std::vector<Section>& sections,
                    std::optional<std::string_view> ppd_file_name = std::nullopt,
                    ConstraintIndex* scratch = nullptr) {
    std::vector<x_PDEConstr> records;
    for (const Section& section : sections) {
        records.push_back({&section.name, &section.keywords});
    }
    records.emplace_back();
    ConstraintIndex index;
    CQuickXPPD writer(ppd, scratch == nullptr ? &index : scratch, records.data(), ppd_file_name);
    std::ostringstream stream;
    stream << writer;
    return stream.str();
}

// One field.

TEST(CacheField, MovesTheTextBeforeTheFirstDelimiter) {
    std::string_view source = "A:x@1@2@3@";
    std::string target = "before ";
    EXPECT_TRUE(CQuickXPPD::getoneline(&source, &target, '@'));
    EXPECT_EQ(target, "before A:x");
    EXPECT_EQ(source, "1@2@3@");
}

TEST(CacheField, AnEmptyFieldIsTakenOff) {
    std::string_view source = "@1";
    std::string target;
    EXPECT_TRUE(CQuickXPPD::getoneline(&source, &target, '@'));
    EXPECT_EQ(target, "");
    EXPECT_EQ(source, "1");
}

TEST(CacheField, NothingChangesWithoutADelimiter) {
    std::string_view source = "A:x";
    std::string target = "kept";
    EXPECT_FALSE(CQuickXPPD::getoneline(&source, &target, '@'));
    EXPECT_EQ(source, "A:x");
    EXPECT_EQ(target, "kept");
}

TEST(CacheField, NothingChangesForANullArgument) {
    std::string_view source = "A@";
    std::string target = "kept";
    EXPECT_FALSE(CQuickXPPD::getoneline(nullptr, &target, '@'));
    EXPECT_FALSE(CQuickXPPD::getoneline(&source, nullptr, '@'));
    EXPECT_EQ(source, "A@");
    EXPECT_EQ(target, "kept");
}

// Reading.

TEST(CacheReading, TakesTheEntriesOfTheSection) {
    const auto index = read_section("SpecialPagesPDETiger\nPageSize:A4@2@0@3@MediaType:Plain@1@5@2@\n");
    EXPECT_THAT(sorted_entries(index),
                ElementsAre(EntryText("MediaType:Plain", "1.5.2"), EntryText("PageSize:A4", "2.0.3")));
}

TEST(CacheReading, ANameThatOnlyBeginsOrEndsAlikeIsNotTheSection) {
    for (const std::string name :
         {"SpecialPagesPDETigerX", "XSpecialPagesPDETiger", "SpecialPagesPDE", "", "SpecialPagesPDETiger ",
          "SpecialPagesPDETiger\r", "specialpagespdetiger"}) {
        EXPECT_TRUE(read_section(name + "\nA:x@1@2@3@\n").empty()) << name;
    }
}

TEST(CacheReading, OnlyTheFirstOfTwoSectionsOfTheNameIsRead) {
    EXPECT_THAT(sorted_entries(read_section(section_file("A:x@1@1@1@") + section_file("B:y@2@2@2@"))),
                ElementsAre(EntryText("A:x", "1.1.1")));
    EXPECT_TRUE(read_section(section_file("") + section_file("B:y@2@2@2@")).empty());
}

TEST(CacheReading, OtherSectionsAreSkipped) {
    EXPECT_THAT(
        sorted_entries(read_section("PrintFeaturePDETiger\nC:z@9@9@9@\n\n" + section_file("A:x@1@1@1@") +
                                    "ImageOptionPDETiger\nD:w@8@8@8@\n*% Last Edit Date: today")),
        ElementsAre(EntryText("A:x", "1.1.1")));
}

TEST(CacheReading, StopsBehindTheDataLine) {
    ConstraintIndex index;
    CQuickXPPD reader(&index, kTiger);
    std::istringstream stream(section_file("A:x@1@1@1@") + "rest of the file");
    stream >> reader;
    std::string rest;
    std::getline(stream, rest);
    EXPECT_EQ(rest, "rest of the file");
}

TEST(CacheReading, AFileThatEndsFirstLeavesTheIndexAsItWas) {
    for (const std::string file : {"", "\n", "Other\nA:x@1@1@1@\n", "SpecialPagesPDETiger",
                                   "SpecialPagesPDETiger\n", "SpecialPagesPDETiger\n\n"}) {
        ConstraintIndex index;
        index.insert("Kept:y", {1, 2, 3});
        CQuickXPPD reader(&index, kTiger);
        std::istringstream stream(file);
        stream >> reader;
        EXPECT_THAT(ordered_entries(index), ElementsAre(EntryText("Kept:y", "1.2.3"))) << file;
    }
}

TEST(CacheReading, ADataLineMayEndWithTheFile) {
    EXPECT_EQ(read_section("SpecialPagesPDETiger\nA:x@1@2@3@").size(), 1U);
}

TEST(CacheReading, ALineThatBreaksOffKeepsTheEntriesBefore) {
    for (const std::string broken :
         {"B:y", "B:y@", "B:y@4", "B:y@4@", "B:y@4@5", "B:y@4@5@", "B:y@4@5@6", "@", "@@@", "@@@6"}) {
        EXPECT_THAT(sorted_entries(read_section(section_file("A:x@1@2@3@" + broken))),
                    ElementsAre(EntryText("A:x", "1.2.3")))
            << broken;
        EXPECT_TRUE(read_section(section_file(broken)).empty()) << broken;
    }
}

TEST(CacheReading, AnEntryWithAnEmptyKeyIsDroppedAndTheNextOneRead) {
    EXPECT_THAT(sorted_entries(read_section(section_file("@1@2@3@A:x@4@5@6@@7@8@9@"))),
                ElementsAre(EntryText("A:x", "4.5.6")));
}

TEST(CacheReading, FieldsThatAreNoNumbersCountAsZero) {
    EXPECT_THAT(sorted_entries(read_section(section_file("A:x@one@@-@"))),
                ElementsAre(EntryText("A:x", "0.0.0")));
}

TEST(CacheReading, NumbersAreReadFromTheHeadOfTheirField) {
    EXPECT_THAT(sorted_entries(read_section(section_file("A:x@7up@ 8@+9@B:y@007@1.9@0x10@"))),
                ElementsAre(EntryText("A:x", "7.8.9"), EntryText("B:y", "7.1.0")));
}

TEST(CacheReading, NumbersAreCutTo16Bits) {
    EXPECT_THAT(
        sorted_entries(read_section(section_file("A:x@65535@65536@65537@B:y@-1@-65535@000000065538@"))),
        ElementsAre(EntryText("A:x", "65535.0.1"), EntryText("B:y", "65535.1.2")));
    // Beyond 32 bits a number stands at the end of its range.
    EXPECT_THAT(sorted_entries(
                    read_section(section_file("A:x@2147483647@99999999999999999999@-99999999999999999999@"))),
                ElementsAre(EntryText("A:x", "65535.65535.0")));
}

TEST(CacheReading, AKeyIsKeptWholeUpToTheSeparator) {
    EXPECT_THAT(sorted_entries(read_section(section_file("A:x:y z,\xE9\r@1@2@3@nocolon@4@5@6@"))),
                ElementsAre(EntryText("A:x:y z,\xE9\r", "1.2.3"), EntryText("nocolon", "4.5.6")));
}

TEST(CacheReading, EqualKeysThatDoNotStandTogetherAreTheSameKey) {
    const auto index = read_section(section_file("A:x@1@0@0@B:y@2@0@0@A:x@3@0@0@"));
    EXPECT_EQ(index.key_count(), 2U);
    EXPECT_THAT(sorted_entries(index),
                ElementsAre(EntryText("A:x", "1.0.0"), EntryText("A:x", "3.0.0"), EntryText("B:y", "2.0.0")));
}

TEST(CacheReading, MakesTheSameTableAsInsertingOneByOne) {
    std::string data;
    ConstraintIndex expected;
    for (int i = 0; i < 1000; ++i) {
        const std::string key = "A" + std::to_string(i / 7) + ":x";
        data += key + "@" + std::to_string(i) + "@0@0@";
        expected.insert(key, {static_cast<std::uint16_t>(i), 0, 0});
    }
    const auto index = read_section(section_file(data));
    EXPECT_EQ(index.bucket_count(), 1543U);
    EXPECT_EQ(ordered_entries(index), ordered_entries(expected));
}

/// The entries of a data line, by the format's description: field by field, without a look ahead.
std::vector<EntryText> entries_field_by_field(std::string_view line) {
    ConstraintIndex index;
    std::string rest(line);
    std::string_view source = rest;
    std::array<std::string, 4> fields;
    const auto take = [&source](std::string& field) {
        field.clear();
        return CQuickXPPD::getoneline(&source, &field, '@');
    };
    const auto position = [](const std::string& field) {
        return static_cast<std::uint16_t>(platform::int_value(field));
    };
    while (std::all_of(fields.begin(), fields.end(), take)) {
        if (!fields[0].empty()) {
            index.insert(fields[0], {position(fields[1]), position(fields[2]), position(fields[3])});
        }
    }
    return ordered_entries(index);
}

TEST(CacheReading, NumbersOfEveryLengthAreReadWherever) {
    std::string data;
    for (const std::string group : {"0", "9", "10", "", "x", "-1"}) {
        for (const std::string option :
             {"7", "42", "999", "1234", "9999", "10000", "65535", "", "1:", "/1"}) {
            for (const std::string choice : {"0", "99", "100", "9998", "12345", "", "3a", "0000000000017"}) {
                data += "Option:Choice@" + group + "@" + option + "@" + choice + "@";
            }
        }
    }
    // Whatever is behind an entry: the last ones stand at the end of the text.
    for (std::size_t size = data.size(); size > data.size() - 60; --size) {
        const std::string head = data.substr(0, size);
        ASSERT_EQ(ordered_entries(read_section(section_file(head))), entries_field_by_field(head)) << size;
    }
    EXPECT_EQ(read_section(section_file(data)).size(), 480U);
}

TEST(CacheReading, KeysThatBeginAlikeAreDifferentKeys) {
    EXPECT_THAT(ordered_entries(read_section(
                    section_file("MediaType:Plain@1@2@3@MediaType:Plain1@1@2@4@MediaType:Plaid@1@2@5@"
                                 "MediaType:Plai@1@2@6@MediaType:Plain@1@2@7@"))),
                testing::UnorderedElementsAre(
                    EntryText("MediaType:Plain", "1.2.3"), EntryText("MediaType:Plain", "1.2.7"),
                    EntryText("MediaType:Plain1", "1.2.4"), EntryText("MediaType:Plaid", "1.2.5"),
                    EntryText("MediaType:Plai", "1.2.6")));
}

TEST(CacheReading, EntriesAreWholeWhereverTheLineIsCutForReading) {
    // The reader looks at some kilobytes at a time; a head of any length moves its cuts through the entries.
    std::string data;
    for (int i = 0; data.size() < 70'000; ++i) {
        data += "Option" + std::to_string(i / 9) + ":x@" + std::to_string(i % 7) + "@" +
                std::to_string(i % 150) + "@" + std::to_string(i % 20) + "@";
    }
    for (std::size_t head = 1; head < 40; ++head) {
        const std::string line = std::string(head, 'h') + ":x@1@2@3@" + data;
        ASSERT_EQ(ordered_entries(read_section(section_file(line))), entries_field_by_field(line)) << head;
    }
}

TEST(CacheReading, AKeyMayBeLongerThanWhatIsLookedAtAtATime) {
    for (const std::size_t size : {16'382U, 16'383U, 16'384U, 16'385U, 100'000U}) {
        const std::string key(size, 'k');
        const auto index = read_section(section_file("A:x@1@2@3@" + key + "@4@5@6@" + key + "@7@8@9@"));
        EXPECT_THAT(sorted_entries(index),
                    ElementsAre(EntryText("A:x", "1.2.3"), EntryText(key, "4.5.6"), EntryText(key, "7.8.9")))
            << size;
    }
}

TEST(CacheReading, AnEndlessFieldIsNoEntry) {
    EXPECT_TRUE(read_section(section_file(std::string(200'000, 'k'))).empty());
    EXPECT_EQ(read_section(section_file("A:x@1@2@3@A:x@1@2@" + std::string(200'000, '1'))).size(), 1U);
}

TEST(CacheReading, TheNextObjectReadsOnBehindTheLine) {
    std::string data;
    while (data.size() < 40'000) {
        data += "A:x@1@2@3@";
    }
    std::istringstream stream("First\n" + data + "\nSecond\nB:y@4@5@6@\nstamp");
    ConstraintIndex first;
    ConstraintIndex second;
    CQuickXPPD first_reader(&first, "First");
    CQuickXPPD second_reader(&second, "Second");
    stream >> first_reader >> second_reader;
    EXPECT_EQ(first.size(), 4000U);
    EXPECT_THAT(sorted_entries(second), ElementsAre(EntryText("B:y", "4.5.6")));
    std::string rest;
    std::getline(stream, rest);
    EXPECT_EQ(rest, "stamp");
}

TEST(CacheReading, AStreamThatIsNotGoodIsLeftAlone) {
    ConstraintIndex index;
    CQuickXPPD reader(&index, kTiger);
    std::istringstream stream(section_file("A:x@1@2@3@"));
    stream.setstate(std::ios::failbit);
    EXPECT_EQ(&(stream >> reader), &stream);
    EXPECT_TRUE(index.empty());
    stream.clear();
    stream >> reader;
    EXPECT_EQ(index.size(), 1U) << "nothing had been read";
}

TEST(CacheReading, AnEmptyReaderReadsNothing) {
    CQuickXPPD nothing;
    CQuickXPPD without_index(nullptr, kTiger);
    std::istringstream stream(section_file("A:x@1@2@3@"));
    stream >> nothing >> without_index;
    std::string line;
    std::getline(stream, line);
    EXPECT_EQ(line, kTiger);
}

// Writing.

void sample(PpdBuilder& ppd) {
    ppd.group("One")
        .option("A")
        .choices({"None", "x", "y"})
        .group("Two")
        .option("B")
        .choices({"None", "v", "w"});
    ppd.option("C").choices({"None", "p"});
    ppd.constraint("A", "x", "B", "v").constraint("A", "", "C", "p").constraint("B", "w", "C", "p");
}

TEST(CacheWriting, ASectionIsItsNameAndItsEntriesInTheIndexsOrder) {
    PpdBuilder ppd;
    sample(ppd);
    ConstraintIndex index;
    compile_constraints(ppd.file(), &index, std::vector<std::string>{"A", "B", "C"});
    std::string data;
    for (const auto& [key, place] : index) {
        data += std::string(key) + "@" + std::to_string(place.groupIndex) + "@" +
                std::to_string(place.optionIndex) + "@" + std::to_string(place.choiceIndex) + "@";
    }
    EXPECT_EQ(written(ppd.file(), {{kTiger, {"A", "B", "C"}}}), kTiger + "\n" + data + "\n");
}

TEST(CacheWriting, TheBytesAreTheSameOnEveryMachine) {
    PpdBuilder ppd;
    sample(ppd);
    // B:v hashes to 2058 and C:p to 2077: buckets 128 and 147 of 193.
    EXPECT_EQ(written(ppd.file(), {{kTiger, {"A", "B", "C"}}}),
              "SpecialPagesPDETiger\nB:v@0@0@1@C:p@0@0@1@C:p@1@0@2@C:p@0@0@2@\n");
}

TEST(CacheWriting, EachSectionHoldsTheConstraintsOfItsKeywordsOnly) {
    PpdBuilder ppd;
    sample(ppd);
    EXPECT_EQ(written(ppd.file(), {{"First", {"A"}}, {"None", {"Z"}}, {"Second", {"B"}}}),
              "First\nB:v@0@0@1@C:p@0@0@1@C:p@0@0@2@\nNone\n\nSecond\nB:v@0@0@1@C:p@1@0@2@\n");
}

TEST(CacheWriting, LeavesTheIndexEmptyAndTakesNothingThatItHeld) {
    PpdBuilder ppd;
    sample(ppd);
    ConstraintIndex scratch;
    scratch.insert("Foreign:z", {9, 9, 9});
    EXPECT_EQ(written(ppd.file(), {{"First", {"A"}}}, std::nullopt, &scratch),
              "First\nB:v@0@0@1@C:p@0@0@1@C:p@0@0@2@\n");
    EXPECT_TRUE(scratch.empty());
}

TEST(CacheWriting, WritesMoreThanTenSections) {
    PpdBuilder ppd;
    sample(ppd);
    std::vector<Section> sections;
    for (int i = 0; i < 12; ++i) {
        sections.push_back({"Section" + std::to_string(i), {"B"}});
    }
    const std::string file = written(ppd.file(), sections);
    EXPECT_THAT(sorted_entries(read_section(file, "Section11")),
                ElementsAre(EntryText("B:v", "0.0.1"), EntryText("C:p", "1.0.2")));
}

TEST(CacheWriting, TheWriterCopiesRecordsUpToTheOneWithoutAList) {
    PpdBuilder ppd;
    sample(ppd);
    const std::string name = "First";
    const std::vector<std::string> keywords{"A"};
    const std::array<x_PDEConstr, 3> records{{{&name, &keywords}, {&name, nullptr}, {&name, &keywords}}};
    ConstraintIndex index;
    CQuickXPPD writer(ppd.file(), &index, records.data(), std::nullopt);
    std::ostringstream stream;
    stream << writer;
    EXPECT_EQ(stream.str(), "First\nB:v@0@0@1@C:p@0@0@1@C:p@0@0@2@\n");
}

TEST(CacheWriting, WithoutSectionsPpdOrIndexThereIsNothingToWrite) {
    PpdBuilder ppd;
    sample(ppd);
    std::ostringstream stream;
    CQuickXPPD nothing;
    stream << nothing;
    CQuickXPPD without_sections(ppd.file(), nullptr, nullptr, std::nullopt);
    stream << without_sections;
    EXPECT_EQ(stream.str(), "");
    EXPECT_EQ(written(nullptr, {{"First", {"A"}}}), "First\n\n");
    const std::string name = "First";
    const std::vector<std::string> keywords{"B"};
    const std::array<x_PDEConstr, 2> records{{{&name, &keywords}, {}}};
    CQuickXPPD without_index(ppd.file(), nullptr, records.data(), std::nullopt);
    stream << without_index;
    EXPECT_EQ(stream.str(), "First\nB:v@0@0@1@C:p@1@0@2@\n");
}

TEST(CacheWriting, NumbersAreNotGroupedWhateverLocaleTheStreamHas) {
    struct Grouping : std::numpunct<char> {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\1"; }
    };
    PpdBuilder ppd;
    ppd.option("A");
    for (int i = 0; i < 1235; ++i) {
        ppd.choice("c" + std::to_string(i));
    }
    ppd.constraint("A", "c1234", "B", "x");
    const std::string name = "S";
    const std::vector<std::string> keywords{"A"};
    const std::array<x_PDEConstr, 2> records{{{&name, &keywords}, {}}};
    ConstraintIndex index;
    CQuickXPPD writer(ppd.file(), &index, records.data(), std::nullopt);
    std::ostringstream stream;
    stream.imbue(std::locale(stream.getloc(), new Grouping));
    stream << writer;
    EXPECT_EQ(stream.str(), "S\nB:x@0@0@1234@\n");
}

TEST(CacheWriting, AnEntryThatTheFileCannotHoldIsLeftOut) {
    PpdBuilder ppd;
    ppd.option("A").choices({"x"}).constraint("A", "x", "B", "a@b").constraint("A", "x", "B", "a\nb");
    ppd.constraint("A", "x", "B", "y");
    EXPECT_EQ(written(ppd.file(), {{"S", {"A"}}}), "S\nB:y@0@0@0@\n");
}

TEST(CacheWriting, ThereIsNoHead) {
    std::ostringstream stream;
    EXPECT_EQ(CQuickXPPD::SetFileHead(stream, nullptr), 0);
    EXPECT_EQ(stream.str(), "");
}

TEST(CacheWriting, CompilingByTheObjectTakesTheKeywordsOfTheSectionAtHand) {
    PpdBuilder ppd;
    sample(ppd);
    const CQuickXPPD outside_of_writing;
    ConstraintIndex index;
    EXPECT_EQ(outside_of_writing.SetXppd(ppd.file(), &index), 0);
    EXPECT_EQ(outside_of_writing.SetXppd(nullptr, &index), 0);
    EXPECT_EQ(outside_of_writing.SetXppd(ppd.file(), nullptr), 0);
    EXPECT_TRUE(index.empty()) << "no section, no keyword";
}

TEST(CacheWriting, TheFormsOfTheObjectAreThoseOfTheIndex) {
    PpdBuilder ppd;
    sample(ppd);
    std::array<ConstraintIndex, 4> own;
    CQuickXPPD::xConst2Hash_O1O2(ppd.file(), &own[0], 0);
    CQuickXPPD::xConst2Hash_O1C1O2(ppd.file(), &own[1], 0);
    CQuickXPPD::xConst2Hash_O1O2C2(ppd.file(), &own[2], 0);
    CQuickXPPD::xConst2Hash_O1C1O2C2(ppd.file(), &own[3], 0);
    std::array<ConstraintIndex, 4> plain;
    xConst2Hash_O1O2(ppd.file(), &plain[0], 0);
    xConst2Hash_O1C1O2(ppd.file(), &plain[1], 0);
    xConst2Hash_O1O2C2(ppd.file(), &plain[2], 0);
    xConst2Hash_O1C1O2C2(ppd.file(), &plain[3], 0);
    const std::array<std::size_t, 4> sizes{4, 2, 2, 1};
    for (std::size_t form = 0; form < own.size(); ++form) {
        EXPECT_EQ(own[form].size(), sizes[form]);
        EXPECT_EQ(ordered_entries(own[form]), ordered_entries(plain[form]));
    }
}

// The stamp.

class CacheStamp : public testing::Test {
  protected:
    std::string stamp_of(std::string_view ppd_text) const {
        return written(nullptr, {}, folder.write("printer.ppd", ppd_text).string());
    }
    test::TemporaryFolder folder;
};

TEST_F(CacheStamp, IsThePieceOfThePpdThatHoldsIt) {
    EXPECT_EQ(stamp_of("*PPD-Adobe: \"4.3\"\r*% Last Edit Date: 2012/08/31\r*FormatVersion: \"4.3\"\r"),
              "*% Last Edit Date: 2012/08/31");
}

TEST_F(CacheStamp, BeginsWithAStrayLineFeedWhenLinesEndInBoth) {
    EXPECT_EQ(stamp_of("*PPD-Adobe: \"4.3\"\r\n*% Last Edit Date: 2012\r\n*FormatVersion: \"4.3\"\r\n"),
              "\n*% Last Edit Date: 2012");
}

TEST_F(CacheStamp, IsTheWholeFileWithoutCarriageReturns) {
    const std::string ppd = "*PPD-Adobe: \"4.3\"\n*% Last Edit Date: 2012\n*FormatVersion: \"4.3\"\n";
    EXPECT_EQ(stamp_of(ppd), ppd);
}

TEST_F(CacheStamp, IsTheFirstOfSeveralWholeAndOfAnyLength) {
    const std::string stamp = "x *% Last Edit Date:" + std::string(1000, 'd');
    EXPECT_EQ(stamp_of("a\r" + stamp + "\r*% Last Edit Date: later\r"), stamp);
}

TEST_F(CacheStamp, MayEndWithTheFile) {
    EXPECT_EQ(stamp_of("a\r*% Last Edit Date: now"), "*% Last Edit Date: now");
}

TEST_F(CacheStamp, APpdWithoutOneEndsTheSearch) {
    EXPECT_EQ(stamp_of("*PPD-Adobe: \"4.3\"\r*% Last Edit\r Date:\r"), "");
    EXPECT_EQ(stamp_of(""), "");
}

TEST_F(CacheStamp, APpdThatDoesNotOpenHasNone) {
    EXPECT_EQ(written(nullptr, {}, (folder.path() / "missing.ppd").string()), "");
    EXPECT_EQ(written(nullptr, {}, folder.path().string()), "");
    EXPECT_EQ(written(nullptr, {}, ""), "");
}

TEST_F(CacheStamp, StandsBehindTheLastSection) {
    PpdBuilder ppd;
    sample(ppd);
    const auto file = folder.write("printer.ppd", "*% Last Edit Date: 2012\r");
    EXPECT_EQ(written(ppd.file(), {{"S", {"Z"}}, {"T", {"Z"}}}, file.string()),
              "S\n\nT\n\n*% Last Edit Date: 2012");
}

// There and back.

TEST(CacheRoundTrip, TheExamplePpdReadsBackAsItWasCompiled) {
    const std::string path = paths::source_dir() + "/tests/data/constraints.ppd";
    const test::OpenPpd ppd = test::open_ppd(path);
    const auto keywords = option_keywords(ppd.get());
    ConstraintIndex compiled;
    compile_constraints(ppd.get(), &compiled, keywords);
    ASSERT_EQ(compiled.size(), 14U);
    const std::string file = written(ppd.get(), {{"Other", {"NVFold"}}, {kTiger, keywords}}, path);
    EXPECT_EQ(sorted_entries(read_section(file)), sorted_entries(compiled));
    EXPECT_EQ(read_section(file, "Other").size(), 1U);
}

RC_GTEST_PROP(CacheRoundTrip, AnyPpdReadsBackAsItWasCompiled, ()) {
    PpdBuilder ppd;
    const auto options = *rc::gen::inRange(1, 6);
    for (int option = 0; option < options; ++option) {
        ppd.group("G" + std::to_string(option % 2)).option("Option" + std::to_string(option));
        const auto choices = *rc::gen::inRange(0, 8);
        for (int choice = 0; choice < choices; ++choice) {
            ppd.choice("c" + std::to_string(choice));
        }
    }
    const auto constraints = *rc::gen::inRange(0, 120);
    const auto option_name = [&] {
        return "Option" + std::to_string(*rc::gen::inRange(0, options + 1));
    };
    const auto choice_name = [&] {
        const int choice = *rc::gen::inRange(-1, 9);
        return choice < 0 ? std::string() : "c" + std::to_string(choice);
    };
    for (int i = 0; i < constraints; ++i) {
        ppd.constraint(option_name(), choice_name(), option_name(), choice_name());
    }
    const auto keywords = option_keywords(ppd.file());
    ConstraintIndex compiled;
    compile_constraints(ppd.file(), &compiled, keywords);
    RC_ASSERT(sorted_entries(read_section(written(ppd.file(), {{kTiger, keywords}}))) ==
              sorted_entries(compiled));
}

// By the PPD's attribute.

class CacheByAttribute : public testing::Test {
  protected:
    ~CacheByAttribute() override {
        platform::set_kernel_release_source(nullptr);
        ResetGestalt_ALT();
    }
    static void set_system(const std::string& kernel_release) {
        platform::set_kernel_release_source([kernel_release] { return std::optional(kernel_release); });
        ResetGestalt_ALT();
    }
    std::int32_t load(const std::string& attribute = "NVXCDFSetting") {
        return GetXPPD(ppd.file(), &index, "SpecialPagesPDE", attribute);
    }
    std::string cache_file(const std::string& bytes) const { return folder.write("cache", bytes).string(); }

    static inline const std::string kBoth =
        "SpecialPagesPDEPanther\nA:panther@1@1@1@\nSpecialPagesPDETiger\nA:tiger@2@2@2@\n";

    test::TemporaryFolder folder;
    PpdBuilder ppd;
    ConstraintIndex index;
};

TEST_F(CacheByAttribute, ACurrentSystemReadsTheTigerSection) {
    ppd.attribute("NVXCDFSetting", "", cache_file(kBoth));
    EXPECT_EQ(load(), 0);
    EXPECT_THAT(ordered_entries(index), ElementsAre(EntryText("A:tiger", "2.2.2")));
}

TEST_F(CacheByAttribute, PantherIsTheSystemWhoseVersionIs0x103WithAnyLastDigit) {
    struct Case {
        const char* kernel;
        std::int32_t version;
        const char* key;
    };
    // Kernel release n belongs to 10.(n - 4).
    const std::vector<Case> cases = {{"6.8.0", 0x1028, "A:tiger"},
                                     {"7.0.0", 0x1030, "A:panther"},
                                     {"7.9.0", 0x1039, "A:panther"},
                                     {"8.0.0", 0x1040, "A:tiger"},
                                     {"13.4.0", 0x1094, "A:tiger"}};
    ppd.attribute("NVXCDFSetting", "", cache_file(kBoth));
    for (const Case& each : cases) {
        set_system(each.kernel);
        ASSERT_EQ(system_version(), each.version) << each.kernel;
        index.clear();
        EXPECT_EQ(load(), 0);
        EXPECT_THAT(test::keys_of(index), ElementsAre(each.key)) << each.kernel;
    }
}

TEST_F(CacheByAttribute, TheAttributeIsFoundByTheBeginningOfItsName) {
    ppd.attribute("Other", "", std::nullopt).attribute("NVXCDFSettingExtended", "", cache_file(kBoth));
    EXPECT_EQ(load("NVXCDF"), 0);
    EXPECT_EQ(index.size(), 1U);
}

TEST_F(CacheByAttribute, NamesAreAsLongAsTheyNeedToBe) {
    const std::string base(100, 'b');
    const std::string attribute(35, 'a');
    ppd.attribute(attribute, "", cache_file(base + "Tiger\nA:x@1@2@3@\n"));
    EXPECT_EQ(GetXPPD(ppd.file(), &index, base, attribute), 0);
    EXPECT_THAT(ordered_entries(index), ElementsAre(EntryText("A:x", "1.2.3")));
}

TEST_F(CacheByAttribute, AMissingFileGives1AndAnEmptyIndex) {
    ppd.attribute("NVXCDFSetting", "", (folder.path() / "missing").string());
    EXPECT_EQ(load(), 1);
    EXPECT_TRUE(index.empty());
}

TEST_F(CacheByAttribute, WhatIsNoPlainFileGives1) {
    ppd.attribute("Folder", "", folder.path().string())
        .attribute("Endless", "", "/dev/zero")
        .attribute("Empty", "", "");
    EXPECT_EQ(load("Folder"), 1);
    EXPECT_EQ(load("Endless"), 1);
    EXPECT_EQ(load("Empty"), 1);
    EXPECT_TRUE(index.empty());
}

TEST_F(CacheByAttribute, AMissingAttributeValuePpdOrIndexGives1) {
    ppd.attribute("NVXCDFSetting", "", std::nullopt).attribute("Good", "", cache_file(kBoth));
    EXPECT_EQ(load("NoSuchAttribute"), 1);
    EXPECT_EQ(load(), 1);
    EXPECT_EQ(GetXPPD(nullptr, &index, "SpecialPagesPDE", "Good"), 1);
    EXPECT_EQ(GetXPPD(ppd.file(), nullptr, "SpecialPagesPDE", "Good"), 1);
    EXPECT_TRUE(index.empty());
}

TEST_F(CacheByAttribute, AFileWithoutTheSectionOrWithAnEmptyOneGives0) {
    ppd.attribute("Without", "", folder.write("without", "SpecialPagesPDETigerX\nA:x@1@1@1@\n").string());
    ppd.attribute("Empty", "", folder.write("empty", "SpecialPagesPDETiger\n\nA:x@1@1@1@\n").string());
    ppd.attribute("Nothing", "", folder.write("nothing", "").string());
    EXPECT_EQ(load("Without"), 0);
    EXPECT_EQ(load("Empty"), 0);
    EXPECT_EQ(load("Nothing"), 0);
    EXPECT_TRUE(index.empty());
}

TEST_F(CacheByAttribute, AStaleFileIsTrusted) {
    ppd.option("A").choices({"x"}).attribute("NVXCDFSetting", "", cache_file(section_file("A:x@7@7@7@")));
    EXPECT_EQ(load(), 0);
    EXPECT_EQ(index.size(), 1U);
    EXPECT_THAT(test::forbidding(ppd.file(), index, "A:x"), IsEmpty());
}

TEST_F(CacheByAttribute, ARelativePathCountsFromTheProcesssFolder) {
    cache_file(kBoth);
    ppd.attribute("NVXCDFSetting", "", "cache");
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const std::int32_t result = load();
    std::filesystem::current_path(before);
    EXPECT_EQ(result, 0);
    EXPECT_EQ(index.size(), 1U);
}

} // namespace
} // namespace specialpages

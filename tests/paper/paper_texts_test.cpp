#include "paper/paper_ppd.h"
#include "paper/paper_texts.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

class JobSettingText : public ::testing::Test {
  protected:
    JobSettingText() { describe_paper(ppd); }
    std::optional<std::string> text() {
        return job_setting_text(ppd.file(), paper_keys(),
                                {&ppd.find("PageSize"), &ppd.find("NVMediaColor"), &ppd.find("MediaType")});
    }
    PpdBuilder ppd;
};

TEST_F(JobSettingText, HasALineForEachPartAndNoneEndsTheLast) {
    ppd.mark("PageSize", "Letter").mark("NVMediaColor", "Blue").mark("MediaType", "Thick");
    EXPECT_EQ(text(), "Paper Size: US Letter\nPaper Color: Light Blue\nPaper Type: Thick 1");
}

TEST_F(JobSettingText, AnUnmarkedColorOrTypeShowsTheChoiceBeforeIt) {
    ppd.mark("PageSize", "Letter").mark("MediaType", "Thick");
    EXPECT_EQ(text(), "Paper Size: US Letter\nPaper Color: US Letter\nPaper Type: Thick 1");
    ppd.mark("NVMediaColor", "Blue").unmark("MediaType");
    EXPECT_EQ(text(), "Paper Size: US Letter\nPaper Color: Light Blue\nPaper Type: Light Blue");
    ppd.unmark("NVMediaColor");
    EXPECT_EQ(text(), "Paper Size: US Letter\nPaper Color: US Letter\nPaper Type: US Letter");
}

TEST_F(JobSettingText, AnUnmarkedSizeHasNoLine) {
    ppd.mark("MediaType", "Thick");
    EXPECT_EQ(text(), "Paper Type: Thick 1") << "nothing is carried on to the color either";
    ppd.unmark("MediaType");
    EXPECT_EQ(text(), "");
}

TEST_F(JobSettingText, NeedsPpdAndAllThreeOptions) {
    const auto keys = paper_keys();
    ppd_option_t* size = &ppd.find("PageSize");
    ppd_option_t* color = &ppd.find("NVMediaColor");
    ppd_option_t* type = &ppd.find("MediaType");
    EXPECT_EQ(job_setting_text(nullptr, keys, {size, color, type}), std::nullopt);
    EXPECT_EQ(job_setting_text(ppd.file(), keys, {nullptr, color, type}), std::nullopt);
    EXPECT_EQ(job_setting_text(ppd.file(), keys, {size, nullptr, type}), std::nullopt);
    EXPECT_EQ(job_setting_text(ppd.file(), keys, {size, color, nullptr}), std::nullopt);
    EXPECT_NE(job_setting_text(ppd.file(), keys, {size, color, type}), std::nullopt);
}

TEST(JobSettingTextOfAPoorPpd, EndsWithoutAMarkOrADefault) {
    PpdBuilder ppd;
    ppd.option("PageSize", "A4").choice("A4").option("NVMediaColor", "Gone").choice("White");
    ppd.option("MediaType", "Plain").choice("Plain");
    const auto text = [&] {
        return job_setting_text(ppd.file(), paper_keys(),
                                {&ppd.find("PageSize"), &ppd.find("NVMediaColor"), &ppd.find("MediaType")});
    };
    EXPECT_EQ(text(), std::nullopt);
    ppd.mark("NVMediaColor", "White");
    EXPECT_EQ(text(), "NVMediaColor: White\nMediaType: White");
}

TEST(PageSettingText, HasALineForEachPartWithLabelAndTitle) {
    EXPECT_EQ(page_setting_text({{{"Size", "A4"}, {"Color", "Blue"}, {"Type", "Thick"}}}),
              "Size: A4\nColor: Blue\nType: Thick\n");
    EXPECT_EQ(page_setting_text({{{"Size", "A4"}, {"Color", std::nullopt}, {std::nullopt, "Thick"}}}),
              "Size: A4\n");
    EXPECT_EQ(page_setting_text({}), "");
    EXPECT_EQ(page_setting_text({{{"Size", ""}, {}, {}}}), "Size: \n") << "an empty title is a title";
}

TEST(ConflictText, PutsTheTextsInAsTheyStand) {
    EXPECT_EQ(format_two_texts("Not with %@: %@", "Type", "Thick"), "Not with Type: Thick");
    EXPECT_EQ(format_two_texts("Not with %@: %@", "%@", "%d%@"), "Not with %@: %d%@");
    EXPECT_EQ(format_two_texts("%@", "Type", "Thick"), "Type");
    EXPECT_EQ(format_two_texts("nothing", "Type", "Thick"), "nothing");
    EXPECT_EQ(format_two_texts("%@%@%@", "a", "b"), "ab%@");
    EXPECT_EQ(format_two_texts("", "a", "b"), "");
}

TEST(ConflictText, UsesThePpdsWordsAndIsEmptyWithoutAConflict) {
    PpdBuilder ppd;
    describe_paper(ppd);
    const ppd_option_t& types = ppd.find("MediaType");
    EXPECT_EQ(conflict_text("Not with %@: %@", {&types, &types.choices[2]}),
              "Not with Paper Type: Tab Stock 1");
    EXPECT_EQ(conflict_text("Not with %@: %@", {}), "");
    EXPECT_EQ(conflict_text("Not with %@: %@", {nullptr, &types.choices[2]}), "");
}

} // namespace
} // namespace specialpages::test

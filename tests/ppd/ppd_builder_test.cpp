#include "ppd/ppd_builder.h"

#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

namespace specialpages::test {
namespace {

TEST(PpdBuilder, LaysOutGroupsOptionsAndChoices) {
    PpdBuilder ppd;
    ppd.group("First", "The first")
        .option("A", "a2", "Option A")
        .choice("a1", "Choice 1")
        .choice("a2")
        .subgroup("Inner")
        .option("I")
        .group("Second")
        .option("B");
    const ppd_file_t* file = ppd.file();
    ASSERT_EQ(file->num_groups, 2);
    EXPECT_STREQ(file->groups[0].name, "First");
    EXPECT_STREQ(file->groups[0].text, "The first");
    ASSERT_EQ(file->groups[0].num_options, 1);
    const ppd_option_t& option = file->groups[0].options[0];
    EXPECT_STREQ(option.keyword, "A");
    EXPECT_STREQ(option.defchoice, "a2");
    EXPECT_STREQ(option.text, "Option A");
    ASSERT_EQ(option.num_choices, 2);
    EXPECT_STREQ(option.choices[0].text, "Choice 1");
    EXPECT_STREQ(option.choices[1].text, "a2");
    EXPECT_EQ(option.choices[1].option, &option);
    ASSERT_EQ(file->groups[0].num_subgroups, 1);
    EXPECT_STREQ(file->groups[0].subgroups[0].options[0].keyword, "I");
    ASSERT_EQ(file->groups[1].num_options, 1);
    EXPECT_STREQ(file->groups[1].options[0].keyword, "B");
    EXPECT_EQ(file->groups[1].options[0].choices, nullptr);
    EXPECT_EQ(file, ppd.file());
}

TEST(PpdBuilder, LaysOutConstraintsAndAttributes) {
    PpdBuilder ppd;
    ppd.constraint("A", "", "B", "b").attribute("N", "s", "v").attribute("M", "", std::nullopt);
    const ppd_file_t* file = ppd.file();
    ASSERT_EQ(file->num_consts, 1);
    EXPECT_STREQ(file->consts[0].option1, "A");
    EXPECT_STREQ(file->consts[0].choice1, "");
    EXPECT_STREQ(file->consts[0].option2, "B");
    EXPECT_STREQ(file->consts[0].choice2, "b");
    ASSERT_EQ(file->num_attrs, 2);
    EXPECT_STREQ(file->attrs[0]->name, "N");
    EXPECT_STREQ(file->attrs[0]->spec, "s");
    EXPECT_STREQ(file->attrs[0]->value, "v");
    EXPECT_EQ(file->attrs[1]->value, nullptr);
    EXPECT_EQ(file->lang_encoding, nullptr);
}

TEST(PpdBuilder, RefusesMistakes) {
    PpdBuilder ppd;
    EXPECT_THROW(ppd.subgroup("S"), std::logic_error);
    EXPECT_THROW(ppd.choice("c"), std::logic_error);
    EXPECT_THROW(ppd.option(std::string(41, 'x')), std::length_error);
    ppd.option("A").choice("a");
    EXPECT_THROW(ppd.mark("B", "b"), std::logic_error);
    EXPECT_THROW(ppd.mark("A", "b"), std::logic_error);
    EXPECT_THROW(ppd.option("Late"), std::logic_error);
    EXPECT_THROW(ppd.attribute("Late", "", ""), std::logic_error);
}

} // namespace
} // namespace specialpages::test

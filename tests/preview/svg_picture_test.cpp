#include "platform/foundation/atomic_file.h"
#include "preview/plan_samples.h"
#include "preview/svg_picture.h"
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <pugixml.hpp>

#include <string>
#include <vector>

namespace specialpages::preview {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

std::string svg_of(const JobGlance& glance) {
    PlanOptions options;
    options.picture = true;
    options.width = 400;
    return svg_picture(strip_plan(glance, options), glance);
}

JobGlance sample() {
    SheetCell odd = test::insert_cell(1, 0, 2);
    odd.paper.look = {0xFFFFFF, false};
    odd.paper.color = "Our Color";
    odd.caption = "2 ×";
    return test::glance_of({test::page_cell(0, 1), odd});
}

TEST(SvgPicture, IsWellFormedAndNamesEachSheet) {
    const std::string svg = svg_of(sample());
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(svg.c_str()));
    const pugi::xml_node root = document.child("svg");
    EXPECT_STREQ(root.attribute("xmlns").value(), "http://www.w3.org/2000/svg");
    EXPECT_STREQ(root.child_value("title"), "Sheets: Summary");
    std::vector<std::string> titles;
    for (const pugi::xml_node group : root.children("g")) {
        titles.emplace_back(group.child_value("title"));
    }
    EXPECT_THAT(titles, ElementsAre("Page 1", "Insert <0> & more"));
}

TEST(SvgPicture, HasEveryTextOfThePlanAsText) {
    const std::string svg = svg_of(sample());
    for (const char* text :
         {">Summary<", ">Setup<", ">1<", ">2 ×<", ">Insert<", ">several sheets<", ">White<", ">Our Color<"}) {
        EXPECT_THAT(svg, HasSubstr(text));
    }
}

TEST(SvgPicture, TheSamePlanGivesTheSameBytes) {
    EXPECT_EQ(svg_of(sample()), svg_of(sample()));
}

TEST(SvgPicture, ControlCharactersDoNotSpoilIt) {
    JobGlance glance = sample();
    glance.summary = "a\x01"
                     "b\nc\x7F";
    glance.cells[0].sentence = "\x1B[31m";
    const std::string svg = svg_of(glance);
    EXPECT_THAT(svg, HasSubstr(">a?b?c?<"));
    EXPECT_THAT(svg, HasSubstr("<title>?[31m</title>"));
    EXPECT_THAT(svg, Not(HasSubstr("\x01")));
}

TEST(SvgPicture, IsAsItWasLookedAt) {
    const auto kept = platform::read_file(paths::source_dir() + "/tests/preview/golden/sample.svg");
    const std::string drawn = svg_of(sample());
    const std::string file = paths::binary_dir() + "/pictures/sample.svg";
    if (kept != drawn) {
        platform::write_file_atomically(file, drawn);
    }
    EXPECT_EQ(kept.value_or("(no such picture)"), drawn) << "drawn: " << file;
}

} // namespace
} // namespace specialpages::preview

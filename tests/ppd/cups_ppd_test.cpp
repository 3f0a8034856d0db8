#include "ppd/cups_ppd.h"
#include "ppd/ppd_builder.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using test::PpdBuilder;

TEST(CupsPpd, FindsOptionsAndChoicesWithoutRegardToCase) {
    PpdBuilder ppd;
    ppd.option("Duplex", "None").choices({"None", "DuplexTumble"});
    ppd_option_t* duplex = cups_find_option(ppd.file(), "DUPLEX");
    ASSERT_EQ(duplex, &ppd.find("Duplex"));
    EXPECT_EQ(cups_find_choice(duplex, "duplextumble"), &duplex->choices[1]);
    EXPECT_EQ(cups_find_choice(duplex, "Tumble"), nullptr);
    EXPECT_EQ(cups_find_option(ppd.file(), "Dup"), nullptr);
}

TEST(CupsPpd, FindsWhatIsMarkedAndNothingElse) {
    PpdBuilder ppd;
    ppd.option("Duplex", "None").choices({"None", "DuplexTumble"}).option("MediaType").choices({"Plain"});
    EXPECT_EQ(cups_find_marked_choice(ppd.file(), "Duplex"), nullptr);
    ppd.mark("Duplex", "DuplexTumble").mark("MediaType", "Plain");
    EXPECT_EQ(cups_find_marked_choice(ppd.file(), "duplex"), &ppd.find("Duplex").choices[1]);
    ppd.mark("Duplex", "None");
    EXPECT_EQ(cups_find_marked_choice(ppd.file(), "Duplex"), &ppd.find("Duplex").choices[0]);
    ppd.unmark("Duplex");
    EXPECT_EQ(cups_find_marked_choice(ppd.file(), "Duplex"), nullptr);
    EXPECT_EQ(cups_find_marked_choice(ppd.file(), "MediaType"), &ppd.find("MediaType").choices[0]);
}

TEST(CupsPpd, NullArgumentsFindNothing) {
    PpdBuilder ppd;
    ppd.option("Duplex").choices({"None"}).mark("Duplex", "None");
    EXPECT_EQ(cups_find_option(nullptr, "Duplex"), nullptr);
    EXPECT_EQ(cups_find_option(ppd.file(), nullptr), nullptr);
    EXPECT_EQ(cups_find_choice(nullptr, "None"), nullptr);
    EXPECT_EQ(cups_find_choice(&ppd.find("Duplex"), nullptr), nullptr);
    EXPECT_EQ(cups_find_marked_choice(nullptr, "Duplex"), nullptr);
    EXPECT_EQ(cups_find_marked_choice(ppd.file(), nullptr), nullptr);
}

TEST(CupsPpd, DoesNotLookIntoSubGroups) {
    PpdBuilder ppd;
    ppd.group("General").option("Duplex").subgroup("Inner").option("Fold");
    EXPECT_NE(cups_find_option(ppd.file(), "Duplex"), nullptr);
    EXPECT_EQ(cups_find_option(ppd.file(), "Fold"), nullptr);
}

} // namespace
} // namespace specialpages

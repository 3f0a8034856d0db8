#include "controls/text_format.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

TEST(FilledFormat, PutsTheTextsIntoThePlacesInOrder) {
    EXPECT_EQ(filled_format("Width (%@ - %@):", {"100.0", "330.0"}), "Width (100.0 - 330.0):");
    EXPECT_EQ(filled_format("%@%@", {"a", "b"}), "ab");
    EXPECT_EQ(filled_format("", {"a"}), "");
}

TEST(FilledFormat, TakesNumberedPlacesInAnyOrder) {
    EXPECT_EQ(filled_format("%2$@ bis %1$@", {"100", "330"}), "330 bis 100");
    EXPECT_EQ(filled_format("%1$@ %1$@", {"x", "y"}), "x x");
}

TEST(FilledFormat, LeavesAPlaceWithoutATextEmpty) {
    EXPECT_EQ(filled_format("%@-%@-%@", {"a"}), "a--");
    EXPECT_EQ(filled_format("[%9$@]", {"a"}), "[]");
}

TEST(FilledFormat, DoesNotLookIntoWhatWasPutIn) {
    EXPECT_EQ(filled_format("%@ %@", {"%@", "b"}), "%@ b");
}

TEST(FilledFormat, EveryOtherPercentSignStands) {
    EXPECT_EQ(filled_format("100%% %d %", {"a"}), "100% %d %");
    EXPECT_EQ(filled_format("%0$@ %1$", {"a"}), "%0$@ %1$");
    EXPECT_EQ(filled_format("%%@", {"a"}), "%@");
    EXPECT_EQ(filled_format("no translation", {"a", "b"}), "no translation");
}

} // namespace
} // namespace specialpages

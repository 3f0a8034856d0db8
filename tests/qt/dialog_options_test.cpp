#include "qt/dialog_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPageRanges>
#include <QPrinter>

namespace specialpages::qt {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

/// "name=value" of each.
std::vector<std::string> options_of(const QPrinter& printer) {
    std::vector<std::string> texts;
    for (const host::JobOption& option : dialog_options(printer)) {
        texts.push_back(option.name + "=" + option.value);
    }
    return texts;
}

TEST(DialogOptions, AreMediaAndSidesWhereNothingElseIsChosen) {
    QPrinter printer;
    printer.setPageSize(QPageSize(QPageSize::A4));
    EXPECT_THAT(options_of(printer), ElementsAre("media=A4", "sides=one-sided"));
}

TEST(DialogOptions, SayWhatTheUserChose) {
    QPrinter printer;
    printer.setPageSize(QPageSize(QPageSize::A3));
    printer.setCopyCount(3);
    printer.setCollateCopies(false);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setColorMode(QPrinter::GrayScale);
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 5);
    EXPECT_THAT(options_of(printer),
                ElementsAre("media=A3", "sides=one-sided", "copies=3",
                            "multiple-document-handling=separate-documents-uncollated-copies",
                            "page-ranges=2-5", "orientation-requested=4", "print-color-mode=monochrome"));
}

TEST(DialogOptions, SeveralRangesStayAsTheyAre) {
    QPrinter printer;
    printer.setPrintRange(QPrinter::PageRange);
    printer.setPageRanges(QPageRanges::fromString(QStringLiteral("1,3-4,9")));
    EXPECT_THAT(options_of(printer), Contains("page-ranges=1,3-4,9"));
}

TEST(DialogOptions, PagesAreAllUnlessARangeIsChosen) {
    QPrinter printer;
    printer.setFromTo(2, 5);
    printer.setPrintRange(QPrinter::AllPages);
    for (const host::JobOption& option : dialog_options(printer)) {
        EXPECT_NE(option.name, "page-ranges");
    }
}

} // namespace
} // namespace specialpages::qt

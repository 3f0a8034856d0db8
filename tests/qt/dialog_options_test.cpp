#include "qt/dialog_options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPageRanges>
#include <QPrinter>

namespace specialpages::qt {
namespace {

using host::JobOption;
using ::testing::Contains;
using ::testing::ElementsAre;

TEST(DialogOptions, AreMediaAndSidesWhereNothingElseIsChosen) {
    QPrinter printer;
    printer.setPageSize(QPageSize(QPageSize::A4));
    EXPECT_THAT(dialog_options(printer),
                ElementsAre(JobOption{"media", "A4"}, JobOption{"sides", "one-sided"}));
}

TEST(DialogOptions, SayWhatTheUserChose) {
    QPrinter printer;
    printer.setPageSize(QPageSize(QPageSize::A3));
    printer.setDuplex(QPrinter::DuplexShortSide);
    printer.setCopyCount(3);
    printer.setCollateCopies(false);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setColorMode(QPrinter::GrayScale);
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 5);
    EXPECT_THAT(dialog_options(printer),
                ElementsAre(JobOption{"media", "A3"}, JobOption{"sides", "two-sided-short-edge"},
                            JobOption{"copies", "3"},
                            JobOption{"multiple-document-handling", "separate-documents-uncollated-copies"},
                            JobOption{"page-ranges", "2-5"}, JobOption{"orientation-requested", "4"},
                            JobOption{"print-color-mode", "monochrome"}));
}

TEST(DialogOptions, SeveralRangesStayAsTheyAre) {
    QPrinter printer;
    printer.setPrintRange(QPrinter::PageRange);
    printer.setPageRanges(QPageRanges::fromString(QStringLiteral("1,3-4,9")));
    EXPECT_THAT(dialog_options(printer), Contains(JobOption{"page-ranges", "1,3-4,9"}));
}

TEST(DialogOptions, PagesAreAllUnlessARangeIsChosen) {
    QPrinter printer;
    printer.setFromTo(2, 5);
    printer.setPrintRange(QPrinter::AllPages);
    for (const JobOption& option : dialog_options(printer)) {
        EXPECT_NE(option.name, "page-ranges");
    }
}

} // namespace
} // namespace specialpages::qt

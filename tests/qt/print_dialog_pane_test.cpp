// What the print dialog tells the pane whose tab it shows, and what becomes of the tab.
#include "qt/NextDialog.h"
#include "qt/PrintDialog.h"
#include "qt/noted_pane.h"
#include "qt/qt_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QComboBox>
#include <QPrinter>
#include <QScreen>
#include <QTabWidget>
#include <QTimer>
#include <optional>

namespace specialpages::qt::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A dialog with the printers "desk" and "prod" and the entry for a file, which is chosen.
class PrintDialogPane : public QtPaneTest {
  protected:
    PrintDialogPane() {
        printer_.setOutputFileName(QString::fromStdString((folder_.path() / "out.pdf").string()));
        dialog_.emplace(printer_);
    }
    void show() {
        dialog_->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&*dialog_));
        auto& list = *dialog_->findChild<QComboBox*>(QStringLiteral("printers"));
        list.insertItem(0, QStringLiteral("desk"));
        list.insertItem(1, QStringLiteral("prod"));
        settle();
    }
    /// Follows the printers, all of which but "desk" have the pane.
    void follow() {
        dialog_->followPrinters([this](const std::string& printer) -> std::unique_ptr<PrinterTab> {
            asked_.push_back(printer);
            if (printer == "desk") {
                return nullptr;
            }
            auto pane = PrinterPane::open(host::PpdFile(kSamplePpd), noted_module(notes_), {}, face_);
            return std::make_unique<PrinterTab>(WindowTexts(), std::move(pane), "test", false, "");
        });
    }
    QTabWidget& tabs() { return *dialog_->findChild<QTabWidget*>(); }

    host::testing::ScopedVariable server_{"CUPS_SERVER", (folder_.path() / "no-server").c_str()};
    PaneNotes notes_;
    std::vector<std::string> asked_;
    QPrinter printer_;
    std::optional<PrintDialog> dialog_;
};

TEST_F(PrintDialogPane, IsToldWhenItComesAndGoes) {
    follow();
    EXPECT_THAT(asked_, IsEmpty()) << "the dialog is not shown";
    show();
    EXPECT_THAT(notes_.calls, ElementsAre("willShow"));
    dialog_->choosePrinter("desk");
    EXPECT_THAT(notes_.calls, ElementsAre("willShow", "shouldHide"));
    dialog_->choosePrinter("");
    EXPECT_THAT(notes_.calls, ElementsAre("willShow", "shouldHide", "willShow"));
    EXPECT_THAT(asked_, ElementsAre("", "desk")) << "each printer once";
    dialog_.reset();
    EXPECT_THAT(notes_.calls, ElementsAre("willShow", "shouldHide", "willShow", "shouldHide"));
}

TEST_F(PrintDialogPane, IsHiddenBeforeTheNextOneIsShown) {
    follow();
    show();
    notes_.calls.clear();
    dialog_->choosePrinter("prod");
    EXPECT_THAT(notes_.calls, ElementsAre("shouldHide", "willShow"));
    notes_.calls.clear();
    follow();
    EXPECT_THAT(notes_.calls, IsEmpty()) << "it is in front already";
}

TEST_F(PrintDialogPane, ComesAtOnceToADialogThatIsShown) {
    show();
    EXPECT_EQ(dialog_->tab(), nullptr);
    follow();
    ASSERT_NE(dialog_->tab(), nullptr);
    EXPECT_EQ(tabs().currentWidget(), dialog_->tab());
    EXPECT_THAT(notes_.calls, ElementsAre("willShow"));
}

TEST_F(PrintDialogPane, OfTheFileIsThereWhereThatIsChosenBeforeTheDialogIsShown) {
    EXPECT_TRUE(dialog_->choosePrinter(""));
    EXPECT_FALSE(dialog_->choosePrinter("prod")) << "which is not there yet";
    follow();
    show();
    EXPECT_EQ(dialog_->chosenPrinter(), "");
    EXPECT_NE(dialog_->pane(), nullptr);
}

TEST_F(PrintDialogPane, IsNoPartOfTheDialogWhileAnotherPrinterIsChosen) {
    follow();
    show();
    PrinterTab* const first = dialog_->tab();
    ASSERT_NE(first, nullptr);
    EXPECT_TRUE(dialog_->isAncestorOf(first));
    const int tabsWithOne = tabs().count();
    dialog_->choosePrinter("prod");
    EXPECT_EQ(tabs().count(), tabsWithOne);
    EXPECT_EQ(tabs().indexOf(first), -1);
    EXPECT_NE(dialog_->tab(), first);
    EXPECT_FALSE(dialog_->isAncestorOf(first));
    EXPECT_FALSE(first->isVisible());
}

TEST_F(PrintDialogPane, LeavesTabsAndSizeAsTheUserHasThem) {
    follow();
    show();
    EXPECT_TRUE(tabs().isVisible());
    dialog_->resize(dialog_->size() + QSize(7, -11));
    settle();
    const QSize size = dialog_->size();
    dialog_->choosePrinter("prod");
    settle();
    EXPECT_TRUE(tabs().isVisible());
    EXPECT_EQ(dialog_->size(), size);
}

TEST_F(PrintDialogPane, OpensTheDialogAtASizeInWhichItsRowsAreWhole) {
    follow();
    show();
    const QSize comfortable = QSize(660, 740).expandedTo(dialog_->minimumSizeHint());
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog_->size() == comfortable; }))
        << dialog_->width() << "x" << dialog_->height();
}

TEST_F(PrintDialogPane, OpensTheDialogWithRoomForItsFrameInEachCorner) {
    struct Corner {
        bool right;
        bool bottom;
    };
    for (const Corner corner : {Corner{false, false}, Corner{true, true}}) {
        dialog_.emplace(printer_);
        show();
        const QRect screen = dialog_->screen()->availableGeometry();
        dialog_->move(corner.right ? screen.right() - 100 : screen.left(),
                      corner.bottom ? screen.bottom() - 100 : screen.top());
        settle();
        follow();
        QRect place(QPoint(), QSize(660, 740).expandedTo(dialog_->minimumSizeHint()));
        if (corner.right) {
            place.moveBottomRight(screen.bottomRight() - QPoint(4, 8));
        } else {
            place.moveTopLeft(screen.topLeft() + QPoint(4, 24));
        }
        EXPECT_TRUE(QTest::qWaitFor([&] { return dialog_->geometry() == place; }))
            << dialog_->x() << "," << dialog_->y() << " " << dialog_->width() << "x" << dialog_->height();
    }
}

TEST_F(PrintDialogPane, ThatRefusesStopsThePrintingAndTheDialogStays) {
    follow();
    show();
    int printed = 0;
    dialog_->setPrintHandler([&](const PrintRequest&) { ++printed; });
    notes_.calls.clear();
    notes_.prints = false;
    {
        const NextDialog box;
        dialog_->accept();
        EXPECT_EQ(box.text(), "Special Pages stopped the printing.");
    }
    EXPECT_EQ(printed, 0);
    EXPECT_TRUE(dialog_->isVisible());
    EXPECT_THAT(notes_.calls, ElementsAre("shouldPrint"));
    notes_.prints = true;
    dialog_->accept();
    EXPECT_EQ(printed, 1);
    EXPECT_FALSE(dialog_->isVisible());
    EXPECT_EQ(dialog_->result(), QDialog::Accepted);
}

TEST_F(PrintDialogPane, IsAskedWhenTheDialogsChoicesAreMarkedInItsPpd) {
    printer_.setPageSize(QPageSize(QPageSize::A3));
    dialog_.emplace(printer_);
    follow();
    show();
    dialog_->choosePrinter("prod");
    host::PpdFile& ppd = dialog_->pane()->host().ppd();
    ASSERT_EQ(ppd.page_size()->width, 595) << "the PPD's own default is A4";
    notes_.onPrint = [&] {
        EXPECT_EQ(ppd.page_size()->width, 842);
    };
    host::JobOptions options;
    dialog_->setPrintHandler([&](const PrintRequest& request) { options = request.options; });
    notes_.calls.clear();
    dialog_->accept();
    EXPECT_THAT(notes_.calls, ElementsAre("shouldPrint"));
    EXPECT_EQ(ppd.page_size()->width, 842);
    EXPECT_EQ(options.at(0), (host::JobOption{"media", "A3"}));
}

TEST_F(PrintDialogPane, IsNotAskedWhenAnotherPrinterPrintsOrNothingIs) {
    follow();
    show();
    dialog_->choosePrinter("desk");
    notes_.calls.clear();
    const platform::PrintSettings* settings = nullptr;
    std::string printer;
    dialog_->setPrintHandler([&](const PrintRequest& request) {
        settings = request.settings;
        printer = request.printer;
    });
    dialog_->accept();
    EXPECT_EQ(dialog_->result(), QDialog::Accepted);
    EXPECT_EQ(printer, "desk");
    EXPECT_EQ(settings, nullptr);
    dialog_->show();
    dialog_->choosePrinter("");
    notes_.calls.clear();
    dialog_->reject();
    EXPECT_THAT(notes_.calls, IsEmpty());
}

TEST_F(PrintDialogPane, ASentenceOfTheDialogIsShownAsItIsWritten) {
    follow();
    show();
    dialog_->setPrintHandler([](const PrintRequest&) {
        throw host::HostError(host::ErrorCode::other, "<b>out</b>.json", "no such folder");
    });
    bool plain = false;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            plain = box->textFormat() == Qt::PlainText;
        }
    });
    look.start(0);
    const NextDialog box;
    dialog_->accept();
    EXPECT_EQ(box.text(), "<b>out</b>.json: no such folder");
    EXPECT_TRUE(plain);
}

} // namespace
} // namespace specialpages::qt::testing

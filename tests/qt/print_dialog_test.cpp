// The print dialog with the pane as a tab, and the program around it.
#include "qt/NextDialog.h"
#include "qt/PrintDialog.h"
#include "qt/TableWidget.h"
#include "qt/document_pages.h"
#include "qt/qt_fixture.h"
#include "qt/run_print.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <QAbstractFileIconProvider>
#include <QDialogButtonBox>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QScreen>
#include <QScrollBar>
#include <QTabWidget>
#include <QTest>
#include <QTimer>
#include <sstream>

namespace specialpages::qt::testing {
namespace {

using ::testing::HasSubstr;

/// A PDF of that many empty pages.
std::string pdf_of(int pages) {
    std::string bytes = "%PDF-1.4\n";
    std::vector<std::size_t> places;
    const auto object = [&](const std::string& text) {
        places.push_back(bytes.size());
        bytes += std::to_string(places.size()) + " 0 obj\n" + text + "\nendobj\n";
    };
    object("<</Type/Catalog/Pages 2 0 R>>");
    std::string kids;
    for (int i = 0; i < pages; ++i) {
        kids += std::to_string(3 + i) + " 0 R ";
    }
    object("<</Type/Pages/Kids[" + kids + "]/Count " + std::to_string(pages) + ">>");
    for (int i = 0; i < pages; ++i) {
        object("<</Type/Page/Parent 2 0 R/MediaBox[0 0 595 842]>>");
    }
    const std::size_t table = bytes.size();
    bytes += "xref\n0 " + std::to_string(places.size() + 1) + "\n0000000000 65535 f \n";
    for (const std::size_t place : places) {
        const std::string number = std::to_string(place);
        bytes += std::string(10 - number.size(), '0') + number + " 00000 n \n";
    }
    bytes += "trailer\n<</Size " + std::to_string(places.size() + 1) + "/Root 1 0 R>>\nstartxref\n" +
             std::to_string(table) + "\n%%EOF\n";
    return bytes;
}

class PrintDialogTest : public QtPaneTest {
  protected:
    std::unique_ptr<PrinterPane> handbook() {
        PrinterPaneOptions options;
        options.ppd = kSamplePpd;
        options.settings = host::read_settings_file(kHandbook);
        return PrinterPane::open(options, face_);
    }
    /// Shows the dialog with the pane for its one printer.
    void show(PrintDialog& dialog) {
        dialog.followPrinters([this](const std::string&) {
            return std::make_unique<PrinterTab>(WindowTexts(), handbook(), "handbook", false, "");
        });
        dialog.show();
        settle();
    }
    static QTabWidget& tabs(PrintDialog& dialog) { return *dialog.findChild<QTabWidget*>(); }
    QPrinter printer_;
};

TEST_F(PrintDialogTest, ThePaneIsTheTabThatIsSeen) {
    PrintDialog dialog(printer_);
    show(dialog);
    EXPECT_EQ(tabs(dialog).currentWidget(), dialog.tab());
    EXPECT_EQ(tabs(dialog).tabText(tabs(dialog).currentIndex()), "Special Pages");
    EXPECT_TRUE(dialog.pane()->widget().isVisible());
    auto* const table = dialog.findChild<QTableView*>("SPSummaryInfoTableView");
    ASSERT_NE(table, nullptr);
    EXPECT_TRUE(table->isVisible());
    EXPECT_EQ(table->model()->rowCount(), 7);
}

TEST_F(PrintDialogTest, AllOfTheDialogIsOnTheScreenAndTheRowsAreWhole) {
    PrintDialog dialog(printer_);
    show(dialog);
    // A window manager gives a window its place and size when it comes to it.
    const QRect screen = dialog.screen()->availableGeometry();
    EXPECT_TRUE(QTest::qWaitFor([&] { return screen.contains(dialog.geometry()); }))
        << dialog.geometry().bottom() << " of " << screen.bottom();
    const auto* const table = dialog.findChild<QTableView*>("SPSummaryInfoTableView");
    ASSERT_NE(table, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !table->horizontalScrollBar()->isVisible(); }));
}

TEST_F(PrintDialogTest, ItsTabsHaveNoFrameAndNoFileIsLookedUpForItsSymbol) {
    PrintDialog dialog(printer_);
    EXPECT_TRUE(dialog.findChild<QTabWidget*>()->documentMode());
    const auto* const files = dialog.findChild<QFileSystemModel*>();
    ASSERT_NE(files, nullptr) << "the name of the file to print into is completed";
    // Without a theme no symbol is found in any case; but neither is the type of a file looked up.
    EXPECT_EQ(files->iconProvider()->type(QFileInfo(QStringLiteral("/"))), "");
    EXPECT_TRUE(files->iconProvider()->icon(QFileInfo(QStringLiteral("/"))).isNull());
}

TEST_F(PrintDialogTest, PrintWritesTheSettings) {
    printer_.setOutputFileName(QString::fromStdString((folder_.path() / "out.pdf").string()));
    PrintDialog dialog(printer_);
    show(dialog);
    std::string count;
    dialog.setPrintHandler([&](const PrintRequest& request) {
        const auto* const value =
            request.settings->value("com.norvalen.nb.rtz.printsettings.NPIFCommandTicketCount");
        count = value == nullptr ? "none" : std::get<std::string>(*value);
    });
    dialog.accept();
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(count, "7");
}

TEST_F(PrintDialogTest, PrintIsVetoedWhileADialogOfThePaneIsOpen) {
    PrintDialog dialog(printer_);
    show(dialog);
    int printed = 0;
    dialog.setPrintHandler([&](const PrintRequest&) { ++printed; });
    std::string said;
    face_.setRun([&](const std::function<bool()>&) {
        {
            NextDialog box;
            dialog.accept();
            said = box.text();
        }
        face_.giveUp();
    });
    click(*dialog.findChild<QWidget*>("SPAddInsertsButton"));
    EXPECT_THAT(said, HasSubstr("is open"));
    EXPECT_EQ(printed, 0);
    EXPECT_NE(dialog.result(), QDialog::Accepted);
}

TEST_F(PrintDialogTest, AHandlerThatFailsKeepsTheDialog) {
    printer_.setOutputFileName(QString::fromStdString((folder_.path() / "out.pdf").string()));
    PrintDialog dialog(printer_);
    show(dialog);
    dialog.setPrintHandler([](const PrintRequest&) {
        throw host::HostError(host::ErrorCode::other, "/nowhere/out.json", "no such folder");
    });
    NextDialog box;
    dialog.accept();
    EXPECT_EQ(box.text(), "/nowhere/out.json: no such folder");
    EXPECT_TRUE(dialog.isVisible());
}

/// Runs the program; `look` sees its dialog, which is then cancelled unless `look` ended it.
int run_program(const PrintOptions& options, std::ostream& out, std::ostream& err,
                const std::function<void(PrintDialog&)>& look) {
    bool seen = false;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        auto* const dialog = dynamic_cast<PrintDialog*>(QApplication::activeModalWidget());
        if (dialog != nullptr && dialog->isVisible() && !std::exchange(seen, true)) {
            look(*dialog);
            if (dialog->isVisible()) {
                dialog->reject();
            }
        }
    });
    timer.start(0);
    const int exit = run_print(options, cups_services(), out, err);
    EXPECT_TRUE(seen || exit == 2) << "no dialog came";
    return exit;
}

TEST_F(PrintDialogTest, TheProgramPrintsTheSettingsFile) {
    PrintOptions options;
    options.document = folder_.write("handbook.pdf", pdf_of(24)).string();
    options.ppd = kSamplePpd;
    options.settings = kHandbook;
    options.out = (folder_.path() / "settings.json").string();
    options.language = "en";
    std::ostringstream out;
    std::ostringstream err;
    const int exit = run_program(options, out, err, [&](PrintDialog& dialog) {
        EXPECT_EQ(dialog.minPage(), 1);
        EXPECT_EQ(dialog.maxPage(), 24);
        dialog.findChild<QLineEdit*>("filename")
            ->setText(QString::fromStdString((folder_.path() / "o.pdf").string()));
        dialog.accept();
    });
    EXPECT_EQ(exit, 0) << err.str();
    const auto settings = host::read_settings_file(options.out);
    EXPECT_EQ(
        std::get<std::string>(*settings.value("com.norvalen.nb.rtz.printsettings.NPIFCommandTicketCount")),
        "7");
    EXPECT_EQ(document_pages(folder_.path() / "o.pdf"), 24);
}

TEST_F(PrintDialogTest, CancellingWritesNothing) {
    PrintOptions options;
    options.ppd = kSamplePpd;
    options.out = (folder_.path() / "settings.json").string();
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(run_program(options, out, err, [](PrintDialog&) {}), 1);
    EXPECT_EQ(out.str(), "");
    EXPECT_FALSE(std::filesystem::exists(options.out));
}

TEST_F(PrintDialogTest, APpdThatCannotBeOpenedIsASentenceInTheDialog) {
    PrintOptions options;
    options.ppd = folder_.write("broken.ppd", "no PPD at all\n").string();
    std::ostringstream out;
    std::ostringstream err;
    std::string sentence;
    EXPECT_EQ(run_program(options, out, err,
                          [&](PrintDialog& dialog) {
                              ASSERT_NE(dialog.tab(), nullptr);
                              sentence = dialog.tab()->findChild<QLabel*>()->text().toStdString();
                          }),
              1);
    EXPECT_THAT(sentence, HasSubstr("broken.ppd"));
}

TEST_F(PrintDialogTest, ADocumentThatIsNoPdfIsAnInputError) {
    PrintOptions options;
    options.document = folder_.write("text.pdf", "hello").string();
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(run_print(options, cups_services(), out, err), 2);
    EXPECT_THAT(err.str(), HasSubstr("text.pdf: expected a PDF document"));
}

TEST_F(PrintDialogTest, CountsThePagesOfADocument) {
    EXPECT_EQ(document_pages(folder_.write("one.pdf", pdf_of(1))), 1);
    EXPECT_EQ(document_pages(folder_.write("many.pdf", pdf_of(321))), 321);
    EXPECT_THROW(document_pages(folder_.path() / "none.pdf"), host::HostError);
}

TEST_F(PrintDialogTest, ArgumentsAreReadAndMistakesAreUsageErrors) {
    std::ostringstream out;
    std::ostringstream err;
    int exit = -1;
    const auto options = parse_print_options({"--ppd", "a.ppd", "doc.pdf", "--lang", "de"}, out, err, exit);
    ASSERT_TRUE(options);
    EXPECT_EQ(options->ppd, "a.ppd");
    EXPECT_EQ(options->document, "doc.pdf");
    EXPECT_EQ(options->language, "de");
    EXPECT_EQ(options->out, "-");
    EXPECT_FALSE(parse_print_options({"--nonsense"}, out, err, exit));
    EXPECT_EQ(exit, 2);
    EXPECT_THAT(err.str(), HasSubstr("nonsense"));
    EXPECT_FALSE(parse_print_options({"--help"}, out, err, exit));
    EXPECT_EQ(exit, 0);
    EXPECT_THAT(out.str(), HasSubstr("--settings"));
}

} // namespace
} // namespace specialpages::qt::testing

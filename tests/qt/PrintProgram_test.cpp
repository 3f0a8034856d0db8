// The print dialog with its printers: whose pane is shown, what is printed, what is remembered.
#include "host/settings_file.h"
#include "qt/PrintProgram.h"
#include "qt/print_fixture.h"
#include "testing/PrivateCupsd.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QCheckBox>

namespace specialpages::qt::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;
using Pages = std::vector<std::string>;

constexpr const char* kCount = "com.norvalen.nb.rtz.printsettings.NPIFCommandTicketCount";

class PrintersTest : public PrintProgramTest {
  protected:
    PrintersTest() {
        makeQueue("prod", sample("production"));
        makeQueue("plain", plainPpd());
    }
};

TEST_F(PrintProgramTest, WithoutAServerThereIsTheEntryForAFileAndNoTab) {
    start();
    EXPECT_TRUE(dialog().printers().empty());
    EXPECT_EQ(dialog().chosenPrinter(), "");
    EXPECT_EQ(dialog().tab(), nullptr);
    EXPECT_THAT(titles(), Not(Contains("Special Pages")));
}

TEST_F(PrintProgramTest, APpdWithoutAQueueHasItsPaneInFront) {
    PrintOptions options;
    options.ppd = sample("production");
    start(options);
    ASSERT_NE(dialog().pane(), nullptr);
    EXPECT_EQ(frontTitle(), "Special Pages");
    EXPECT_TRUE(pane().widget().isVisible());
    EXPECT_EQ(pane().host().ppd().name(), sample("production"));
}

TEST_F(PrintProgramTest, APpdThatCannotBeOpenedIsASentenceInTheDialog) {
    PrintOptions options;
    options.ppd = folder_.write("broken.ppd", "no PPD").string();
    start(options);
    ASSERT_NE(dialog().tab(), nullptr);
    EXPECT_EQ(dialog().pane(), nullptr);
    EXPECT_EQ(frontTitle(), "Special Pages");
    EXPECT_THAT(sentences(), HasSubstr("broken.ppd"));
    printIntoFile(folder_.path() / "copy.pdf");
    pressPrint();
    EXPECT_EQ(dialog().result(), QDialog::Accepted);
}

TEST_F(PrintProgramTest, APpdWithoutThePaneHasNoTab) {
    PrintOptions options;
    options.ppd = plainPpd();
    start(options);
    EXPECT_EQ(dialog().tab(), nullptr);
}

TEST_F(PrintProgramTest, AQueueThatIsNotThereIsToldBeforeTheDialogComes) {
    PrintOptions options;
    options.printer = "missing";
    const auto error = host::testing::error_of([&] { start(options); });
    EXPECT_EQ(error.code(), host::ErrorCode::printer);
    EXPECT_EQ(std::string(error.what()), "missing: the print system has no such queue");
}

TEST_F(PrintersTest, TheTabFollowsTheChosenPrinter) {
    start();
    EXPECT_EQ(dialog().printers(), (std::vector<std::string>{"plain", "prod"}));
    EXPECT_EQ(dialog().tab(), nullptr);
    ASSERT_TRUE(dialog().choosePrinter("prod"));
    EXPECT_EQ(dialog().chosenPrinter(), "prod");
    EXPECT_EQ(frontTitle(), "Special Pages");
    ASSERT_TRUE(dialog().choosePrinter("plain"));
    EXPECT_EQ(dialog().tab(), nullptr);
    EXPECT_THAT(titles(), Not(Contains("Special Pages")));
    ASSERT_TRUE(dialog().choosePrinter(""));
    EXPECT_EQ(dialog().tab(), nullptr);
    EXPECT_FALSE(dialog().choosePrinter("missing"));
    EXPECT_FALSE(dialog().choosePrinter("Print to File (PDF)"));
}

TEST_F(PrintersTest, WhatWasDeclaredIsThereWhenThePrinterIsChosenAgain) {
    makeQueue("other", sample("production"));
    start();
    dialog().choosePrinter("prod");
    declare("3,7");
    EXPECT_EQ(shownPages(), (Pages{"3", "7"}));
    dialog().choosePrinter("other");
    EXPECT_EQ(shownPages(), Pages());
    declare("12");
    dialog().choosePrinter("plain");
    dialog().choosePrinter("prod");
    EXPECT_EQ(shownPages(), (Pages{"3", "7"}));
    declare("5");
    EXPECT_EQ(shownPages(), (Pages{"3", "5", "7"}));
    dialog().choosePrinter("other");
    EXPECT_EQ(shownPages(), Pages{"12"});
    EXPECT_EQ(asked_["prod"], 1);
    EXPECT_EQ(asked_["other"], 1);
}

TEST_F(PrintersTest, TheTabThatTheUserLooksAtStaysInFront) {
    makeQueue("other", sample("production"));
    start();
    dialog().choosePrinter("prod");
    tabs().setCurrentIndex(0);
    dialog().choosePrinter("other");
    EXPECT_NE(frontTitle(), "Special Pages");
    EXPECT_THAT(titles(), Contains("Special Pages"));
}

TEST_F(PrintersTest, AQueueWhosePpdCannotBeReadSaysWhy) {
    makeQueue("broken", folder_.write("broken.ppd", "no PPD").string());
    start();
    dialog().choosePrinter("broken");
    ASSERT_NE(dialog().tab(), nullptr);
    EXPECT_EQ(dialog().pane(), nullptr);
    EXPECT_THAT(sentences(), HasSubstr("broken.ppd"));
    dialog().choosePrinter("prod");
    EXPECT_NE(dialog().pane(), nullptr);
}

TEST_F(PrintersTest, PrintSubmitsTheDocumentWithThePanesSettings) {
    PrintOptions options;
    options.document = make_pdf(folder_.path() / "handbook.pdf", 3).string();
    start(options);
    EXPECT_EQ(dialog().maxPage(), 3);
    dialog().choosePrinter("prod");
    declare("3,7");
    pressPrint();
    EXPECT_EQ(dialog().result(), QDialog::Accepted);
    EXPECT_FALSE(dialog().isVisible());
    ASSERT_EQ(jobs_.size(), 1U);
    EXPECT_EQ(jobs_[0].queue, "prod");
    EXPECT_EQ(jobs_[0].document, options.document);
    ASSERT_NE(jobs_[0].settings.value(kCount), nullptr);
    EXPECT_EQ(*jobs_[0].settings.value(kCount), platform::SettingsValue("2"));
    EXPECT_THAT(jobs_[0].queueOptions, Contains(host::JobOption{"sides", "one-sided"}));
    EXPECT_EQ(err_.str(), "special-pages-print: the job is prod-1\n");
    const auto written = host::read_settings_file(folder_.path() / "out.json");
    EXPECT_EQ(written.entries().size(), jobs_[0].settings.entries().size());
}

TEST_F(PrintersTest, ARefusedJobIsAMessageAndEverythingStays) {
    PrintOptions options;
    options.document = make_pdf(folder_.path() / "handbook.pdf", 3).string();
    start(options);
    dialog().choosePrinter("prod");
    declare("3,7");
    refusal_ = "the queue takes no jobs";
    {
        const NextDialog box;
        pressPrint();
        EXPECT_EQ(box.text(), "prod: the queue takes no jobs");
    }
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(shownPages(), (Pages{"3", "7"}));
    EXPECT_TRUE(jobs_.empty());
    refusal_.reset();
    pressPrint();
    EXPECT_FALSE(dialog().isVisible());
    ASSERT_EQ(jobs_.size(), 1U);
    EXPECT_EQ(*jobs_[0].settings.value(kCount), platform::SettingsValue("2"));
}

TEST_F(PrintersTest, APrinterWithoutAPaneGetsThePlainDocument) {
    PrintOptions options;
    options.document = make_pdf(folder_.path() / "handbook.pdf", 1).string();
    start(options);
    dialog().choosePrinter("plain");
    pressPrint();
    ASSERT_EQ(jobs_.size(), 1U);
    EXPECT_EQ(jobs_[0].queue, "plain");
    EXPECT_TRUE(jobs_[0].settings.entries().empty());
    EXPECT_FALSE(fs::exists(folder_.path() / "out.json"));
}

TEST_F(PrintersTest, IntoAFileGoesTheDocumentAndNoJob) {
    PrintOptions options;
    options.document = make_pdf(folder_.path() / "handbook.pdf", 3).string();
    start(options);
    printIntoFile(folder_.path() / "copy.pdf");
    pressPrint();
    EXPECT_TRUE(jobs_.empty());
    EXPECT_EQ(document_pages(folder_.path() / "copy.pdf"), 3);
}

TEST_F(PrintersTest, SettingsThatCannotBeWrittenStopThePrinting) {
    PrintOptions options;
    options.document = make_pdf(folder_.path() / "handbook.pdf", 1).string();
    options.out = (folder_.path() / "handbook.pdf" / "out.json").string();
    start(options);
    dialog().choosePrinter("prod");
    const NextDialog box;
    pressPrint();
    EXPECT_THAT(box.text(), HasSubstr("out.json"));
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_TRUE(jobs_.empty());
}

TEST_F(PrintersTest, SettingsToAStreamAreWrittenOnceAfterTheJobIsTaken) {
    PrintOptions options;
    options.document = make_pdf(folder_.path() / "handbook.pdf", 1).string();
    PrintProgram program(options, services(), out_, err_);
    program.dialog().show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&program.dialog()));
    program.dialog().findChild<QComboBox*>(QStringLiteral("printers"))->insertItem(0, QStringLiteral("prod"));
    program.dialog().choosePrinter("prod");
    refusal_ = "the queue takes no jobs";
    {
        const NextDialog box;
        program.dialog().accept();
    }
    EXPECT_EQ(out_.str(), "");
    refusal_.reset();
    program.dialog().accept();
    EXPECT_EQ(host::parse_settings(out_.str(), host::SettingsFormat::json, "out").entries().size(),
              jobs_.at(0).settings.entries().size());
}

TEST_F(PrintersTest, NothingIsRememberedUnlessTheUserAsksForIt) {
    start();
    dialog().choosePrinter("prod");
    declare("3");
    EXPECT_FALSE(dialog().tab()->rememberBox()->isChecked());
    pressPrint();
    EXPECT_FALSE(fs::exists(folder_.path() / "state"));
}

TEST_F(PrintersTest, SettingsAreRememberedForThePrinterAloneAndRestored) {
    makeQueue("other", sample("production"));
    start();
    dialog().choosePrinter("prod");
    declare("3,7");
    pressRemember();
    EXPECT_TRUE(dialog().tab()->rememberBox()->isChecked());
    EXPECT_FALSE(fs::exists(folder_.path() / "state"));
    pressPrint();

    start();
    dialog().choosePrinter("prod");
    EXPECT_EQ(shownPages(), (Pages{"3", "7"}));
    EXPECT_TRUE(dialog().tab()->rememberBox()->isChecked());
    dialog().choosePrinter("other");
    EXPECT_EQ(shownPages(), Pages());
    EXPECT_FALSE(dialog().tab()->rememberBox()->isChecked());

    dialog().choosePrinter("prod");
    pressRemember();
    pressPrint();
    start();
    dialog().choosePrinter("prod");
    EXPECT_EQ(shownPages(), Pages());
    EXPECT_FALSE(dialog().tab()->rememberBox()->isChecked());
}

TEST_F(PrintersTest, ACancelledDialogRemembersNothing) {
    start();
    dialog().choosePrinter("prod");
    declare("3");
    pressRemember();
    dialog().reject();
    EXPECT_FALSE(fs::exists(folder_.path() / "state"));
}

TEST_F(PrintersTest, RememberedSettingsThatCannotBeReadAreToldOfAndLeftAlone) {
    const fs::path kept = folder_.write("state/special-pages/printers/prod.json", "{ damaged");
    start();
    dialog().choosePrinter("prod");
    EXPECT_EQ(shownPages(), Pages());
    EXPECT_THAT(sentences(), HasSubstr("The settings remembered for this printer cannot be read"));
    EXPECT_THAT(sentences(), HasSubstr("prod.json"));
    EXPECT_FALSE(dialog().tab()->rememberBox()->isEnabled());
    pressPrint();
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(host::testing::read_bytes(kept), "{ damaged");
}

TEST_F(PrintersTest, SettingsThatCannotBeRememberedAreToldAfterTheJob) {
    PrintOptions options;
    options.document = make_pdf(folder_.path() / "handbook.pdf", 1).string();
    start(options);
    dialog().choosePrinter("prod");
    pressRemember();
    folder_.write("state/special-pages", ""); // where the directory would be
    const NextDialog box;
    pressPrint();
    EXPECT_THAT(box.text(), HasSubstr("The job is printed, but the settings could not be remembered:"));
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(jobs_.size(), 1U);
}

TEST_F(PrintersTest, GivenSettingsHavePrecedenceForTheFirstPaneAlone) {
    makeQueue("other", sample("production"));
    PrintOptions options;
    options.settings = paths::source_dir() + "/examples/settings/three-records.json";
    start(options);
    dialog().choosePrinter("prod");
    EXPECT_EQ(shownPages().size(), 3U);
    dialog().choosePrinter("other");
    EXPECT_EQ(shownPages(), Pages());
}

TEST_F(PrintersTest, TheCheckBoxSpeaksTheLanguageOfThePane) {
    PrintOptions options;
    options.language = "de";
    start(options);
    dialog().choosePrinter("prod");
    EXPECT_EQ(plain_label(dialog().tab()->rememberBox()->text()).toStdString(),
              "Einstellungen für diesen Drucker merken");
}

TEST_F(PrintProgramTest, PrintsThroughARealPrintServer) {
    ASSERT_TRUE(test::has_cupsd()) << "no cupsd: scripts/setup tests installs it";
    const test::PrivateCupsd server;
    PrintOptions options;
    options.document = make_pdf(folder_.path() / "handbook.pdf", 2).string();
    options.printer = "prod";
    options.out = (folder_.path() / "out.json").string();
    program_ = std::make_unique<PrintProgram>(options, cups_services(), out_, err_);
    dialog().show();
    EXPECT_EQ(dialog().printers(), std::vector<std::string>{"prod"});
    EXPECT_EQ(dialog().chosenPrinter(), "prod");
    declare("1");
    dialog().choosePrinter("");
    EXPECT_EQ(dialog().tab(), nullptr);
    dialog().choosePrinter("prod");
    EXPECT_EQ(shownPages(), Pages{"1"});
    pressPrint();
    EXPECT_FALSE(dialog().isVisible());
    EXPECT_EQ(err_.str(), "special-pages-print: the job is prod-1\n");
    ASSERT_TRUE(server.waitFor("job-1.options"));
    ASSERT_TRUE(test::eventually([&] { return server.options(1).contains(kCount); }));
    EXPECT_EQ(server.options(1).at(kCount), "1");
    EXPECT_EQ(server.options(1).at("sides"), "one-sided");
}

TEST_F(PrintProgramTest, APpdWithoutAQueueIsChosenBesideRealQueues) {
    ASSERT_TRUE(test::has_cupsd()) << "no cupsd: scripts/setup tests installs it";
    const test::PrivateCupsd server;
    PrintOptions options;
    options.ppd = sample("desk");
    program_ = std::make_unique<PrintProgram>(options, cups_services(), out_, err_);
    dialog().show();
    EXPECT_EQ(dialog().chosenPrinter(), "");
    EXPECT_EQ(pane().host().ppd().name(), sample("desk"));
    dialog().choosePrinter("prod");
    EXPECT_EQ(pane().host().ppd().name(), "the PPD of prod");
}

TEST_F(PrintProgramTest, AStoppedServerIsAMessageAndTheDialogStays) {
    ASSERT_TRUE(test::has_cupsd()) << "no cupsd: scripts/setup tests installs it";
    test::PrivateCupsd server;
    PrintOptions options;
    options.document = make_pdf(folder_.path() / "handbook.pdf", 2).string();
    options.printer = "prod";
    options.out = (folder_.path() / "out.json").string();
    program_ = std::make_unique<PrintProgram>(options, cups_services(), out_, err_);
    dialog().show();
    declare("1");
    server.stop(SIGTERM);
    const NextDialog box;
    pressPrint();
    EXPECT_THAT(box.text(), HasSubstr("no print server answers here"));
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_EQ(shownPages(), Pages{"1"});
}

} // namespace
} // namespace specialpages::qt::testing

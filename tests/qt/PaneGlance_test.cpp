#include "host/host_fixtures.h"
#include "host/settings_file.h"
#include "platform/toolkit/Button.h"
#include "qt/PaneGlance.h"
#include "qt/PrinterPane.h"
#include "qt/QtFace.h"
#include "qt/strip_application.h"
#include "testing/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace specialpages::qt {
namespace {

using ::testing::ElementsAre;

class PaneStrip : public ::testing::Test {
  protected:
    PaneStrip() {
        testing::need_application();
        face = std::make_unique<QtFace>();
        PrinterPaneOptions options;
        options.ppd = paths::source_dir() + "/examples/ppd/production.ppd";
        options.settings = host::read_settings_file(paths::source_dir() + "/examples/settings/handbook.json");
        options.bundle = paths::bundle_dir();
        pane = PrinterPane::open(options, *face);
        pane->widget().activate();
        pane->widget().resize(600, 450);
        pane->widget().show();
        pane->glance()->setPages(24);
        QCoreApplication::processEvents();
    }

    SheetStrip& strip() { return pane->glance()->strip(); }
    platform::TableView& table() { return *PaneGlance::tableBelow(*pane->host().panel()->panelView()); }
    std::vector<std::string> special() {
        std::vector<std::string> sentences;
        for (const preview::SheetCell& cell : strip().glance().cells) {
            if (cell.row) {
                sentences.push_back(std::to_string(*cell.row) + " " + cell.sentence);
            }
        }
        return sentences;
    }

    host::testing::TemporaryFolder folder;
    host::testing::ScopedVariable configuration{"XDG_CONFIG_HOME", folder.path().c_str()};
    std::unique_ptr<QtFace> face;
    std::unique_ptr<PrinterPane> pane;
};

TEST_F(PaneStrip, ShowsTheSheetsOfTheTablesRows) {
    EXPECT_THAT(special(), ElementsAre("0 Front cover, page 1 on side 1, A4, Blue, Thick 1",
                                       "1 Insert after page 3, 1 sheet, 210.0 x 148.0 mm, White, Plain",
                                       "2 Exception, pages 5 and 6, 2-sided, long edge, A3, White, Plain",
                                       "2 Exception, page 7, 2-sided, long edge, A3, White, Plain",
                                       "3 Insert after page 12, 1 sheet, A4 Cover, White, Tab Stock 1",
                                       "4 Insert after page 12, 3 sheets, A4 Cover, White, Tab Stock 1",
                                       "5 Insert after page 20, 1 sheet, Interposer (Tray 8)",
                                       "6 Back cover, page 24 on side 1, A4, Blue, Thick 1"));
}

TEST_F(PaneStrip, StandsBelowThePaneInItsTab) {
    EXPECT_EQ(pane->glance()->parentWidget(), &pane->widget());
    EXPECT_GE(pane->glance()->geometry().top(), pane->widget().nib().root().geometry().bottom());
    EXPECT_LE(pane->widget().minimumSizeHint().width(), 600);
    EXPECT_LE(pane->widget().minimumSizeHint().height(), 450);
}

TEST_F(PaneStrip, FollowsTheTablesSelection) {
    table().userSelects({2});
    EXPECT_EQ(strip().selectedRows(), Rows{2});
    table().userSelects({1, 3});
    EXPECT_EQ(strip().selectedRows(), (Rows{1, 3}));
}

TEST_F(PaneStrip, TheTableFollowsTheStrip) {
    const auto cells = preview::cells_of_rows(strip().glance(), {4});
    ASSERT_EQ(cells.size(), 1U);
    strip().goTo(*cells.begin());
    EXPECT_EQ(table().selectedRowIndexes(), Rows{4});
    strip().goTo(1); // page 2
    EXPECT_EQ(table().selectedRowIndexes(), Rows{});
}

TEST_F(PaneStrip, ACoverTakesTheOtherOneAlongAsInTheTable) {
    strip().goTo(0);
    EXPECT_EQ(table().selectedRowIndexes(), (Rows{0, 6}));
    EXPECT_EQ(strip().selectedRows(), (Rows{0, 6}));
}

TEST_F(PaneStrip, FollowsWhatThePaneDoesAndHasNothingSaved) {
    const auto before = pane->host().settings().entries().size();
    table().userSelects({3});
    constexpr std::int32_t kDownTag = 110;
    auto* const down = dynamic_cast<platform::Button*>(pane->host().window().viewWithTag(kDownTag));
    ASSERT_NE(down, nullptr);
    down->click();
    QCoreApplication::processEvents();
    EXPECT_EQ(special().at(4), "3 Insert after page 12, 3 sheets, A4 Cover, White, Tab Stock 1");
    EXPECT_EQ(special().at(5), "4 Insert after page 12, 1 sheet, A4 Cover, White, Tab Stock 1");
    EXPECT_EQ(strip().selectedRows(), table().selectedRowIndexes());
    EXPECT_EQ(pane->host().settings().entries().size(), before);
    EXPECT_EQ(*std::get_if<std::string>(
                  pane->host().settings().value("com.norvalen.nb.rtz.printsettings.NPIFCommandTicket_3")),
              "1,12,0,1,29,0,36,false,210.0,297.0,1");
}

TEST_F(PaneStrip, FollowsTheDocument) {
    pane->glance()->setPages(4);
    EXPECT_THAT(strip().glance().notes.size(), 4U);
    pane->glance()->setPages(std::nullopt);
    EXPECT_EQ(strip().glance().summary, "Number of pages not known");
}

TEST_F(PaneStrip, FollowsTheMarkedSidesWhenItIsToldTo) {
    pane->host().mark("Duplex", "DuplexNoTumble");
    pane->glance()->refresh();
    EXPECT_EQ(strip().glance().cells.at(1).sentence, "Pages 2 and 3, 2-sided, long edge, A4, White, Plain");
}

TEST_F(PaneStrip, AViewWithoutATableHasNone) {
    platform::View view;
    view.addSubview(std::make_shared<platform::View>());
    EXPECT_EQ(PaneGlance::tableBelow(view), nullptr);
}

} // namespace
} // namespace specialpages::qt

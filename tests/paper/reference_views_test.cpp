#include "paper/SPJobSettingScrollViewCtrlEMF.h"
#include "paper/SPPageSettingScrollViewCtrlEMF.h"
#include "paper/covers_fixture.h"

#include <gtest/gtest.h>

namespace specialpages::test {
namespace {

class JobView : public ::testing::Test {
  protected:
    JobView() {
        describe_paper(ppd);
        control.CreateControl(&view, 213, &kViewIniData, paper_keys());
    }
    PpdBuilder ppd;
    platform::TextField view{platform::ViewKind::scrollText};
    SPJobSettingScrollViewCtrlEMF control;
};

TEST_F(JobView, ShowsTheJobsPaper) {
    ppd.mark("PageSize", "A4").mark("NVMediaColor", "Blue").mark("MediaType", "Thick");
    ASSERT_TRUE(control.InitializeCtrl(nullptr, ppd.file()));
    EXPECT_EQ(view.tag(), 213);
    EXPECT_EQ(view.shownText(), "") << "not before its value is asked for";
    EXPECT_EQ(control.jobSetting(), "Paper Size: A4\nPaper Color: Light Blue\nPaper Type: Thick 1");
    ASSERT_TRUE(control.SetControlValueToUI());
    EXPECT_EQ(view.shownText(), "Paper Size: A4\nPaper Color: Light Blue\nPaper Type: Thick 1");
    ppd.mark("PageSize", "Letter");
    ASSERT_TRUE(control.SetControlValueToUI());
    EXPECT_EQ(view.shownText(), "Paper Size: US Letter\nPaper Color: Light Blue\nPaper Type: Thick 1");
}

TEST_F(JobView, IsEmptyWithoutPpdOrOptions) {
    ASSERT_TRUE(control.InitializeCtrl(nullptr, nullptr));
    EXPECT_FALSE(control.getJobInfomationFromPPD());
    view.setStringValue("before");
    ASSERT_TRUE(control.SetControlValueToUI());
    EXPECT_EQ(view.shownText(), "");
    PpdBuilder poor;
    poor.option("PageSize", "A4").choices({"A4"});
    ASSERT_TRUE(control.InitializeCtrl(nullptr, poor.file()));
    EXPECT_FALSE(control.getJobInfomationFromPPD());
}

TEST_F(JobView, AnotherPpdForgetsTheText) {
    ppd.mark("PageSize", "A4");
    ASSERT_TRUE(control.InitializeCtrl(nullptr, ppd.file()));
    ASSERT_NE(control.jobSetting(), "");
    ASSERT_TRUE(control.InitializeCtrl(nullptr, nullptr));
    EXPECT_EQ(control.jobSetting(), "");
}

TEST_F(JobView, NeedsAView) {
    SPJobSettingScrollViewCtrlEMF without;
    without.CreateControl(nullptr, 213, nullptr, paper_keys());
    ASSERT_TRUE(without.InitializeCtrl(nullptr, ppd.file()));
    EXPECT_FALSE(without.SetControlValueToUI());
}

class PageView : public PaperMenuTest {
  protected:
    void open_view() {
        open(menu);
        control.CreateControl(&view, 313, &kViewIniData, paper_keys(), &menu);
        pane.RunTimeAddNewControl(&control);
        ASSERT_TRUE(control.InitializeCtrl(bundle.get(), ppd.file()));
    }
    std::string text() {
        control.Update();
        return view.shownText();
    }
    SPSelectPaperListCtrlEMF menu;
    platform::TextField view{platform::ViewKind::scrollText};
    SPPageSettingScrollViewCtrlEMF control;
};

TEST_F(PageView, ShowsThePaperOfItsMenu) {
    open_view();
    EXPECT_EQ(text(), "Paper Size: A4\nPaper Color: White\nPaper Type: Plain\n");
    ASSERT_TRUE(pick({kSize, 4}));
    EXPECT_EQ(text(), "Paper Size: Custom…\nPaper Color: White\nPaper Type: Plain\n");
    ASSERT_TRUE(pick({kColor, 0}));
    EXPECT_EQ(text(), "Paper Size: Custom…\nPaper Type: Plain\n");
}

TEST_F(PageView, OfTheInterposerHasOneLine) {
    open_view();
    ASSERT_TRUE(pick({5}));
    EXPECT_EQ(text(), "Tray 8\n");
}

TEST_F(PageView, UsesTheLocalisedNameOfAnInterposerWithoutOne) {
    PpdBuilder plain;
    describe_paper(plain);
    open_view();
    ASSERT_TRUE(control.InitializeCtrl(bundle.get(), plain.file()));
    menu.setInterPoser(true);
    EXPECT_EQ(text(), "Interposer\n");
    pane.setBundle(nullptr);
    EXPECT_EQ(text(), "not found\n");
}

TEST_F(PageView, SaysThatNothingIsChanged) {
    open_view();
    ASSERT_TRUE(pick({1}));
    EXPECT_EQ(text(), "No change: the paper stays as it is.");
    pane.setBundle(nullptr);
    EXPECT_EQ(text(), "not found");
}

TEST_F(PageView, WithoutLabelsHasNoLines) {
    open_view();
    ASSERT_TRUE(control.InitializeCtrl(bundle.get(), nullptr));
    EXPECT_EQ(text(), "No change: the paper stays as it is.");
}

TEST_F(PageView, AsksToBeDrawnAndToleratesMissingPieces) {
    open_view();
    int drawn = 0;
    view.addObserver([&](platform::View&, platform::ViewChange change) {
        drawn += change == platform::ViewChange::display ? 1 : 0;
    });
    EXPECT_TRUE(control.getPageInfomation());
    EXPECT_TRUE(control.getPageInfomation());
    EXPECT_EQ(drawn, 2);
    SPPageSettingScrollViewCtrlEMF without;
    without.CreateControl(&view, 313, &kViewIniData, paper_keys(), nullptr);
    EXPECT_FALSE(without.getPageInfomation());
    without.CreateControl(nullptr, 313, &kViewIniData, paper_keys(), &menu);
    EXPECT_FALSE(without.getPageInfomation());
}

class CoverViews : public CoversTest {};

TEST_F(CoverViews, ShowWhatTheCoverOptionHas) {
    open();
    const std::string paper = "Paper Size: A4\nPaper Color: White\nPaper Type: Plain\n";
    struct Row {
        CoverOption option;
        std::string front;
        std::string back;
    };
    for (const Row& row : {Row{CoverOption::frontOnly, paper, ""}, Row{CoverOption::none, "", ""},
                           Row{CoverOption::backOnly, "", paper}, Row{CoverOption::same, paper, paper},
                           Row{CoverOption::different, paper, paper}}) {
        front.text.setStringValue("before");
        back.text.setStringValue("before");
        ASSERT_TRUE(choose_covers(row.option));
        EXPECT_EQ(front.text.shownText(), row.front) << static_cast<int>(row.option);
        EXPECT_EQ(back.text.shownText(), row.back) << static_cast<int>(row.option);
    }
}

TEST_F(CoverViews, AnUnknownCoverOptionLeavesThemAlone) {
    open();
    front.text.setStringValue("before");
    optionView.addItemWithTitle("a sixth");
    for (const std::int64_t position : {std::int64_t{5}, std::int64_t{-1}}) {
        optionView.selectItemAtIndex(position);
        front.view.Update();
        EXPECT_EQ(front.text.shownText(), "before") << position;
    }
    pane.options = nullptr;
    front.view.Update();
    EXPECT_EQ(front.text.shownText(), "before");
}

TEST_F(CoverViews, AViewThatIsNeitherSideStaysAlone) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    front.text.setTag(999);
    front.text.setStringValue("before");
    front.view.Update();
    EXPECT_EQ(front.text.shownText(), "before");
}

TEST_F(CoverViews, FollowThePaperMenu) {
    open();
    ASSERT_TRUE(choose_covers(CoverOption::different));
    ASSERT_TRUE(back.pick({kSize, 1}));
    EXPECT_EQ(back.text.shownText(), "Paper Size: A3\nPaper Color: White\nPaper Type: Plain\n");
    ASSERT_TRUE(front.pick({5}));
    EXPECT_EQ(front.text.shownText(), "Tray 8\n");
    EXPECT_EQ(back.text.shownText(), "Paper Size: A3\nPaper Color: White\nPaper Type: Plain\n");
}

} // namespace
} // namespace specialpages::test

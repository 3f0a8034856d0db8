#include "controls/SPHelpButtonEMF.h"
#include "controls/control_fixtures.h"
#include "platform/services/help_viewer.h"
#include "ppd/ppd_builder.h"
#include "ppd/ppd_keywords.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>

namespace specialpages {
namespace {

using test::LocalizedBundle;
using test::NumberView;
using test::PluginBundle;
using test::PpdBuilder;
using testing::ElementsAre;
using testing::IsEmpty;

/// The pages that the help viewer is asked for while it lives, as "book|page|anchor".
class HelpPages {
  public:
    explicit HelpPages(platform::OSStatus answer = platform::noErr)
        : before_(platform::setHelpOpener(
              [this, answer](std::string_view book, std::string_view page, std::string_view anchor) {
                  pages_.push_back(std::string(book) + "|" + std::string(page) + "|" + std::string(anchor));
                  return answer;
              })) {}
    ~HelpPages() { platform::setHelpOpener(before_); }
    HelpPages(const HelpPages&) = delete;
    HelpPages& operator=(const HelpPages&) = delete;
    const std::vector<std::string>& all() const { return pages_; }

  private:
    std::vector<std::string> pages_;
    platform::HelpOpener before_;
};

class HelpButton : public testing::Test {
  protected:
    /// The page's name after initialising with a PPD whose product attribute has that value.
    std::string nameFor(std::string_view page, std::optional<std::string_view> value) {
        PpdBuilder ppd;
        ppd.attribute(kNXProductTypeSpecialPages, "", value);
        SPHelpButtonEMF button;
        button.CreateControl_withHelpName(&view_, page);
        EXPECT_TRUE(button.InitializeCtrl(nullptr, ppd.file()));
        return button.helpFileName();
    }

    NumberView view_{1};
};

TEST_F(HelpButton, TakesTheResourceOfTheDevice) {
    EXPECT_EQ(nameFor("SpecialPagesCover.htm", "Default01-abc"), "SpecialPagesCover_abc.htm");
}

TEST_F(HelpButton, KnowsSevenPages) {
    EXPECT_EQ(SpecialPagesHelpString.size(), 7U);
    EXPECT_EQ(nameFor("SpecialPagesMain.htm", "n-x"), "SpecialPagesMain_x.htm");
    EXPECT_EQ(nameFor("SpecialPagesCover.htm", "n-x"), "SpecialPagesCover_x.htm");
    EXPECT_EQ(nameFor("SpecialPagesInsert.htm", "n-x"), "SpecialPagesInsert_x.htm");
    EXPECT_EQ(nameFor("SpecialPagesException.htm", "n-x"), "SpecialPagesException_x.htm");
    EXPECT_EQ(nameFor("SpecialPagesAdv.htm", "n-x"), "SpecialPagesAdv_x.htm");
    EXPECT_EQ(nameFor("SpecialPagesCustom.htm", "n-x"), "SpecialPagesCustom_x.htm");
    EXPECT_EQ(nameFor("SpecialPagesNumInSequence.htm", "n-x"), "SpecialPagesNumInSequence_x.htm");
}

TEST_F(HelpButton, KeepsANameOutsideTheTable) {
    EXPECT_EQ(nameFor("Another.htm", "Default01-abc"), "Another.htm");
    EXPECT_EQ(nameFor("specialpagescover.htm", "Default01-abc"), "specialpagescover.htm");
    EXPECT_EQ(nameFor("", "Default01-abc"), "");
}

TEST_F(HelpButton, KeepsItsDefaultWithoutTheProductAttribute) {
    PpdBuilder ppd;
    ppd.attribute("NVXCDFSetting", "", "1");
    SPHelpButtonEMF button;
    button.CreateControl_withHelpName(&view_, "SpecialPagesMain.htm");
    EXPECT_TRUE(button.InitializeCtrl(nullptr, ppd.file()));
    EXPECT_EQ(button.helpFileName(), "SpecialPagesMain.htm");
    EXPECT_TRUE(button.InitializeCtrl(nullptr, nullptr)) << "nor without a PPD";
    EXPECT_EQ(button.helpFileName(), "SpecialPagesMain.htm");
}

TEST_F(HelpButton, KeepsItsDefaultWhenTheAttributeNamesNoResource) {
    EXPECT_EQ(nameFor("SpecialPagesMain.htm", std::nullopt), "SpecialPagesMain.htm");
    EXPECT_EQ(nameFor("SpecialPagesMain.htm", ""), "SpecialPagesMain.htm");
    EXPECT_EQ(nameFor("SpecialPagesMain.htm", "Default01"), "SpecialPagesMain.htm");
    EXPECT_EQ(nameFor("SpecialPagesMain.htm", "Default01-"), "SpecialPagesMain_.htm")
        << "an empty resource is one";
}

TEST_F(HelpButton, CutsALongName) {
    const std::string resource(254, 'r');
    const std::string name = nameFor("SpecialPagesMain.htm", "n-" + resource);
    EXPECT_EQ(name, ("SpecialPagesMain_" + resource).substr(0, 255));
}

TEST_F(HelpButton, KeepsTheFirstNameAndFollowsTheDeviceOnce) {
    PpdBuilder first;
    first.attribute(kNXProductTypeSpecialPages, "", "n-one");
    PpdBuilder second;
    second.attribute(kNXProductTypeSpecialPages, "", "n-two");
    SPHelpButtonEMF button;
    button.CreateControl_withHelpName(&view_, "SpecialPagesMain.htm");
    button.CreateControl_withHelpName(&view_, "SpecialPagesCover.htm");
    EXPECT_EQ(button.helpFileName(), "SpecialPagesMain.htm");
    button.InitializeCtrl(nullptr, first.file());
    EXPECT_EQ(button.helpFileName(), "SpecialPagesMain_one.htm");
    button.InitializeCtrl(nullptr, second.file());
    EXPECT_EQ(button.helpFileName(), "SpecialPagesMain_one.htm") << "the name is in the table no more";
}

TEST_F(HelpButton, KeepsTheTitleOfTheNib) {
    LocalizedBundle bundle;
    view_.setTitle("?");
    SPHelpButtonEMF button;
    button.CreateControl_withHelpName(&view_, "SpecialPagesMain.htm");
    button.InitializeCtrl(bundle.get(), nullptr);
    EXPECT_EQ(view_.title(), "?");
}

TEST_F(HelpButton, OpensItsPageInThePanesHelpBook) {
    LocalizedBundle bundle{{"Help Viewer Title for Special Pages", "Special Pages Help"}};
    const PluginBundle plugin(bundle.shared());
    const HelpPages pages;
    SPHelpButtonEMF button;
    button.CreateControl_withHelpName(&view_, "SpecialPagesCover.htm");
    button.setTargetandAction();
    EXPECT_TRUE(view_.click());
    EXPECT_THAT(pages.all(), ElementsAre("Special Pages Help|SpecialPagesCover.htm|"));
}

TEST_F(HelpButton, IgnoresWhatTheHelpViewerAnswers) {
    LocalizedBundle bundle;
    const PluginBundle plugin(bundle.shared());
    const HelpPages pages(platform::fnfErr);
    SPHelpButtonEMF button;
    button.CreateControl_withHelpName(&view_, "SpecialPagesCover.htm");
    EXPECT_TRUE(button.UIEventHandler());
    EXPECT_THAT(pages.all(), ElementsAre("no translation|SpecialPagesCover.htm|"));
}

TEST_F(HelpButton, WithoutANameOrABundleOpensNothing) {
    LocalizedBundle bundle;
    const HelpPages pages;
    SPHelpButtonEMF nameless;
    nameless.CreateControl_withHelpName(&view_, "");
    SPHelpButtonEMF named;
    named.CreateControl_withHelpName(&view_, "SpecialPagesCover.htm");
    {
        const PluginBundle plugin(bundle.shared());
        EXPECT_TRUE(nameless.UIEventHandler());
    }
    const PluginBundle none(nullptr);
    EXPECT_TRUE(named.UIEventHandler());
    EXPECT_THAT(pages.all(), IsEmpty());
}

} // namespace
} // namespace specialpages

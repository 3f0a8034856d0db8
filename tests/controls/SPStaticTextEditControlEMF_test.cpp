#include "controls/SPStaticTextEditControlEMF.h"
#include "controls/custom_size_range.h"
#include "controls/text_fixtures.h"
#include "ppd/ppd_builder.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using platform::TextField;
using platform::ViewKind;
using test::LocalizedBundle;
using test::PpdBuilder;
using test::TestPanel;

class RangeText : public testing::Test {
  protected:
    RangeText() {
        ppd_.attribute("ParamCustomPageSize", "Width", "1 points 283 936")
            .attribute("ParamCustomPageSize", "Height", "2 points 419 1384");
        panel_.SetCurrentPPD(ppd_.file());
        view_.setStringValue("of the nib");
    }
    /// What the title shows then.
    std::string title(std::int32_t longMeasure, std::int32_t SizeFlag, bool answer = true,
                      const char* key = "Range Text") {
        control_.CreateControl(&view_, nullptr, nullptr, {}, key, longMeasure, SizeFlag);
        control_.SetParenetPanel(&panel_);
        EXPECT_EQ(control_.InitializeCtrl(bundle_.get(), nullptr), answer);
        return view_.stringValue();
    }

    PpdBuilder ppd_;
    LocalizedBundle bundle_{{"Range Text", "Width (%@ - %@):"}};
    TextField view_{ViewKind::staticText};
    TestPanel panel_;
    SPStaticTextEditControlEMF control_;
};

TEST_F(RangeText, ShowsInchesOnePointInsideThePpdsLimits) {
    EXPECT_EQ(title(kLongMeasureInches, kCustomSizeWidth), "Width (3.94 - 12.99):");
    EXPECT_EQ(title(kLongMeasureInches, kCustomSizeLength), "Width (5.83 - 19.21):");
}

TEST_F(RangeText, ShowsThePpdsLimitsInWholeMillimetres) {
    EXPECT_EQ(title(kLongMeasureMillimetres, kCustomSizeWidth), "Width (100.0 - 330.0):");
    EXPECT_EQ(title(kLongMeasureMillimetres, kCustomSizeLength), "Width (148.0 - 488.0):");
}

TEST_F(RangeText, WithoutALineInThePpdThePlacesStayEmpty) {
    PpdBuilder plain;
    panel_.SetCurrentPPD(plain.file());
    EXPECT_EQ(title(kLongMeasureInches, kCustomSizeWidth), "Width ( - ):");
    EXPECT_EQ(title(kLongMeasureMillimetres, kCustomSizeLength), "Width ( - ):");
}

TEST_F(RangeText, OfAnotherUnitIsRefused) {
    EXPECT_EQ(title(2, kCustomSizeWidth, false), "of the nib");
    EXPECT_EQ(title(-1, kCustomSizeWidth, false), "of the nib");
}

TEST_F(RangeText, NeedsBundleParentPpdAndKey) {
    EXPECT_EQ(title(kLongMeasureInches, kCustomSizeWidth, false, nullptr), "of the nib");
    control_.CreateControl(&view_, nullptr, nullptr, {}, "Range Text", kLongMeasureInches, kCustomSizeWidth);
    control_.SetParenetPanel(nullptr);
    EXPECT_FALSE(control_.InitializeTitle(bundle_.get())) << "no parent";
    control_.SetParenetPanel(&panel_);
    EXPECT_FALSE(control_.InitializeTitle(nullptr)) << "no bundle";
    panel_.SetCurrentPPD(nullptr);
    EXPECT_FALSE(control_.InitializeTitle(bundle_.get())) << "no PPD";
    EXPECT_EQ(view_.stringValue(), "of the nib");
}

TEST_F(RangeText, AMissingFormatSaysSo) {
    EXPECT_EQ(title(kLongMeasureInches, kCustomSizeWidth, true, "Unknown"), "no translation");
}

TEST_F(RangeText, WithoutATextViewIsRefused) {
    control_.CreateControl(nullptr, nullptr, nullptr, {}, "Range Text", kLongMeasureInches, kCustomSizeWidth);
    control_.SetParenetPanel(&panel_);
    EXPECT_FALSE(control_.InitializeTitle(bundle_.get()));
}

} // namespace
} // namespace specialpages

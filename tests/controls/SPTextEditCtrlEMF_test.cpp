#include "controls/SPTextEditCtrlEMF.h"
#include "controls/SPTextEditFormatterEMF.h"
#include "controls/text_fixtures.h"

#include <gtest/gtest.h>

namespace specialpages {
namespace {

using test::kNoKeys;
using test::TextView;

constexpr TextEditIniData kQuantity{"1", "1", 1, 4};
constexpr EditValueRangeData kRange{1, 9999};

class QuantityField : public SPTextEditCtrlEMF {
  public:
    using SPTextEditCtrlEMF::m_SPEditValueRangeData;
    std::vector<std::string> rawTexts;
    std::int32_t OnRawKeyUp(const std::string& text) override {
        rawTexts.push_back(text);
        return 0;
    }
};

TEST(RangedTextEdit, KeepsACopyOfItsRange) {
    QuantityField field;
    EditValueRangeData range = kRange;
    field.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, nullptr, &range);
    range.maximum = 0;
    EXPECT_EQ(field.m_SPEditValueRangeData.minimum, 1);
    EXPECT_EQ(field.m_SPEditValueRangeData.maximum, 9999);
    field.CreateControl(nullptr, nullptr, nullptr, nullptr, {}, nullptr,
                        static_cast<EditValueRangeData*>(nullptr));
    EXPECT_EQ(field.m_SPEditValueRangeData.maximum, 0);
}

TEST(RangedTextEdit, HearsOfNumbersInItsRangeThroughItsFormatter) {
    TextView view(1);
    QuantityField field;
    field.CreateControl(&view, &kQuantity, nullptr, &kNoKeys, {}, &SPInstQuantityEditFilterData, &kRange);
    field.InitializeCtrl(nullptr, nullptr);
    EXPECT_NE(dynamic_cast<SPTextEditFormatterEMF*>(view.formatter()), nullptr);
    view.setStringValue("9999");
    view.setStringValue("10000");
    view.setStringValue("0");
    EXPECT_EQ(field.rawTexts, std::vector<std::string>{"9999"});
    EXPECT_FALSE(view.editText("12345")) << "five columns";
}

TEST(RangedTextEdit, WithoutFilterOrTableHasNoFormatter) {
    TextView view(1);
    QuantityField field;
    field.CreateControl(&view, &kQuantity, nullptr, &kNoKeys, {}, nullptr, &kRange);
    field.InitializeCtrl(nullptr, nullptr);
    EXPECT_EQ(view.formatter(), nullptr);
    field.CreateControl(nullptr, &kQuantity, nullptr, &kNoKeys, {}, &SPInstQuantityEditFilterData, &kRange);
    EXPECT_TRUE(field.InitializeCtrl(nullptr, nullptr)) << "no view";
}

} // namespace
} // namespace specialpages

#include "controls/SPStaticTextEditControlEMF.h"

#include "controls/ControlPanel.h"
#include "controls/custom_size_range.h"
#include "controls/text_format.h"
#include "platform/foundation/Bundle.h"
#include "support/identifiers.h"

namespace specialpages {

void SPStaticTextEditControlEMF::CreateControl(platform::View* view, const ConstraintRecord* constrain,
                                               const AccessInfo* accessInfo, std::string_view usernamein,
                                               const char* summaryInfo, std::int32_t longMeasure,
                                               std::int32_t SizeFlag) {
    CreateControl(view, constrain, accessInfo, usernamein, summaryInfo);
    m_FathomFlag = longMeasure;
    m_customSize_flag = SizeFlag;
}

bool SPStaticTextEditControlEMF::InitializeTitle(platform::Bundle* bundle) {
    ppd_file_s* ppd = ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetCurrentPPD();
    if (bundle == nullptr || ppd == nullptr || summarytextRef == nullptr) {
        return false;
    }
    const auto points = custom_size_points(ppd, m_customSize_flag);
    auto limits = custom_size_limits(points.value_or(PointRange{}), m_FathomFlag);
    if (!limits) {
        return false;
    }
    if (!points) {
        limits.emplace();
    }
    return showText(filled_format(localized(*bundle, summarytextRef, kNoTranslation),
                                  {limits->minimumText, limits->maximumText}));
}

} // namespace specialpages

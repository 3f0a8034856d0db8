#include "paper/SPSelectPaperListCtrlEMF.h"

#include "records/SPSummaryScrollViewCtrl.h"
#include "support/leading_number.h"

namespace specialpages {

bool SPSelectPaperListCtrlEMF::getControlValue(PaperControlValue* value) const {
    if (value == nullptr) {
        return false;
    }
    *value = {paper.size, paper.color, paper.type, paper.interposer ? 1 : 0};
    return true;
}

bool SPSelectPaperListCtrlEMF::setControlValue(const PaperControlValue* value) {
    if (value == nullptr) {
        return false;
    }
    choosePaper(
        {saturated(value->size), saturated(value->color), saturated(value->type), value->interposer != 0});
    return true;
}

PaperSelectionArray SPSelectPaperListCtrlEMF::getCurrentSelectionArray() const {
    constexpr std::array<RecordKey, 3> kRecordKeys{RecordKey::pagesize, RecordKey::pagecolor,
                                                   RecordKey::pagetype};
    PaperSelectionArray selection;
    SPSummaryScrollViewCtrl* list = summary();
    for (std::size_t part = 0; part < selection.size() && part < currentSelectionArray.size(); ++part) {
        if (currentSelectionArray[part] != kNullChoice) {
            selection[part].push_back(currentSelectionArray[part]);
            continue;
        }
        const auto records = list == nullptr ? std::nullopt : list->getArrayOfCurrentSelectedRecords();
        if (records) {
            for (const SpecialPageRecord& record : *records) {
                selection[part].push_back(record.text(kRecordKeys[part]));
            }
        }
    }
    return selection;
}

} // namespace specialpages

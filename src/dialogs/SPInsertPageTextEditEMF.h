// The page text of the inserts dialog, "3, 7-9": the pages after which sheets go in, one record a page. It is
// read at OK; before page one it is not read at all. The grammar and the limit are those of page_list.h.
#pragma once

#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "records/page_list.h"

#include <optional>
#include <string>
#include <string_view>

namespace specialpages {

class InsertsWindow;
struct PageText;

class SPInsertPageTextEditEMF : public TextEditCtrlEMFSpecialPages {
  public:
    using TextEditCtrlEMFSpecialPages::CreateControl;
    /// `titleInfo` is a key (not copied: a constant; null for this dialog); `maxPageList` is the most inserts
    /// that a job may have. The range is copied (null: 0 to 0).
    void CreateControl(platform::View* view, const TextEditIniData* IniData,
                       const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const TextEditFilterData* FilterData,
                       const char* titleInfo, std::int32_t maxPageList, const EditValueRangeData* ValueRange);

    // The text has no committed value: it is read when it is needed.

    bool SetControlValueToUI() override { return true; }
    void SetValueFromUIToControl() override {}
    /// Empties the text; nothing while the option list is disabled, since the pages then stay those of the
    /// edited records. True always.
    bool SetDefaultValueToUI() override;

    /// Whether the pages can be used; shows the message otherwise. Takes the pages over.
    bool InvalidateData() override;
    bool PreInvalidateData() override;
    using TextEditCtrlEMFSpecialPages::ShowErrMsg;
    /// 1 wrong text, 2 too many pages, 3 a range that runs backward; any other number is taken as 1.
    void ShowErrMsg(std::int32_t warning);

    /// What the text names under the present limit; a code of page_list.h. Null: -50.
    std::int32_t ValidatePageList(std::optional<std::string_view> text);
    /// Whether so many more pages are too many.
    bool IsRecordExceedMaxWithAddition(std::int64_t addition) const;
    /// The pages of the last valid text, in the order of the text with its repeats.
    const PageRanges& GetSortedPageArray() const { return pages_.m_aSortedPageArray; }
    /// The normal form of the last valid text.
    const std::string& arrangedText() const { return pages_.m_strArranged; }
    void InitialPageArray() { pages_ = {}; }
    const EditValueRangeData& valueRange() const { return m_tEditValueRangeData; }

    /// The view's enabled state; false without a view.
    bool BEnable() const;
    void SetToDisable();
    void SetToEnable();

  private:
    InsertsWindow* insertsWindow() const;
    bool beforePageOne() const;
    InsertPageLimit limit() const;

    const char* titletextRef = nullptr;
    std::int32_t maxPageDefineNum = kMaxPageDefineNum;
    EditValueRangeData m_tEditValueRangeData;
    InsertPages pages_;
};

} // namespace specialpages

// The page text of the exceptions dialog: a page list that names a set of pages. While several exceptions are
// edited at once its view is disabled, since their pages stay as they are; a disabled view has no bounds for
// its length or for the number of its page sets, but its text is read all the same.
#pragma once

#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "records/page_list.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

class SPSummaryScrollViewCtrl;

class SPAddExceptTextEditCtrlEMF : public TextEditCtrlEMFSpecialPages {
  public:
    using TextEditCtrlEMFSpecialPages::CreateControl;
    /// `maxPageList` is the most page sets that the text may have.
    void CreateControl(platform::View* view, const TextEditIniData* IniData,
                       const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const TextEditFilterData* FilterData,
                       std::int32_t maxPageList);

    /// Only enables or disables the view; its text stays.
    bool SetControlValueToUI() override;
    /// Empties the view, unless several exceptions are being edited.
    bool SetDefaultValueToUI() override;

    /// Judges the view's text and takes its pages over; false after a warning. A field that is hidden or
    /// constrained passes without any check, and its pages stay.
    bool InvalidateData() override;
    /// Whether the text may be read at all: an empty one never.
    bool PreInvalidateData() override;
    /// All stages over a text; the answer is a code of page_list.h. A failure keeps the old pages.
    std::int32_t ValidatePageList(std::optional<std::string_view> text);
    using TextEditCtrlEMFSpecialPages::ShowErrMsg;
    /// 2: too many, 3: a range runs backward, any other number: the text is wrong. Nothing without a filter
    /// with a message, a panel, or its bundle.
    void ShowErrMsg(std::int32_t warning);

    /// The pages of the last valid text, ascending and each once: as decimal texts, and as a set.
    std::vector<std::string> getPageDefineArray() const { return page_texts(pages.m_idxNumberSet); }
    const PageRanges& getPageNumIndex() const { return pages.m_idxNumberSet; }
    /// The normal form of the last valid text.
    const std::string& arrangedText() const { return pages.m_strArranged; }

  private:
    bool viewIsEnabled() const;
    bool severalAreEdited() const;
    SPSummaryScrollViewCtrl* summary() const;

    std::int32_t maxPageDefineNum = kMaxPageDefineNum;
    ExceptionPages pages;
};

} // namespace specialpages

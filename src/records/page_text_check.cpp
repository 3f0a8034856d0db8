#include "records/page_text_check.h"

#include "support/input_filter.h"

namespace specialpages {
namespace {

constexpr std::int32_t kWrongText = 1; // of ShowErrMsg

bool characters_accepted(std::string_view text, const TextEditFilterData* filter) {
    return filter == nullptr || validateInput(text, *filter);
}

} // namespace

bool PreInvalidateInsertText(const PageText& field, bool beforePageOne) {
    if (field.text.empty() && !beforePageOne) {
        return false;
    }
    if (field.length > kMaxPageText && !beforePageOne && field.viewEnabled) {
        return false;
    }
    return field.length >= kMinInsertPageText && characters_accepted(field.text, field.filter);
}

std::int32_t InvalidateInsertText(const PageText& field, bool beforePageOne, bool frontCover,
                                  const InsertPageLimit& limit, InsertPages& pages) {
    if (!PreInvalidateInsertText(field, beforePageOne)) {
        return kWrongText;
    }
    auto fieldLimit = limit;
    fieldLimit.viewEnabled = field.viewEnabled;
    if (beforePageOne) {
        choose_before_page_one(pages);
        return IsRecordExceedMaxWithAddition(1, fieldLimit) ? page_list_warning(kPageListTooMany) : 0;
    }
    return page_list_warning(ValidatePageList(field.text, frontCover, fieldLimit, pages));
}

bool PreInvalidateExceptionText(const PageText& field, std::string_view blockText) {
    if (field.text.empty()) {
        return false;
    }
    if ((field.length > kMaxPageText || field.length < kMinExceptionPageText) && field.viewEnabled) {
        return false;
    }
    return characters_accepted(blockText, field.filter);
}

std::int32_t InvalidateExceptionText(const PageText& field, std::string_view blockText,
                                     ExceptionPages& pages) {
    if (!PreInvalidateExceptionText(field, blockText)) {
        return kWrongText;
    }
    return page_list_warning(ValidatePageList(field.text, field.viewEnabled, pages));
}

} // namespace specialpages

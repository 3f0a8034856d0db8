// What the OK button asks of the two page texts: whether the dialog may close with what stands in the field,
// and which message it shows otherwise. Values in, values out; the pages are taken over on the way.
#pragma once

#include "records/page_list.h"

#include <cstdint>
#include <string_view>

namespace specialpages {

struct TextEditFilterData;

/// Lengths of the two texts, in columns.
inline constexpr std::int32_t kMinInsertPageText = 0;
inline constexpr std::int32_t kMinExceptionPageText = 1;
inline constexpr std::int32_t kMaxPageText = 99;

/// The field as it was read from its view.
struct PageText {
    std::string_view text;
    std::int32_t length = 0; ///< columns
    bool viewEnabled = true;
    const TextEditFilterData* filter = nullptr; ///< null: every character may stand
};

/// Whether the inserts' text may be read at all. Before page one the text may be empty or too long, but its
/// characters count.
bool PreInvalidateInsertText(const PageText& field, bool beforePageOne);

/// The number of the message to show, 0 when the text is valid, and the pages of a text that was read. Before
/// page one the text is not read: the pages are page 0 alone, also when the limit then refuses it. The
/// limit's `viewEnabled` is the field's.
std::int32_t InvalidateInsertText(const PageText& field, bool beforePageOne, bool frontCover,
                                  const InsertPageLimit& limit, InsertPages& pages);

/// Whether the exceptions' text may be read at all: never an empty one. `blockText` is the text in the
/// control's data block, whose characters are looked at in place of the field's.
bool PreInvalidateExceptionText(const PageText& field, std::string_view blockText);

/// The same for exceptions. A control that is hidden or constrained is not to be asked.
std::int32_t InvalidateExceptionText(const PageText& field, std::string_view blockText,
                                     ExceptionPages& pages);

} // namespace specialpages

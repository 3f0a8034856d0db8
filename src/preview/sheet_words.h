// What a sheet is in words, as a screen reader reads it and as a tool tip and a picture's title say it:
// "Insert after page 3, 2 sheets, A4, Blue, Plain".
#pragma once

#include "preview/sheet_paper.h"
#include "preview/sheet_sequence.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages::platform {
class Bundle;
}

namespace specialpages::preview {

/// The table of the bundle that holds these texts.
inline constexpr const char* kPreviewTable = "Preview";

/// The text of a key of that table.
std::string preview_text(const platform::Bundle& bundle, std::string_view key);

/// The sentence for `sheets` sheets of a run from its place `first` on. For an insert, all of them are meant,
/// and the page is that of its record.
std::string sheet_sentence(const SheetRun& run, std::int64_t first, std::int64_t sheets,
                           const SheetPaper& paper, std::int64_t insertPage, const platform::Bundle& bundle);

/// The sentence for a record by itself, whatever the document: "Insert after page 3, 2 sheets, A4, Blue,
/// Plain", "Back cover, the last page on side 1, A4, Blue, Plain", "Exception, pages 5 to 7, 1-sided, A3,
/// White, Plain", and for one that makes no sheet why: "Exception 7-5: no such pages." `job` are the sides of
/// an exception that names none. Empty for a record of no kind.
std::string record_sentence(const SpecialPageRecord& record, const SheetPaper& paper, Sides job,
                            const platform::Bundle& bundle);

/// Why a record shows in no sheet or in fewer: "Insert after page 30: the document ends at page 24".
std::string note_sentence(const SheetNote& note, const SpecialPageRecord& record, const Document& document,
                          const platform::Bundle& bundle);

/// The job's own paper and sides: "A4, White, Plain, 1-sided".
std::string setup_sentence(const SheetPaper& paper, Sides sides, const platform::Bundle& bundle);

/// "24 pages on 26 sheets".
std::string sequence_sentence(const SheetSequence& sequence, const Document& document,
                              const platform::Bundle& bundle);

} // namespace specialpages::preview

// The records that a covers dialog stands for: at most one front and one back cover, always written anew.
#pragma once

#include "paper/CoversWindow.h"
#include "paper/paper_choice.h"
#include "records/SpecialPageRecord.h"

#include <cstdint>
#include <string>

namespace specialpages {

/// What the dialog holds for one side.
struct CoverSide {
    std::int32_t printing = 0; ///< position in the printing list
    PaperControlValue paper;
    std::string width; ///< of the custom size, millimetres
    std::string length;
    std::int32_t longMeasure = 0;
    std::string selected = "false"; ///< whether the list had this side's record selected
};

/// The records of that option, in the order in which they are added: the back cover first. With "same" both
/// take the front's paper and printing option, each with its own selected text. None for a number that is no
/// option.
RecordList cover_records(CoverOption option, const CoverSide& front, const CoverSide& back);

/// The selected texts that the records had; a side without a record, or a record without the text, gives
/// "false".
struct CoverSelection {
    std::string front = "false";
    std::string back = "false";
};
CoverSelection cover_selection(const RecordList& records);

} // namespace specialpages

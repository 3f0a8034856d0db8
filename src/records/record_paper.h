// The paper of an insert or an exception as numbers: what a dialog shows and hands over at OK, and what a
// record holds as text. In a dialog a part may be undecided, since it was left on "No Change" or since the
// edited records differ in it; a record that comes out of here never holds an undecided width, length or
// unit.
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstdint>
#include <string>

namespace specialpages {

/// In place of a number, and as text in place of a width or length.
inline constexpr std::int32_t kUndecided = -1;
inline constexpr const char* kUndecidedText = "-1";

struct CustomSize {
    std::string width = "210.0";  ///< millimetres, with a point; "-1" undecided
    std::string length = "297.0"; ///< the same
    std::int32_t longmeasure = 1; ///< unit shown: 0 inches, 1 millimetres; -1 undecided

    bool operator==(const CustomSize&) const = default;
};

struct RecordPaper {
    std::int32_t size = kUndecided; ///< indexes into the PPD's options
    std::int32_t color = kUndecided;
    std::int32_t type = kUndecided;
    bool interposer = false;
    CustomSize custom;

    bool operator==(const RecordPaper&) const = default;
};

/// The record's entries; a missing number is 0. What is undecided in a hand-made record becomes the default
/// custom size.
RecordPaper paper_of(const SpecialPageRecord& record);

/// The record with these seven entries.
SpecialPageRecord with_paper_of(const SpecialPageRecord& record, const RecordPaper& paper);

/// Whether the paper asks for anything: the interposer, a size, a color or a type.
bool chooses_paper(const RecordPaper& paper);

/// Each of the three that is undecided taken from `otherwise`.
CustomSize decided(CustomSize custom, const CustomSize& otherwise);

/// Keeps of the running values only what the record agrees with: a width or length that differs becomes
/// undecided, and a unit that differs makes all three so.
void narrow(CustomSize& running, const CustomSize& record);
/// The same for a number.
void narrow(std::int32_t& running, std::int32_t record);

} // namespace specialpages

// A record as the text that the print settings keep of it: its entries in the fixed order of its kind, joined
// by commas, without quoting and without "selected". This is the pane's own memory; the print back-end reads
// the NPIF commands instead.
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages {

/// The comma list: 11 fields for a cover or an insert, 10 for an exception, whose media type stands before
/// the media colour where the other two have the colour first. A missing entry gives an empty field. Null for
/// a type other than 0, 1 and 2. Precondition for reading it back unchanged: ASCII entries without commas and
/// newlines, as the pane makes them.
std::optional<std::string> encode_record(const SpecialPageRecord& record);

struct RecordReading {
    enum class Outcome {
        record,        ///< `record` holds the entries, but for "selected", which no list has
        other_kind,    ///< the first field is none of 0, 1, 2
        too_few_fields ///< fewer fields than the kind has; no list that encode_record made is so
    };
    Outcome outcome = Outcome::other_kind;
    SpecialPageRecord record;
};

/// The record of a comma list. Empty fields are kept as empty texts, surplus fields are ignored. The text is
/// split by getStringBySeparator, so that a newline separates as well.
RecordReading decode_record(std::string_view text);

/// The key of the record with that 0-based index: key, "_", index. Empty for a negative index.
std::string record_ticket_key(std::string_view key, std::int32_t index);

} // namespace specialpages

#include "records/record_ticket.h"

#include "platform/foundation/numbers.h"
#include "support/units.h"

#include <array>
#include <cstddef>
#include <span>
#include <utility>
#include <vector>

namespace specialpages {
namespace {

using enum RecordKey;

constexpr std::array kCoverFields{type,       page,         printingoptions, pagesize, pagecolor,  pagetype,
                                  interposer, coversoption, width,           length,   longmeasure};
constexpr std::array kInsertFields{type,     page,       insertoption, insertquantity, pagesize,   pagecolor,
                                   pagetype, interposer, width,        length,         longmeasure};
constexpr std::array kExceptionFields{type,       page,         pagesize, pagetype, pagecolor,
                                      interposer, twoSidePrint, width,    length,   longmeasure};
static_assert(kCoverFields.size() == 11 && kInsertFields.size() == 11 && kExceptionFields.size() == 10);

constexpr char kSeparator = ',';

/// Empty for any other kind.
std::span<const RecordKey> fields_of(std::int32_t kind) {
    switch (static_cast<RecordType>(kind)) {
    case RecordType::cover:
        return kCoverFields;
    case RecordType::insert:
        return kInsertFields;
    case RecordType::exception:
        return kExceptionFields;
    }
    return {};
}

} // namespace

std::optional<std::string> encode_record(const SpecialPageRecord& record) {
    const auto fields = fields_of(record.type());
    if (fields.empty()) {
        return std::nullopt;
    }
    std::string list = record.text(fields.front());
    for (const auto key : fields.subspan(1)) {
        list += kSeparator;
        list += record.text(key);
    }
    return list;
}

RecordReading decode_record(std::string_view text) {
    std::vector<std::string> pieces;
    getStringBySeparator(pieces, text, kSeparator);
    const auto fields = fields_of(pieces.empty() ? 0 : platform::int_value(pieces.front()));
    if (fields.empty()) {
        return {RecordReading::Outcome::other_kind, {}};
    }
    if (pieces.size() < fields.size()) {
        return {RecordReading::Outcome::too_few_fields, {}};
    }
    return {RecordReading::Outcome::record, SpecialPageRecord(fields, std::move(pieces))};
}

std::string record_ticket_key(std::string_view key, std::int32_t index) {
    return index < 0 ? std::string{} : std::string{key} + "_" + platform::decimal_text(index);
}

} // namespace specialpages

// Any text as a record's comma list: it has one of three outcomes, and a record that was read is written and
// read again as itself, unless it holds text beyond ASCII, which loses its end.

#include "records/record_ticket.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using specialpages::RecordKey;
using specialpages::RecordReading;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool is_ascii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char byte) { return static_cast<unsigned char>(byte) < 128; });
}

void check_record(const specialpages::SpecialPageRecord& record) {
    require(record.type() >= 0 && record.type() <= 2);
    require(record.find(RecordKey::selected) == nullptr);
    const auto list = specialpages::encode_record(record);
    if (!list) {
        std::abort();
    }
    require(std::count(list->begin(), list->end(), ',') == (record.type() == 2 ? 9 : 10));
    if (is_ascii(*list)) {
        const auto again = specialpages::decode_record(*list);
        require(again.outcome == RecordReading::Outcome::record);
        require(again.record == record);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto reading = specialpages::decode_record({reinterpret_cast<const char*>(data), size});
    switch (reading.outcome) {
    case RecordReading::Outcome::record:
        check_record(reading.record);
        return 0;
    case RecordReading::Outcome::other_kind:
    case RecordReading::Outcome::too_few_fields:
        require(reading.record == specialpages::SpecialPageRecord{});
        return 0;
    }
    std::abort();
}

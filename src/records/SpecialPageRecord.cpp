#include "records/SpecialPageRecord.h"

#include "platform/foundation/numbers.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>

namespace specialpages {
namespace {

constexpr std::array<std::string_view, kRecordKeyCount> kRecordKeyNames{
    "type",           "page",         "printingoptions", "coversoption", "insertoption",
    "insertquantity", "twoSidePrint", "pagesize",        "pagecolor",    "pagetype",
    "interposer",     "width",        "length",          "longmeasure",  "selected",
};
static_assert(static_cast<std::size_t>(RecordKey::selected) + 1 == kRecordKeyCount);

std::size_t place(RecordKey key) {
    return static_cast<std::size_t>(key);
}

} // namespace

std::string_view record_key_name(RecordKey key) {
    return kRecordKeyNames.at(place(key));
}

SpecialPageRecord::SpecialPageRecord(std::initializer_list<std::pair<RecordKey, std::string>> entries) {
    for (const auto& [key, value] : entries) {
        texts_.at(place(key)) = value;
    }
}

SpecialPageRecord::SpecialPageRecord(std::span<const RecordKey> keys, std::vector<std::string> texts) {
    for (std::size_t i = 0; i < keys.size(); ++i) {
        texts_.at(place(keys[i])) = std::move(texts.at(i));
    }
}

const std::string* SpecialPageRecord::find(RecordKey key) const {
    const auto& entry = texts_.at(place(key));
    return entry ? &*entry : nullptr;
}

const std::string& SpecialPageRecord::text(RecordKey key) const {
    static const std::string kNone;
    const auto* found = find(key);
    return found != nullptr ? *found : kNone;
}

std::int32_t SpecialPageRecord::integer(RecordKey key) const {
    return platform::int_value(text(key));
}

SpecialPageRecord SpecialPageRecord::with(RecordKey key, std::string value) const {
    auto changed = *this;
    changed.texts_.at(place(key)) = std::move(value);
    return changed;
}

} // namespace specialpages

// Records in the words of a test: cover_front(), insert_after(3), exception("5-7"). Each has every key of its
// kind with the dialog's defaults (first paper of every option, 210.0 by 297.0 mm) and, like a record that
// was read back, no mark. Change one by its with().
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstddef>
#include <cstdint>
#include <ostream>
#include <string>
#include <vector>

namespace specialpages {

/// For messages of failed tests: the entries that are there, as key=text.
inline std::ostream& operator<<(std::ostream& out, const SpecialPageRecord& record) {
    out << '{';
    for (std::size_t i = 0; i < kRecordKeyCount; ++i) {
        const auto key = static_cast<RecordKey>(i);
        if (const auto* text = record.find(key)) {
            out << ' ' << record_key_name(key) << '=' << *text;
        }
    }
    return out << " }";
}

namespace test {

inline SpecialPageRecord with_default_paper(const SpecialPageRecord& record) {
    return record.with(RecordKey::pagesize, "0")
        .with(RecordKey::pagecolor, "0")
        .with(RecordKey::pagetype, "0")
        .with(RecordKey::interposer, "false")
        .with(RecordKey::width, "210.0")
        .with(RecordKey::length, "297.0")
        .with(RecordKey::longmeasure, "1");
}

inline SpecialPageRecord cover(const std::string& page, const std::string& coversoption) {
    return with_default_paper({{RecordKey::type, "0"},
                               {RecordKey::page, page},
                               {RecordKey::printingoptions, "0"},
                               {RecordKey::coversoption, coversoption}});
}
inline SpecialPageRecord cover_front() {
    return cover("0", "1");
}
inline SpecialPageRecord cover_back() {
    return cover("1", "2");
}

inline SpecialPageRecord insert(const std::string& page, const std::string& option, std::int32_t sheets) {
    return with_default_paper({{RecordKey::type, "1"},
                               {RecordKey::page, page},
                               {RecordKey::insertoption, option},
                               {RecordKey::insertquantity, std::to_string(sheets)}});
}
/// The number of sheets tells inserts after one page apart.
inline SpecialPageRecord insert_after(std::int32_t page, std::int32_t sheets = 1) {
    return insert(std::to_string(page), "0", sheets);
}
inline SpecialPageRecord insert_before_page_one(std::int32_t sheets = 1) {
    return insert("0", "1", sheets);
}

inline SpecialPageRecord exception(const std::string& pages) {
    return with_default_paper(
        {{RecordKey::type, "2"}, {RecordKey::page, pages}, {RecordKey::twoSidePrint, "2"}});
}

/// A record of a kind that no dialog makes.
inline SpecialPageRecord unknown_kind() {
    return insert_after(1).with(RecordKey::type, "3");
}

inline SpecialPageRecord marked(const SpecialPageRecord& record) {
    return record.with(RecordKey::selected, "true");
}
inline SpecialPageRecord unmarked(const SpecialPageRecord& record) {
    return record.with(RecordKey::selected, "false");
}
inline SpecialPageRecord from_interposer(const SpecialPageRecord& record) {
    return record.with(RecordKey::interposer, "true");
}
inline SpecialPageRecord with_paper(const SpecialPageRecord& record, std::int32_t size, std::int32_t color,
                                    std::int32_t type) {
    return record.with(RecordKey::pagesize, std::to_string(size))
        .with(RecordKey::pagecolor, std::to_string(color))
        .with(RecordKey::pagetype, std::to_string(type));
}

} // namespace test
} // namespace specialpages

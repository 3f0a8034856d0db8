// One declared special page: an immutable dictionary from fixed keys to texts, numbers included. A change
// makes a changed copy. Texts are what the record tickets hold; none contains a comma when the pane made it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace specialpages {

enum class RecordKey : std::size_t {
    type, ///< "0" cover, "1" insert, "2" exception
    page, ///< cover: "0" front, "1" back; insert: page after which it goes, "0" before page one; exception:
          ///< "5" or "5-7"
    printingoptions, ///< covers: "0" to "3", index into printingOptionListIniMenu and CoverTypeNPIFComm
    coversoption,    ///< covers: "1" to "4", index into coverOptionListIniMenu
    insertoption,    ///< inserts: "0" after the page, "1" before page one
    insertquantity,  ///< inserts: number of sheets
    twoSidePrint,    ///< exceptions: "1" one-sided, "2" two-sided long edge, "3" two-sided short edge
    pagesize,        ///< index of the PPD's page size; at or past its choice count: the job's own size
    pagecolor,       ///< index of the PPD's media colour
    pagetype,        ///< index of the PPD's media type
    interposer, ///< "true" when the sheet comes from the interposer and has no paper of its own, else "false"
    width,      ///< custom width in millimetres, with a point ("210.0")
    length,     ///< custom length in millimetres
    longmeasure, ///< unit shown for the custom size: "0" inches, "1" millimetres
    selected,    ///< "true" or "false": the selection mark; missing on a record that was read back
};
inline constexpr std::size_t kRecordKeyCount = 15;

/// The key's text, as in "insertquantity".
std::string_view record_key_name(RecordKey key);

enum class RecordType : std::int32_t { cover = 0, insert = 1, exception = 2 };

class SpecialPageRecord {
  public:
    SpecialPageRecord() = default;
    SpecialPageRecord(std::initializer_list<std::pair<RecordKey, std::string>> entries);
    /// Each key with the text at its position. There are as many texts at least; surplus ones are dropped.
    SpecialPageRecord(std::span<const RecordKey> keys, std::vector<std::string> texts);

    /// Null when the record has no such key.
    const std::string* find(RecordKey key) const;
    /// The text; empty when the record has no such key.
    const std::string& text(RecordKey key) const;
    /// The integer at the text's head, 0 for none or a missing key.
    std::int32_t integer(RecordKey key) const;
    /// Whether the text is exactly "true".
    bool is_true(RecordKey key) const { return text(key) == "true"; }

    std::int32_t type() const { return integer(RecordKey::type); }
    bool is(RecordType kind) const { return type() == static_cast<std::int32_t>(kind); }

    SpecialPageRecord with(RecordKey key, std::string value) const;

    bool operator==(const SpecialPageRecord&) const = default;

  private:
    std::array<std::optional<std::string>, kRecordKeyCount> texts_;
};

using RecordList = std::vector<SpecialPageRecord>;

} // namespace specialpages

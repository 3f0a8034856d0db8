#include "ppd/CQuickXPPD.h"

#include "platform/foundation/numbers.h"
#include "ppd/ppd_access.h"
#include "support/settings_access.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <istream>
#include <ostream>
#include <system_error>

namespace specialpages {

namespace {

constexpr char kFieldEnd = '@';
constexpr char kLineEnd = '\n';
constexpr std::size_t kFieldsPerEntry = 4;

/// Takes the text before the first delimiter, and the delimiter, off the source.
bool take_field(std::string_view& source, std::string_view& field, char delimiter) {
    const std::size_t end = source.find(delimiter);
    if (end == std::string_view::npos) {
        return false;
    }
    field = source.substr(0, end);
    source.remove_prefix(end + 1);
    return true;
}

/// The number at the head of the field, cut to 16 bits. A field as the writer makes it is read on the spot.
std::uint16_t position_from(std::string_view field) {
    constexpr std::size_t kPlainDigits = 9; // always within 32 bits
    std::uint32_t plain = 0;
    if (field.size() <= kPlainDigits) {
        std::size_t read = 0;
        while (read < field.size() && field[read] >= '0' && field[read] <= '9') {
            plain = 10 * plain + static_cast<std::uint32_t>(field[read++] - '0');
        }
        if (read == field.size()) {
            return static_cast<std::uint16_t>(plain);
        }
    }
    return static_cast<std::uint16_t>(platform::int_value(field));
}

void read_entries(std::string_view line, ConstraintIndex& index) {
    // A file holds the entries of a key in a row: only the first of them needs to be looked for.
    std::string_view last_key;
    auto last_id = ConstraintIndex::kNoKey;
    std::array<std::string_view, kFieldsPerEntry> fields;
    const auto take = [&line](std::string_view& field) {
        return take_field(line, field, kFieldEnd);
    };
    while (std::all_of(fields.begin(), fields.end(), take)) {
        const auto& [key, group, option, choice] = fields;
        if (key.empty()) {
            continue;
        }
        const x_constraints place{position_from(group), position_from(option), position_from(choice)};
        if (key == last_key) {
            index.insert(last_id, place);
        } else {
            last_key = key;
            last_id = index.insert(key, place);
        }
    }
    index.trim();
}

void append_field(std::string& text, std::string_view field) {
    text += field;
    text += kFieldEnd;
}

void append_field(std::string& text, std::uint16_t number) {
    std::array<char, 5> digits{};
    const char* end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    append_field(text, std::string_view(digits.data(), end));
}

} // namespace

CQuickXPPD::CQuickXPPD(ConstraintIndex* index, std::string_view sectionName)
    : index(index), sectionName(sectionName) {}

CQuickXPPD::CQuickXPPD(ppd_file_t* ppd, ConstraintIndex* index, const x_PDEConstr* sections,
                       std::optional<std::string_view> ppdFileName)
    : index(index), ppd(ppd), ppdFileName(ppdFileName) {
    for (; sections != nullptr && sections->keywords != nullptr; ++sections) {
        this->sections.push_back(*sections);
    }
}

std::int32_t CQuickXPPD::SetXppd(const ppd_file_t* ppd, ConstraintIndex* index) const {
    compile_constraints(ppd, index, keywordFilter);
    return 0;
}

void CQuickXPPD::xConst2Hash_O1O2(const ppd_file_t* ppd, ConstraintIndex* index,
                                  std::int32_t constraintNumber) {
    specialpages::xConst2Hash_O1O2(ppd, index, constraintNumber);
}

void CQuickXPPD::xConst2Hash_O1C1O2(const ppd_file_t* ppd, ConstraintIndex* index,
                                    std::int32_t constraintNumber) {
    specialpages::xConst2Hash_O1C1O2(ppd, index, constraintNumber);
}

void CQuickXPPD::xConst2Hash_O1O2C2(const ppd_file_t* ppd, ConstraintIndex* index,
                                    std::int32_t constraintNumber) {
    specialpages::xConst2Hash_O1O2C2(ppd, index, constraintNumber);
}

void CQuickXPPD::xConst2Hash_O1C1O2C2(const ppd_file_t* ppd, ConstraintIndex* index,
                                      std::int32_t constraintNumber) {
    specialpages::xConst2Hash_O1C1O2C2(ppd, index, constraintNumber);
}

bool CQuickXPPD::getoneline(std::string_view* source, std::string* target, char delimiter) {
    std::string_view field;
    if (source == nullptr || target == nullptr || !take_field(*source, field, delimiter)) {
        return false;
    }
    *target += field;
    return true;
}

std::int32_t CQuickXPPD::SetFileHead(std::ostream& /*stream*/, const ppd_file_t* /*ppd*/) {
    return 0;
}

std::int32_t CQuickXPPD::SetFileStamp(std::ostream& stream) const {
    if (!ppdFileName) {
        return 0;
    }
    std::ifstream file(*ppdFileName, std::ios::binary);
    for (std::string piece; std::getline(file, piece, '\r');) {
        if (piece.find(STRPPDSTAMP) != std::string::npos) {
            stream << piece;
            break;
        }
    }
    return 0;
}

std::ostream& operator<<(std::ostream& stream, CQuickXPPD& object) {
    ConstraintIndex none;
    ConstraintIndex& index = object.index != nullptr ? *object.index : none;
    for (const x_PDEConstr& section : object.sections) {
        object.keywordFilter = *section.keywords;
        index.clear();
        object.SetXppd(object.ppd, &index);
        stream << (section.sectionName != nullptr ? *section.sectionName : std::string()) << kLineEnd
               << std::flush;
        stream << cache_data_line(index);
        object.keywordFilter.clear();
        index.clear();
        stream << kLineEnd << std::flush;
    }
    object.SetFileStamp(stream);
    return stream;
}

std::istream& operator>>(std::istream& stream, CQuickXPPD& object) {
    if (!stream.good() || !object.sectionName || object.index == nullptr) {
        return stream;
    }
    std::string line;
    while (std::getline(stream, line, kLineEnd)) {
        if (line == *object.sectionName) {
            if (std::getline(stream, line, kLineEnd)) {
                read_entries(line, *object.index);
            }
            break;
        }
    }
    return stream;
}

std::string cache_data_line(const ConstraintIndex& index) {
    std::string line;
    for (const auto& [key, place] : index) {
        if (!key.empty() && key.find_first_of("@\n") == std::string_view::npos) {
            append_field(line, key);
            append_field(line, place.groupIndex);
            append_field(line, place.optionIndex);
            append_field(line, place.choiceIndex);
        }
    }
    return line;
}

std::int32_t GetXPPD(ppd_file_t* ppd, ConstraintIndex* index, std::string_view sectionBase,
                     std::string_view attributeName) {
    constexpr std::int32_t kLowDigit = 0xF;
    constexpr std::int32_t kPantherVersion = 0x1030;
    const bool panther = (system_version() & ~kLowDigit) == kPantherVersion;
    const ppd_attr_t* attribute = ppdFindAttr_ALT(ppd, std::string(attributeName).c_str());
    if (index == nullptr || attribute == nullptr || attribute->value == nullptr) {
        return 1;
    }
    // A device or a pipe might never end.
    const std::filesystem::path path(attribute->value);
    std::error_code unreadable;
    if (!std::filesystem::is_regular_file(path, unreadable)) {
        return 1;
    }
    std::ifstream file(path, std::ios::binary);
    if (!file.is_open()) {
        return 1;
    }
    CQuickXPPD reader(index, std::string(sectionBase) + (panther ? "Panther" : "Tiger"));
    file >> reader;
    return 0;
}

} // namespace specialpages

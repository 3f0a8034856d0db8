#include "ppd/CQuickXPPD.h"

#include "platform/foundation/numbers.h"
#include "ppd/ppd_access.h"
#include "support/settings_access.h"

#include <algorithm>
#include <array>
#include <bit>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <istream>
#include <memory>
#include <ostream>
#include <system_error>
#include <utility>

namespace specialpages {

namespace {

constexpr char kFieldEnd = '@';
constexpr char kLineEnd = '\n';
/// How much of a data line is looked at at a time, longer entries apart.
constexpr std::size_t kPieceBytes = 16 * 1024;
/// How much of a cache file is read at a time.
constexpr std::uintmax_t kReadBytes = 64 * 1024;
/// An entry of a cache file is seldom shorter.
constexpr std::uintmax_t kUsualEntryBytes = 20;

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

/// The number at the head of the field, cut to 16 bits.
std::uint16_t position_from(std::string_view field) {
    return static_cast<std::uint16_t>(platform::int_value(field));
}

constexpr std::uint64_t kEachByte = 0x0101010101010101;

/// The first character in the lowest byte.
template <typename Word>
Word word_at(const char* text) {
    Word word = 0;
    std::memcpy(&word, text, sizeof word);
    return word;
}

/// Bit n is set when character n of the eight is "@".
std::uint32_t field_ends(std::uint64_t word) {
    constexpr std::uint64_t kLow = kEachByte * 0x7F;
    const std::uint64_t other = word ^ (kEachByte * kFieldEnd);
    const std::uint64_t flags = ~(((other & kLow) + kLow) | other | kLow); // the top bit of each
    return static_cast<std::uint32_t>(((flags >> 7) * 0x0102040810204080) >> 56);
}

/// The last of four characters are digits, `count` of them: where they begin in the word.
constexpr unsigned shift_of(std::size_t count) {
    return 8 * (4 - static_cast<unsigned>(count)) & 31;
}

/// The positions of an entry, apart from each other and wider than they are: x_constraints, written in its
/// narrow parts and read as a whole at once, would stall the processor.
struct Positions {
    std::uint32_t& group;
    std::uint32_t& option;
    std::uint32_t& choice;
};

/// How many characters the three positions at the head of the text take, the first of one digit and the
/// others of one to four, each followed by "@"; 0 for any other text. Loading a cache is reading such
/// numbers, and a branch on how many digits the next one has would be guessed wrong half the time: hence
/// none.
std::size_t read_plain_positions(std::string_view text, Positions positions) {
    constexpr std::size_t kWindow = 16;
    if (text.size() < kWindow + sizeof(std::uint32_t) || std::endian::native != std::endian::little) {
        return 0;
    }
    const char* at = text.data();
    std::uint32_t ends = field_ends(word_at<std::uint64_t>(at)) |
                         field_ends(word_at<std::uint64_t>(at + kWindow / 2)) << kWindow / 2;
    const auto next_start = [&ends] {
        const auto end = static_cast<std::size_t>(std::countr_zero(ends)); // 32 without a further one
        ends &= ends - 1;
        return end + 1;
    };
    const std::size_t option = next_start();
    const std::size_t choice = next_start();
    const std::size_t size = next_start();
    const std::size_t option_digits = choice - option - 1;
    const std::size_t choice_digits = size - choice - 1;
    const auto group = static_cast<std::uint32_t>(at[0] - '0');
    if (option != 2 || size > kWindow || group > 9 || option_digits - 1 > 3 || choice_digits - 1 > 3) {
        return 0;
    }
    // Option and choice side by side in one word, the last digit of each in its highest byte.
    const auto side_by_side = [=](std::uint32_t for_option, std::uint32_t for_choice) {
        return std::uint64_t{for_option << shift_of(option_digits)} |
               std::uint64_t{for_choice << shift_of(choice_digits)} << 32;
    };
    constexpr std::uint32_t kZeros = 0x30303030;
    const std::uint64_t digits =
        side_by_side(word_at<std::uint32_t>(at + option), word_at<std::uint32_t>(at + choice)) ^
        side_by_side(kZeros, kZeros);
    if ((((digits + kEachByte * 6) | digits) & (kEachByte * 0xF0)) != 0) {
        return 0;
    }
    const std::uint64_t pairs = (digits * 10 + (digits >> 8)) & 0x00FF00FF00FF00FF;
    const std::uint64_t numbers = pairs * 100 + (pairs >> 16);
    positions.group = group;
    positions.option = static_cast<std::uint32_t>(numbers & 0xFFFF);
    positions.choice = static_cast<std::uint32_t>((numbers >> 32) & 0xFFFF);
    return size;
}

/// Takes the three positions of an entry off the source.
bool take_positions(std::string_view& source, Positions positions) {
    if (const std::size_t size = read_plain_positions(source, positions); size != 0) {
        source.remove_prefix(size);
        return true;
    }
    for (std::uint32_t* position : {&positions.group, &positions.option, &positions.choice}) {
        std::string_view field;
        if (!take_field(source, field, kFieldEnd)) {
            return false;
        }
        *position = position_from(field);
    }
    return true;
}

/// starts_with() for many texts of one prefix: word by word, the last two perhaps overlapping.
bool starts_with(std::string_view text, std::string_view prefix) {
    constexpr std::size_t kWord = sizeof(std::uint64_t);
    if (prefix.size() < kWord || text.size() < prefix.size()) {
        return text.starts_with(prefix);
    }
    const std::size_t last = prefix.size() - kWord;
    const auto differs = [&](std::size_t at) {
        return word_at<std::uint64_t>(text.data() + at) != word_at<std::uint64_t>(prefix.data() + at);
    };
    for (std::size_t at = 0; at < last; at += kWord) {
        if (differs(at)) {
            return false;
        }
    }
    return !differs(last);
}

/// Inserts the entries of a data line that arrives in pieces.
class EntryReader {
  public:
    explicit EntryReader(ConstraintIndex& index) : index_(&index) {}

    /// Inserts the whole entries at the head of the piece; answers what is left behind them.
    std::string_view read(std::string_view piece) {
        std::string_view key;
        for (std::string_view rest = piece; take_field(rest, key, kFieldEnd); rest = piece) {
            const std::size_t before = piece.size();
            read_run({piece.data(), key.size() + 1}, piece);
            if (piece.size() == before) {
                break;
            }
        }
        return piece;
    }

  private:
    /// Takes the entries off that begin with the key and its "@". A file holds the entries of a key in a row,
    /// so that only the first of them needs to be looked for.
    void read_run(std::string_view key, std::string_view& piece) {
        std::uint32_t group = 0;
        std::uint32_t option = 0;
        std::uint32_t choice = 0;
        auto id = ConstraintIndex::kNoKey;
        bool first = true;
        while (starts_with(piece, key)) {
            std::string_view rest = piece.substr(key.size());
            if (!take_positions(rest, {group, option, choice})) {
                return;
            }
            piece = rest;
            const x_constraints place{static_cast<std::uint16_t>(group), static_cast<std::uint16_t>(option),
                                      static_cast<std::uint16_t>(choice)};
            if (!first) {
                index_->insert(id, place);
            } else if (key.size() > 1) {
                id = index_->insert(key.substr(0, key.size() - 1), place);
            }
            first = false;
        }
    }

    ConstraintIndex* index_;
};

/// Reads the rest of the stream's line, and no further, piece by piece: a line may be many megabytes long.
void read_entries(std::istream& stream, ConstraintIndex& index) {
    EntryReader reader(index);
    std::size_t room = kPieceBytes;
    auto buffer = std::make_unique_for_overwrite<char[]>(room);
    std::size_t left = 0; // of an entry that is not whole yet
    for (bool more = true; more;) {
        stream.getline(&buffer[left], static_cast<std::streamsize>(room - left), kLineEnd);
        const auto taken = static_cast<std::size_t>(stream.gcount());
        const bool ended = stream.good(); // and the line's end taken
        more = stream.fail() && !stream.eof() && !stream.bad() && taken > 0;
        if (more) {
            stream.clear();
        }
        const std::size_t size = left + taken - (ended ? 1 : 0);
        const std::string_view rest = reader.read({buffer.get(), size});
        left = rest.size();
        if (left + 1 < room) {
            std::copy(rest.begin(), rest.end(), buffer.get());
        } else {
            auto larger = std::make_unique_for_overwrite<char[]>(2 * room);
            std::copy(rest.begin(), rest.end(), larger.get());
            buffer = std::move(larger);
            room *= 2;
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
            read_entries(stream, *object.index);
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
    const std::uintmax_t size = std::filesystem::file_size(path, unreadable);
    if (unreadable) {
        return 1;
    }
    const auto buffer_size = static_cast<std::size_t>(std::min(size + 1, kReadBytes));
    const auto buffer = std::make_unique_for_overwrite<char[]>(buffer_size);
    std::ifstream file;
    file.rdbuf()->pubsetbuf(buffer.get(), static_cast<std::streamsize>(buffer_size));
    file.open(path, std::ios::binary);
    if (!file.is_open()) {
        return 1;
    }
    CQuickXPPD reader(index, std::string(sectionBase) + (panther ? "Panther" : "Tiger"));
    index->reserve(index->size() + static_cast<std::size_t>(size / kUsualEntryBytes));
    file >> reader;
    return 0;
}

} // namespace specialpages

#include "ppd/CQuickXPPD.h"

#include "platform/foundation/numbers.h"
#include "ppd/cache_fields.h"
#include "ppd/ppd_access.h"
#include "support/settings_access.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <ext/stdio_filebuf.h>
#include <fcntl.h>
#include <fstream>
#include <istream>
#include <memory>
#include <ostream>
#include <sys/stat.h>
#include <utility>

namespace specialpages {

namespace {

using cache_fields::kFieldEnd;
constexpr char kLineEnd = '\n';
/// How much of a data line is looked at at a time, longer entries apart.
constexpr std::size_t kPieceBytes = 16'384;
/// How much of a cache file is read at a time.
constexpr std::size_t kReadBytes = 65'536;
/// An entry of a cache file is seldom shorter.
constexpr std::size_t kUsualEntryBytes = 20;

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

/// The three positions at the head of the source; a size of 0 when they are not whole. A field that is no
/// number counts as 0, and a number is cut to 16 bits.
cache_fields::ReadPositions read_positions(std::string_view source) {
    if (source.size() >= cache_fields::kReadable) {
        const auto plain = cache_fields::read_plain_positions(source.data());
        if (plain.size != 0) {
            return plain;
        }
    }
    std::array<std::uint16_t, 3> positions{};
    std::string_view rest = source;
    for (std::uint16_t& position : positions) {
        std::string_view field;
        if (!take_field(rest, field, kFieldEnd)) {
            return {};
        }
        position = static_cast<std::uint16_t>(platform::int_value(field));
    }
    return {packed(positions[0], positions[1], positions[2]), source.size() - rest.size()};
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
        std::string_view rest = piece.substr(key.size());
        const auto [first, size] = read_positions(rest);
        if (size == 0) {
            return;
        }
        rest.remove_prefix(size);
        auto id = ConstraintIndex::kNoKey;
        if (key.size() > 1) {
            id = index_->insert(key.substr(0, key.size() - 1), unpacked(first));
        }
        const char* at = rest.data();
        const char* const end = at + rest.size();
        const std::size_t readable = key.size() + cache_fields::kReadable;
        while (static_cast<std::size_t>(end - at) >= readable && cache_fields::same_text(at, key)) {
            const auto plain = cache_fields::read_plain_positions(at + key.size());
            if (plain.size == 0) {
                break;
            }
            index_->insert(id, unpacked(plain.place));
            at += key.size() + plain.size;
        }
        piece = {at, static_cast<std::size_t>(end - at)};
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
    // A pipe would be waited for without O_NONBLOCK, and a device might never end.
    const int descriptor = open(attribute->value, O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (descriptor < 0) {
        return 1;
    }
    struct stat status {};
    const bool plain = fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    const auto size = plain ? static_cast<std::size_t>(status.st_size) : 0;
    // The buffer owns the descriptor, and closes it.
    __gnu_cxx::stdio_filebuf<char> buffer(descriptor, std::ios::in | std::ios::binary,
                                          std::min(size + 1, kReadBytes));
    if (!plain) {
        return 1;
    }
    std::istream file(&buffer);
    CQuickXPPD reader(index, std::string(sectionBase) + (panther ? "Panther" : "Tiger"));
    index->reserve(index->size() + size / kUsualEntryBytes);
    file >> reader;
    return 0;
}

} // namespace specialpages

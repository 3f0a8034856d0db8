// Attribute and number readers, and the unit conversions, over arbitrary text. The input's lines are
// attribute names, specs and values in turn; its first line is also every text that is converted.

#include "ppd/ppd_access.h"
#include "support/leading_number.h"
#include "support/units.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace specialpages;

void check(bool holds) {
    if (!holds) {
        std::abort();
    }
}

template <std::size_t Size>
void put(char (&field)[Size], std::string_view text) {
    // The last byte is filled too: a field without a terminator must not be read past its end.
    const std::string_view head = text.substr(0, Size);
    std::copy(head.begin(), head.end(), field);
}

std::vector<std::string> lines_of(std::string_view input) {
    std::vector<std::string> lines(1);
    for (const char byte : input) {
        if (byte == '\n') {
            lines.emplace_back();
        } else {
            lines.back().push_back(byte);
        }
    }
    return lines;
}

void check_lengths(const std::string& text) {
    const std::int32_t tenths = GetMillimetreFromStr(text);
    check(ConvertFloatStrToInt(ConvertIntToFloatStr(tenths)) == tenths);
    check(GetIntegerLength(tenths) >= 1 && GetIntegerLength(tenths) <= 11);
    ConvertFloatStrToInt(text);

    const std::string inches = TransformMillimetreToInchs(text).value();
    check(inches.size() >= 4 && inches[inches.size() - 3] == '.');
    check(inches.find_first_not_of("0123456789.") == std::string::npos);

    for (const std::int32_t type : {kTransformInches, kTransformMillimetres}) {
        for (const std::int32_t decimals : {-1, 0, 1, 2, 40}) {
            std::string out;
            const std::int32_t value = TransformPointByType(&out, tenths, decimals, type);
            check(type == kTransformInches || value % 10 == 0);
            check(std::count(out.begin(), out.end(), '.') == (decimals > 0 ? 1 : 0));
            out.erase(std::remove(out.begin(), out.end(), '.'), out.end());
            check(out == std::to_string(value));
        }
    }
}

void check_columns(const std::string& text) {
    const std::int32_t columns = GetStringLength(text);
    // The one count ends at a zero byte, the other one does not.
    check(GetUTF8StringLength(text) <= GetStringLength(text.substr(0, text.find('\0'))));
    check(GetStringPointIndex(text) >= 1);
    check(GetStringPointCount(text) >= 0);
    for (const std::int32_t limit : {-1, 0, 1, 2, 3, 7, 20}) {
        const std::string head = GetShortenString(text, limit);
        check(text.starts_with(head));
        check(GetStringLength(head) <= std::max(limit, 0));
        check(columns > limit || columns == 0 || head == text);
    }
}

void check_pieces(const std::string& text) {
    std::vector<std::string> pieces;
    getStringBySeparator(pieces, text, ',');
    std::size_t bytes = 0;
    for (const std::string& piece : pieces) {
        check(piece.find_first_of(std::string_view(",\n\0", 3)) == std::string::npos);
        bytes += piece.size();
    }
    check(bytes <= text.size());

    std::string decoded = text;
    numstrtochar(decoded, static_cast<std::int32_t>(text.size() / 2));
    check(decoded.size() <= text.size());
    std::string filtered = text;
    filterHeadZero(filtered);
    check(text.ends_with(filtered) && !filtered.starts_with('0'));
    check(leading_integer(text).consumed <= text.size());
    check(getIntFromString(text) >= 0);
}

void check_attributes(const std::vector<std::string>& lines) {
    std::deque<ppd_attr_t> attributes;
    std::deque<std::string> values;
    std::vector<ppd_attr_t*> pointers;
    for (std::size_t line = 0; line < lines.size(); line += 3) {
        ppd_attr_t& attribute = attributes.emplace_back();
        put(attribute.name, lines[line]);
        if (line + 1 < lines.size()) {
            put(attribute.spec, lines[line + 1]);
        }
        if (line + 2 < lines.size()) {
            attribute.value = values.emplace_back(lines[line + 2]).data();
        }
        pointers.push_back(&attribute);
    }
    ppd_file_t ppd{};
    ppd.num_attrs = static_cast<int>(pointers.size());
    ppd.attrs = pointers.data();

    for (const std::string& line : lines) {
        const char* name = line.c_str();
        const ppd_attr_t* found = ppdFindAttr_ALT(&ppd, name);
        check(CDFKeyExist(&ppd, name) == (found != nullptr));
        check(ppdFindAttr_ALT_SPEC(&ppd, name, "") == found);
        if (found == nullptr || found->value == nullptr) {
            check(CheckIfPPDKeywordSupported(&ppd, name, "") == 0);
            check(GetSorlundPWMiniIntValueFromPPD(&ppd, name) == -1);
            check(GetMBMaxNumberFromPPD(&ppd, name) == 0);
        } else {
            check(CheckIfPPDKeywordSupported(&ppd, name, found->value) == 1);
            GetSorlundPWMiniIntValueFromPPD(&ppd, name);
            const std::int32_t mailboxes = GetMBMaxNumberFromPPD(&ppd, name);
            check(mailboxes >= 0 && mailboxes <= 999);
        }
        const std::string fixed = FixPPDKeywordAccordingToType(&ppd, line);
        check(fixed.size() == std::min<std::size_t>(line.size(), 99));
        check(fixed == line.substr(0, 99) ||
              (fixed.starts_with("NV") && fixed.substr(2) == line.substr(2, 97)));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::vector<std::string> lines = lines_of(input);
    check_lengths(lines.front());
    check_columns(lines.front());
    check_pieces(std::string(input));
    check_attributes(lines);
    return 0;
}

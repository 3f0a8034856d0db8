#include "cli/streams.h"

#include "host/HostError.h"

#include <algorithm>
#include <array>
#include <istream>
#include <ostream>

namespace specialpages::cli {

using host::ErrorCode;
using host::HostError;

namespace {
constexpr const char* kStandardInput = "standard input";
}

std::string read_all(std::istream& in, std::size_t max_bytes) {
    std::string bytes;
    std::array<char, 65536> block{};
    while (in.read(block.data(), static_cast<std::streamsize>(block.size())) || in.gcount() > 0) {
        bytes.append(block.data(), static_cast<std::size_t>(in.gcount()));
        if (bytes.size() > max_bytes) {
            throw HostError(ErrorCode::input, kStandardInput,
                            "expected at most " + std::to_string(max_bytes) + " bytes");
        }
    }
    if (in.bad()) {
        throw HostError(ErrorCode::input, kStandardInput, "cannot be read");
    }
    return bytes;
}

std::optional<Line> read_line(std::istream& in, std::size_t max_bytes) {
    using Traits = std::istream::traits_type;
    std::streambuf* const buffer = in.rdbuf();
    Line line;
    bool any = false;
    for (auto c = buffer->sbumpc(); !Traits::eq_int_type(c, Traits::eof()); c = buffer->sbumpc()) {
        any = true;
        if (Traits::to_char_type(c) == '\n') {
            return line;
        }
        if (line.text.size() < max_bytes) {
            line.text.push_back(Traits::to_char_type(c));
        } else {
            line.cut = true;
        }
    }
    if (!any) {
        return std::nullopt;
    }
    return line;
}

void flush_results(std::ostream& out) {
    out.flush();
    if (!out) {
        throw HostError(ErrorCode::other, "standard output", "cannot be written");
    }
}

std::string printable(std::string text) {
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) == 0x7F; },
        '?');
    return text;
}

} // namespace specialpages::cli

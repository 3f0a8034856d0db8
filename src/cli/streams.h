// The three streams of a command, and texts and lines read from them with a bound.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>

namespace specialpages::cli {

/// Results go to `out`, messages and logs to `err`.
struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
    bool errIsTerminal = false; ///< somebody watches `err`
};

/// The name by which a file argument means standard input or output.
inline constexpr const char* kStandardStream = "-";

/// Everything up to the end. HostError (input) when it is more than `max_bytes` or reading fails.
std::string read_all(std::istream& in, std::size_t max_bytes);

struct Line {
    std::string text; ///< without its line end
    bool cut = false; ///< longer than the bound: only its head is kept, the rest was skipped
};
/// The next line; a last line without a line end counts. Empty optional at the end.
std::optional<Line> read_line(std::istream& in, std::size_t max_bytes);

/// Hands everything written on. HostError (other) when some of it could not be written.
void flush_results(std::ostream& out);

/// The text with every control character shown as "?", so that it stays in its line of a table.
std::string printable(std::string text);

} // namespace specialpages::cli

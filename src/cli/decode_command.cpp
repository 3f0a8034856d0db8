#include "cli/commands.h"
#include "cli/decode_value.h"
#include "host/HostError.h"

#include <ostream>

namespace specialpages::cli {

namespace {
constexpr std::size_t kMaxLineBytes = std::size_t{1024} * 1024;
}

void decode_command(const std::vector<std::string>& values, Streams streams) {
    for (std::size_t i = 0; i < values.size(); ++i) {
        streams.out << decode_value(values[i], "value " + std::to_string(i + 1), host::ErrorCode::usage)
                    << '\n';
    }
    if (!values.empty()) {
        return;
    }
    for (long number = 1; const auto line = read_line(streams.in, kMaxLineBytes); ++number) {
        const std::string place = host::place_of_line("standard input", number);
        if (line->cut) {
            throw host::HostError(host::ErrorCode::input, place,
                                  "expected at most " + std::to_string(kMaxLineBytes) + " bytes");
        }
        streams.out << decode_value(line->text, place, host::ErrorCode::input) << '\n';
    }
}

} // namespace specialpages::cli

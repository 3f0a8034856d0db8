// Any bytes as a localised table. What is accepted must be well-formed text, and must come back the same
// after writing.

#include "platform/foundation/strings_table.h"
#include "platform/foundation/text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace specialpages::platform;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    StringsError error;
    const auto first = parse_strings(bytes, &error);
    if (!first) {
        const auto breaks =
            std::count_if(bytes.begin(), bytes.end(), [](char c) { return c == '\n' || c == '\r'; });
        require(!error.message.empty() && error.line >= 1 && error.line <= 1 + breaks);
        return 0;
    }
    for (const auto& [key, value] : *first) {
        require(is_valid_utf8(key) && is_valid_utf8(value));
    }
    const std::string written = write_strings(*first);
    const auto second = parse_strings(written);
    require(second && *second == *first && write_strings(*second) == written);
    return 0;
}

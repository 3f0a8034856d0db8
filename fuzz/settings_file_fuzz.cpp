// Settings files, in both forms: whatever is read can be written, and reading that gives the same settings
// and, written again, the same bytes. Whatever is refused is refused as bad input.

#include "host/HostError.h"
#include "host/settings_file.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace {

using namespace specialpages;

void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "settings_file_fuzz: %s\n", what);
        std::abort();
    }
}

std::optional<platform::PrintSettings> read(std::string_view bytes, host::SettingsFormat format) {
    try {
        return host::parse_settings(bytes, format, "input");
    } catch (const host::HostError& error) {
        require(error.code() == host::ErrorCode::input, "refused, but not as input");
        require(error.place().starts_with("input"), "refused without a place");
        require(!error.detail().empty(), "refused without a reason");
        return std::nullopt;
    }
}

void check(std::string_view bytes, host::SettingsFormat format) {
    const auto settings = read(bytes, format);
    if (!settings) {
        return;
    }
    const std::string written = host::write_settings(*settings, format);
    const auto again = read(written, format);
    require(again.has_value(), "what was written is not read back");
    const auto& before = settings->entries();
    const auto& after = again->entries();
    require(before.size() == after.size(), "another number of entries is read back");
    for (std::size_t i = 0; i < before.size(); ++i) {
        require(before[i].key == after[i].key && before[i].value == after[i].value,
                "another entry is read back");
    }
    require(host::write_settings(*again, format) == written, "other bytes are written");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    check(bytes, host::SettingsFormat::json);
    check(bytes, host::SettingsFormat::propertyList);
    return 0;
}

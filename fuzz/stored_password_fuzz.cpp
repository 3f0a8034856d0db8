// Any text as a stored password: it is refused with a status, or gives a text that, where it is one that can
// be stored, is stored and read as itself. And any bytes as a password: refused, too long, or read back as
// their first columns.

#include "support/stored_password.h"
#include "support/units.h"

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

void check_stored(std::string_view plain) {
    const auto stored = specialpages::encipher_password(plain, specialpages::kTicketCipherBytes);
    if (stored.status != 0 || !stored.text || plain.empty()) {
        require(stored.status == 0 || !stored.text);
        return;
    }
    require(stored.text->size() <= specialpages::kMaxStoredPasswordBytes);
    require(stored.text->find('\0') == std::string::npos);
    const auto back = specialpages::decipher_password(*stored.text);
    require(back.status == 0 && back.text.has_value());
    std::string_view kept =
        plain.substr(0, static_cast<std::size_t>(specialpages::GetUTF8StringLength(plain)));
    kept = kept.substr(0, std::min(kept.find('\0'), kept.size()));
    require(back.text == kept);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const auto plain = specialpages::decipher_password(text);
    require(plain.text.has_value() == (plain.status == 0));
    if (plain.text) {
        require(plain.text->size() < size && plain.text->find('\0') == std::string::npos);
        check_stored(*plain.text);
    }
    check_stored(text);
    return 0;
}

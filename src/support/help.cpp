#include "support/help.h"

#include "platform/foundation/Bundle.h"
#include "platform/foundation/text.h"
#include "platform/services/help_viewer.h"
#include "support/identifiers.h"

namespace specialpages {

namespace {

/// The name's longest head of at most kMaxFullResourceNameUnits UTF-16 units that ends at a character
/// boundary.
std::string bounded_name(const std::string& name) {
    const auto units = platform::utf16_from_utf8(name);
    if (!units || units->size() <= kMaxFullResourceNameUnits) {
        return name;
    }
    std::size_t kept = kMaxFullResourceNameUnits;
    if (((*units)[kept - 1] & 0xFC00) == 0xD800) {
        --kept;
    }
    return platform::utf8_from_utf16(std::u16string_view(*units).substr(0, kept));
}

} // namespace

std::optional<std::string> GetAppResourceName(std::optional<std::string_view> text, std::int32_t part) {
    if (!text) {
        return std::nullopt;
    }
    const std::size_t hyphen = text->find('-');
    if (hyphen == std::string_view::npos) {
        return std::nullopt;
    }
    std::string_view name;
    if (part == 0) {
        name = text->substr(0, hyphen);
    } else if (part == 1) {
        name = text->substr(hyphen + 1);
    }
    if (!platform::is_valid_utf8(name)) {
        return std::nullopt;
    }
    return std::string(platform::utf8_prefix(name, kMaxResourceNameBytes));
}

std::optional<std::string> GetAppFullResourceName(const std::optional<std::string>& name, std::int32_t kind,
                                                  std::string_view first, std::string_view second) {
    if (!name) {
        return std::nullopt;
    }
    if (kind == 0) {
        return bounded_name(std::string(first) + *name);
    }
    if (kind == 1) {
        return bounded_name(std::string(second) + *name);
    }
    return bounded_name(*name);
}

platform::OSStatus RegisterMyHelpBook() {
    const auto bundle = GetAppBundleRef();
    return bundle == nullptr ? platform::fnfErr
                             : platform::AHRegisterHelpBook(bundle->CFBundleCopyBundleURL());
}

platform::OSStatus GotoHelpPage(const platform::Bundle* bundle, std::string_view page,
                                std::string_view anchor, std::string_view bookTitleKey) {
    if (bundle == nullptr) {
        return platform::fnfErr;
    }
    const std::string book = bundle->localizedStringForKey(bookTitleKey, kNoTranslation, {});
    return platform::AHGotoPage(platform::utf8_prefix(book, kMaxHelpBookNameBytes), page, anchor);
}

} // namespace specialpages

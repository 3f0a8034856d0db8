#include "support/help.h"

#include "platform/foundation/Bundle.h"
#include "platform/foundation/atomic_file.h"
#include "platform/foundation/log.h"
#include "platform/foundation/property_list.h"
#include "platform/foundation/text.h"
#include "platform/services/help_viewer.h"
#include "support/identifiers.h"

#include <filesystem>
#include <system_error>

namespace specialpages {

namespace {

using platform::PropertyList;

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

/// Whether the first place of a registered book is inside of a language folder.
bool is_stale(const PropertyList& book) {
    const auto* places = std::get_if<PropertyList::Array>(&book.value);
    const PropertyList* url = places == nullptr || places->empty() ? nullptr : places->front().find("url");
    return url != nullptr && url->text() != nullptr && url->text()->find(".lproj") != std::string::npos;
}

/// Takes a stale book out of the help preferences; false, and nothing is changed, when there is none.
bool remove_stale_book(PropertyList& list, std::string_view identifier) {
    PropertyList* books = list.find("RegisteredBooks");
    const PropertyList* book = books == nullptr ? nullptr : books->find(identifier);
    if (book == nullptr || !is_stale(*book)) {
        return false;
    }
    books->remove(identifier);
    PropertyList* order = list.find("RegistrationOrder");
    if (auto* entries = order == nullptr ? nullptr : std::get_if<PropertyList::Array>(&order->value)) {
        std::erase_if(*entries, [identifier](const PropertyList& entry) {
            return entry.text() != nullptr && *entry.text() == identifier;
        });
    }
    return true;
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

std::optional<std::string> NSStringCreateWithCFString(std::optional<std::string_view> text) {
    if (!text || !platform::is_valid_utf8(*text)) {
        return std::nullopt;
    }
    const std::string_view copied = platform::utf8_prefix(*text, kMaxCopiedTextBytes);
    return std::string(copied.substr(0, copied.find('\0')));
}

platform::OSStatus RegisterMyHelpBook() {
    const auto bundle = GetAppBundleRef();
    return bundle == nullptr ? platform::fnfErr
                             : platform::AHRegisterHelpBook(bundle->CFBundleCopyBundleURL());
}

void RegisterHelpBook(const platform::Bundle* bundle) {
    if (bundle != nullptr) {
        platform::AHRegisterHelpBook(bundle->CFBundleCopyBundleURL());
    }
}

void RemoveHelpCacheForBundleID(std::optional<std::string_view> identifier) {
    const auto file = platform::help_preferences_file();
    std::error_code failed;
    if (!identifier || !std::filesystem::exists(file, failed)) {
        return;
    }
    const auto bytes = platform::read_file(file, nullptr, platform::kMaxPropertyListBytes);
    auto list = bytes ? platform::parse_property_list(*bytes) : std::nullopt;
    if (!list || !std::holds_alternative<PropertyList::Dictionary>(list->value)) {
        platform::NSLog("Illegal Property List.");
        return;
    }
    // What has been read is a legal list, and stays one when entries go.
    if (remove_stale_book(*list, *identifier)) {
        const std::string reason =
            platform::write_file_atomically(file, platform::write_property_list(*list));
        if (!reason.empty()) {
            platform::NSLog("SpecialPagesPDE : " + reason);
        }
    }
}

platform::OSStatus GotoHelpPage(const platform::Bundle* bundle, std::string_view page,
                                std::string_view anchor, std::string_view bookTitleKey) {
    if (bundle == nullptr) {
        return platform::fnfErr;
    }
    const std::string_view key = platform::utf8_prefix(bookTitleKey, kMaxHelpBookKeyBytes);
    return platform::AHGotoPage(bundle->localizedStringForKey(key, kNoTranslation, {}), page, anchor);
}

void GotoHelpPage(const platform::Bundle* bundle, std::string_view page, std::string_view anchor) {
    const auto book =
        bundle == nullptr ? std::nullopt : bundle->objectForInfoDictionaryKey("CFBundleHelpBookName");
    if (book) {
        platform::AHGotoPage(*book, page, anchor);
    }
}

} // namespace specialpages

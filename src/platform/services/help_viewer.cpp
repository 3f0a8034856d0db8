#include "platform/services/help_viewer.h"

#include "platform/foundation/Bundle.h"
#include "platform/foundation/atomic_file.h"
#include "platform/foundation/property_list.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <utility>

namespace specialpages::platform {

namespace {

namespace fs = std::filesystem;

HelpOpener& current_opener() {
    static HelpOpener opener;
    return opener;
}

/// RFC 8089 URL of an absolute folder, with a slash at the end.
std::string folder_url(const fs::path& folder) {
    constexpr std::string_view kPlain = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
    constexpr std::string_view kHex = "0123456789ABCDEF";
    std::string url = "file://";
    for (const char c : folder.string()) {
        const auto byte = static_cast<unsigned char>(c);
        if (kPlain.find(c) != std::string_view::npos) {
            url += c;
        } else {
            url.append(1, '%').append(1, kHex[byte / 16U]).append(1, kHex[byte % 16U]);
        }
    }
    return url + "/";
}

/// The folder that the book is registered by: the English one, or else the one that serves all languages.
std::optional<fs::path> help_folder(const Bundle& bundle) {
    for (const char* name : {"en.lproj", "Help"}) {
        std::error_code failed;
        if (fs::path folder = bundle.CFBundleCopyBundleURL() / name; fs::is_directory(folder, failed)) {
            return folder;
        }
    }
    return std::nullopt;
}

/// The help preferences as they stand: empty ones when there is no file yet, an empty optional when the file
/// is something else.
std::optional<PropertyList> read_help_preferences(const fs::path& file) {
    std::error_code failed;
    PropertyList list;
    if (fs::symlink_status(file, failed).type() != fs::file_type::not_found) {
        const auto bytes = read_file(file, nullptr, kMaxPropertyListBytes);
        auto read = bytes ? parse_property_list(*bytes) : std::nullopt;
        if (!read || !std::holds_alternative<PropertyList::Dictionary>(read->value)) {
            return std::nullopt;
        }
        list = std::move(*read);
    }
    if (list.find("RegisteredBooks") == nullptr) {
        list.set("RegisteredBooks", PropertyList{});
    }
    if (list.find("RegistrationOrder") == nullptr) {
        list.set("RegistrationOrder", PropertyList{PropertyList::Array{}});
    }
    const bool wellShaped =
        std::holds_alternative<PropertyList::Dictionary>(list.find("RegisteredBooks")->value) &&
        std::holds_alternative<PropertyList::Array>(list.find("RegistrationOrder")->value);
    return wellShaped ? std::optional(std::move(list)) : std::nullopt;
}

bool stands_registered(const PropertyList& books, const std::string& identifier, const std::string& url) {
    const PropertyList* book = books.find(identifier);
    const auto* places = book == nullptr ? nullptr : std::get_if<PropertyList::Array>(&book->value);
    const PropertyList* first = places == nullptr || places->empty() ? nullptr : places->front().find("url");
    return first != nullptr && first->text() != nullptr && *first->text() == url;
}

void register_book(PropertyList& list, const std::string& identifier, const std::string& url) {
    PropertyList place;
    place.set("url", PropertyList{url});
    list.find("RegisteredBooks")->set(identifier, PropertyList{PropertyList::Array{std::move(place)}});
    auto& order = std::get<PropertyList::Array>(list.find("RegistrationOrder")->value);
    const bool known = std::any_of(order.begin(), order.end(), [&](const PropertyList& entry) {
        return entry.text() != nullptr && *entry.text() == identifier;
    });
    if (!known) {
        order.push_back(PropertyList{identifier});
    }
}

} // namespace

fs::path help_preferences_file() {
    return configuration_directory() / "com.apple.help.plist";
}

OSStatus AHRegisterHelpBook(const fs::path& bundleDirectory) {
    const auto bundle = Bundle::load(bundleDirectory);
    const auto identifier = bundle ? bundle->bundleIdentifier() : std::nullopt;
    const auto folder = bundle ? help_folder(*bundle) : std::nullopt;
    if (!identifier || !folder) {
        return fnfErr;
    }
    const fs::path file = help_preferences_file();
    auto list = read_help_preferences(file);
    if (!list) {
        return ioErr;
    }
    const std::string url = folder_url(*folder);
    if (stands_registered(*list->find("RegisteredBooks"), *identifier, url)) {
        return noErr;
    }
    register_book(*list, *identifier, url);
    return write_file_atomically(file, write_property_list(*list)).empty() ? noErr : ioErr;
}

OSStatus AHGotoPage(std::string_view book, std::string_view page, std::string_view anchor) {
    // A copy, since the opener may put another in its own place while it runs.
    const HelpOpener opener = current_opener();
    return opener ? opener(book, page, anchor) : fnfErr;
}

HelpOpener setHelpOpener(HelpOpener opener) {
    return std::exchange(current_opener(), std::move(opener));
}

} // namespace specialpages::platform

// The help viewer: registers help books in a property list of the user and opens pages by a pluggable opener.
#pragma once

#include "platform/export.h"
#include "platform/status.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace specialpages::platform {

/// The user's help preferences, configuration_directory()/com.apple.help.plist. Its root dictionary holds
/// "RegisteredBooks" (bundle identifier to an array of dictionaries with a "url" text) and
/// "RegistrationOrder" (array of bundle identifiers).
SPECIALPAGES_PLATFORM_API std::filesystem::path help_preferences_file();

/// Registers the help book of the bundle at that directory: the book's entry holds one dictionary whose "url"
/// is the file URL of the bundle's "en.lproj" or plain "Help" folder. A book that stands there with the same
/// URL is left alone, and the file is not written. fnfErr: no bundle or no help folder there; ioErr: the file
/// cannot be written or is no property list (it is then left as it was).
SPECIALPAGES_PLATFORM_API OSStatus AHRegisterHelpBook(const std::filesystem::path& bundleDirectory);

/// Asks the opener to show `page` of the book (its name as the user reads it) at `anchor` (may be empty).
/// fnfErr without an opener; otherwise the opener's status.
SPECIALPAGES_PLATFORM_API OSStatus AHGotoPage(std::string_view book, std::string_view page,
                                              std::string_view anchor);

using HelpOpener =
    std::function<OSStatus(std::string_view book, std::string_view page, std::string_view anchor)>;
/// Sets who opens pages (null: nobody) and answers the one before.
SPECIALPAGES_PLATFORM_API HelpOpener setHelpOpener(HelpOpener opener);

} // namespace specialpages::platform

// The pane's help book, and the text that names a device's resources ("nib suffix-help suffix").
#pragma once

#include "platform/status.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages::platform {
class Bundle;
}

namespace specialpages {

/// Longest resource name, in bytes; longer ones are cut at a character boundary.
inline constexpr std::size_t kMaxResourceNameBytes = 254;
/// Longest name with its prefix, in UTF-16 units; longer ones are cut at a character boundary.
inline constexpr std::size_t kMaxFullResourceNameUnits = 255;

/// Part 0: what stands before the first "-"; part 1: what stands after it; any other part: the empty text.
/// Null when there is no text or no "-" in it, or when the part is not UTF-8.
std::optional<std::string> GetAppResourceName(std::optional<std::string_view> text, std::int32_t part);

/// Kind 0: `first` and the name; kind 1: `second` and the name; any other kind: the name alone. Null for a
/// null name.
std::optional<std::string> GetAppFullResourceName(const std::optional<std::string>& name, std::int32_t kind,
                                                  std::string_view first, std::string_view second);

/// The text as a text of its own: at most kMaxCopiedTextBytes of it, cut at a character boundary, and up to
/// its first zero byte. Null for a null text and for one that is not UTF-8.
std::optional<std::string> NSStringCreateWithCFString(std::optional<std::string_view> text);
inline constexpr std::size_t kMaxCopiedTextBytes = 255;

/// Registers the help book of the pane's bundle. fnfErr when the bundle is not loaded or has no help;
/// otherwise the help viewer's status.
platform::OSStatus RegisterMyHelpBook();

/// The same for any bundle (may be null), and nobody hears how it went.
void RegisterHelpBook(const platform::Bundle* bundle);

/// Takes a stale registration out of the user's help preferences (platform::help_preferences_file()): the
/// book of that identifier, when the first place of it is inside of a language folder (its "url" holds
/// ".lproj"), and every mention of it in the order of registration. Any other book stays, and so does
/// everything without a file. The file is written whole or not at all. One that is no property list with a
/// dictionary at its top stays as it is, and "Illegal Property List." is logged; one that cannot be written
/// is logged too.
void RemoveHelpCacheForBundleID(std::optional<std::string_view> identifier);

/// Longest key of a help book's name that is looked up, in bytes; of a longer one the head.
inline constexpr std::size_t kMaxHelpBookKeyBytes = 255;

/// Opens a page of the bundle's help book at the anchor (may be empty). The book's name is the localised text
/// of `bookTitleKey`. fnfErr for a null bundle; otherwise the help viewer's status.
platform::OSStatus GotoHelpPage(const platform::Bundle* bundle, std::string_view page,
                                std::string_view anchor, std::string_view bookTitleKey);

/// The same for a bundle that names its help book itself, under "CFBundleHelpBookName" of its Info.plist.
/// Nothing for a null bundle and for one without such a text.
void GotoHelpPage(const platform::Bundle* bundle, std::string_view page, std::string_view anchor);

} // namespace specialpages

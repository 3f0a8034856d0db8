// The one way in which values reach the print settings, the current printer's identifier, and the system
// version by which the pane tells generations of the system apart. Everything answers statuses or booleans;
// nothing is shown.
#pragma once

#include "platform/print/PrintSession.h"
#include "platform/print/PrintSettings.h"
#include "platform/status.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

struct ppd_file_s;

namespace specialpages {

/// The prefix of every ticket key of this system.
inline constexpr std::string_view kTicketKeyPrefix = "com.norvalen.nb.rtz.printsettings.";

/// Longest ticket value, in UTF-16 units. A longer one is refused with memFullErr, never cut.
inline constexpr std::size_t kMaxTicketUnits = 510;
/// Longest text that SetCStringToTicket takes, in bytes. A longer one is replaced by an empty value.
inline constexpr std::size_t kMaxCStringTicketBytes = 255;

/// Writes one text. Every fullwidth broken bar U+FFE4 becomes "|". paramErr when text, settings or key is
/// missing (a null text or key, an empty key); memFullErr when the text is not UTF-8 or longer than
/// kMaxTicketUnits; nothing is written then. Otherwise the status of the write.
platform::OSStatus SetValueToSettingsWithTicketKeyAndLock(std::optional<std::string_view> text,
                                                          platform::PrintSettings* settings,
                                                          std::optional<std::string_view> key, bool lock);

/// As above for short texts: one longer than kMaxCStringTicketBytes, or not UTF-8, writes an empty value.
/// True when the write's status was 0.
bool SetCStringToTicket(platform::PrintSettings* settings, std::string_view text,
                        std::optional<std::string_view> key, bool lock);

/// Writes the decimal text.
platform::OSStatus SetIntegerValueToSettings(std::int32_t value, platform::PrintSettings* settings,
                                             std::optional<std::string_view> key, bool lock);

/// Appends printer and key, without a separator, to `result` (which should be empty). False, and nothing
/// appended, when one of the three is null.
bool CreateKeyWithCurrentPrinter(std::optional<std::string_view> key, std::optional<std::string_view> printer,
                                 std::string* result);

/// Appends the identifier of the session's printer. 0, or 1 when the string is null or no printer is chosen.
std::int32_t SetPrinterString(const platform::PrintSession* session, std::string* string);

/// A number that the host attached to the session, cut to 32 bits. kPMNoSessionData when there is none.
platform::OSStatus GetTicketFromSession(const platform::PrintSession* session, std::string_view key,
                                        std::int32_t* result);

/// The PPD reference that the host attached under "kPMPPDReference". Its first 32 bits are taken and extended
/// with zeros, so that it is of use in a 32-bit process only; the pane gets its PPD from the host object.
platform::OSStatus GetPPDRefFromSession(const platform::PrintSession* session, ppd_file_s** result);

/// The selectors of Gestalt_ALT, four characters each.
inline constexpr std::uint32_t kGestaltSystemVersion = 0x73797376;       // "sysv"
inline constexpr std::uint32_t kGestaltSystemVersionMajor = 0x73797331;  // "sys1"
inline constexpr std::uint32_t kGestaltSystemVersionMinor = 0x73797332;  // "sys2"
inline constexpr std::uint32_t kGestaltSystemVersionBugFix = 0x73797333; // "sys3"

/// The system version as a hexadecimal-coded number (0x1094 is 10.9.4), computed once from the kernel
/// release; or one of its parts. 0; or -1 for an unknown selector or a null `out`, with a log line.
std::int32_t Gestalt_ALT(std::uint32_t selector, std::int32_t* out);
/// Forgets the computed version, so that the next question reads the kernel release again. For tests.
void ResetGestalt_ALT();
/// kGestaltSystemVersion's answer.
std::int32_t system_version();

/// From this version (10.7) on, the print type stands in the print settings and preferences are neither read
/// nor written.
inline constexpr std::int32_t kVersionWithoutPreferences = 4208;

} // namespace specialpages

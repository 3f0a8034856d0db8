// The print session: which printer the dialog has chosen, and data that the host attaches under keys.
#pragma once

#include "platform/export.h"
#include "platform/status.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace specialpages::platform {

struct Printer {
    std::string identifier; ///< the queue's name, or whatever tells this printer from all others
};

using SessionData = std::variant<std::int64_t, std::vector<std::byte>>;

/// Owned by the host, borrowed by a pane.
struct SPECIALPAGES_PLATFORM_API PrintSession {
    std::optional<Printer> currentPrinter;
    std::map<std::string, SessionData, std::less<>> data;
};

/// The chosen printer in `printer` (owned by the session). paramErr for a null session, kPMNoSessionData and
/// null when none is chosen.
SPECIALPAGES_PLATFORM_API OSStatus PMSessionGetCurrentPrinter(const PrintSession* session,
                                                              const Printer*& printer);
SPECIALPAGES_PLATFORM_API std::string PMPrinterGetID(const Printer& printer);
/// The data in `data` (owned by the session). paramErr for a null session, kPMNoSessionData and null when
/// there is none.
SPECIALPAGES_PLATFORM_API OSStatus PMSessionGetDataFromSession(const PrintSession* session,
                                                               std::string_view key,
                                                               const SessionData*& data);

} // namespace specialpages::platform

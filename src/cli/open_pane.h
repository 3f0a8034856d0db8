// What every command that needs the pane begins with: the PPD opened and marked, the settings read, the
// module loaded and asked for its pane.
#pragma once

#include "host/PrintHost.h"

#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace specialpages::cli {

/// Options that these commands share, as they were typed.
struct PaneOptions {
    std::string ppd;
    std::optional<std::string> settings; ///< none: the job has no settings yet
    std::vector<std::string> marks;      ///< "OPTION=CHOICE", in order
    std::string printer;                 ///< empty: the PPD's model name
    std::string language;                ///< empty: the bundle's own order
};

/// The settings of a file, "-" being standard input (JSON). HostError (input).
platform::PrintSettings read_settings(const std::string& file, std::istream& in);

/// A host with its pane open and not yet restored. HostError: input for a PPD or settings file that cannot be
/// read, and for a PPD that asks for no pane; usage for a choice that cannot be marked, and when two files
/// are "-"; other when the bundle cannot serve the PPD.
std::unique_ptr<host::PrintHost> open_pane(const PaneOptions& options, std::istream& in);

/// The same for a PPD and settings that are there already.
std::unique_ptr<host::PrintHost> open_pane(host::PpdFile ppd, platform::PrintSettings settings,
                                           const std::string& printer, const std::string& language);

} // namespace specialpages::cli

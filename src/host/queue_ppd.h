// The PPD of a queue, from the print server, with a copy in the user's cache that is asked for anew only when
// the server's is younger.
#pragma once

#include "host/PpdFile.h"
#include "host/PrintServer.h"

#include <filesystem>
#include <string>

namespace specialpages::host {

/// $XDG_CACHE_HOME/special-pages/ppd, else $HOME/.cache/special-pages/ppd.
std::filesystem::path ppd_cache_directory();

/// The copy's place: one name for each server and queue.
std::filesystem::path cached_ppd(const std::string& queue);

/// A queue that the server has no PPD of.
class QueueWithoutPpd : public HostError {
    using HostError::HostError;
};

/// The queue's PPD, its defaults marked. A copy of the server's PPD is kept where cached_ppd says, its time
/// of modification being that of the server's answer; a cache that cannot be written, and a copy that is no
/// PPD, are done without. HostError: printer when there is no such queue or no PPD of it (the server tells no
/// difference: QueueWithoutPpd), or when the server cannot be asked; input when it is no PPD.
/// PrintInterrupted.
PpdFile queue_ppd(const std::string& queue, Interrupted interrupted = {});

} // namespace specialpages::host

// Enters a job through the pane's dialogs, each choice as a person would make it.
#pragma once

#include "cli/DialogFace.h"
#include "cli/job_file.h"
#include "platform/toolkit/Window.h"

#include <string>

namespace specialpages::cli {

/// Covers first, then the inserts and the exceptions in their order. `main` is the window that the pane
/// stands in; `file` names the job in messages. HostError: refused, naming the entry and quoting the pane,
/// for what the pane does not allow; input for a paper that the printer does not have. Entries before the one
/// that is refused are in the pane's list then.
void enter_job(const Job& job, const std::string& file, platform::Window& main);

/// Picks the size, color and type that are given in the paper menu of that tag, each unless it stands there
/// already. The window that opens behind a type of tab stock is confirmed as it stands. HostError as above.
void enter_paper_parts(DialogFace& face, platform::Window& dialog, std::int32_t menuTag,
                       const JobPaper& paper, const EntryPlace& place);

} // namespace specialpages::cli

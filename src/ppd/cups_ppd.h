// libcups' own lookups in an open PPD. They are marked deprecated there; this is the one place of the pane
// that calls them.
#pragma once

#include <cups/ppd.h>

namespace specialpages {

/// Null when either argument is null or nothing is found. Keywords are compared without regard to case, as
/// libcups does.
ppd_option_t* cups_find_option(ppd_file_t* ppd, const char* keyword);
ppd_choice_t* cups_find_choice(ppd_option_t* option, const char* choice);
ppd_choice_t* cups_find_marked_choice(ppd_file_t* ppd, const char* keyword);

} // namespace specialpages

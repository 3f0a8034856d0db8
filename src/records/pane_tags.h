// Tags of the views of the main pane, as its nib gives them.
#pragma once

#include "controls/control_tables.h"

namespace specialpages {

inline constexpr ControlTag specialPagesAddCoversButID = 100;
inline constexpr ControlTag specialPagesAddInsertsButID = 101;
inline constexpr ControlTag specialPagesAddExceptionsButID = 102;
inline constexpr ControlTag specialPagesSPSummaryTitleID = 103;
inline constexpr ControlTag specialPagesSPSummaryViewID = 104;
inline constexpr ControlTag specialPagesSPEditButID = 105;
inline constexpr ControlTag specialPagesSPDeleteButID = 106;
inline constexpr ControlTag specialPagesSPDeleteAllButID = 107;
inline constexpr ControlTag specialPagesSPUndoButID = 108;
inline constexpr ControlTag specialPagesSPUpButID = 109;
inline constexpr ControlTag specialPagesSPDownButID = 110;
inline constexpr ControlTag specialPagesAddCoversViewID = 111;
inline constexpr ControlTag specialPagesAddInsertViewID = 112;
inline constexpr ControlTag specialPagesAddExceptionViewID = 113;
inline constexpr ControlTag specialPagesVersionID = 114;
inline constexpr ControlTag specialPagesHelpID = 115;

} // namespace specialpages

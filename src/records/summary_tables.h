// The tables that declare the list of special pages.
#pragma once

#include "controls/control_tables.h"
#include "records/pane_tags.h"

#include <array>

namespace specialpages {

/// The buttons that follow every event of the list, in the order in which they are told. The covers and undo
/// buttons are not among them.
inline constexpr std::array<ControlTag, 7> summaryScrllViewUpdateCtrlArray{
    specialPagesSPEditButID,        specialPagesSPDeleteButID,    specialPagesSPUpButID,
    specialPagesSPDownButID,        specialPagesSPDeleteAllButID, specialPagesAddInsertsButID,
    specialPagesAddExceptionsButID,
};
inline constexpr std::array<ConstraintRow, 1> summaryScrllViewUpdateArray{
    ConstraintRow{summaryScrllViewUpdateCtrlArray}};
inline constexpr ConstraintRecord summaryScrllViewCnstrnInfoPtr{
    .disable = {}, .hide = {}, .update = summaryScrllViewUpdateArray};

/// The list's ticket key is the head of every record's key.
inline constexpr AccessInfo coverOptionLCtrlAccessInfo{
    .ticketKey = "com.norvalen.nb.rtz.printsettings.NPIFCommandTicket", .preferenceKey = nullptr};

} // namespace specialpages

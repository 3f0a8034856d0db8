// Every key under which this pane writes into a job's print settings, and the two under which another pane of
// the print dialog leaves the print type. A key that ends in "_" is completed by a 0-based index; the record
// key takes "_" and the index (record_ticket_key).
#pragma once

#include <string_view>

namespace specialpages {

// The pane's own memory: records by menu index, read back by the pane.
inline constexpr std::string_view kNPIFCommandTicketCount =
    "com.norvalen.nb.rtz.printsettings.NPIFCommandTicketCount";
inline constexpr std::string_view kNPIFCommandTicket = "com.norvalen.nb.rtz.printsettings.NPIFCommandTicket";

// For the print back-end: commands by keyword and size, never read by the pane.
inline constexpr std::string_view kSpecialPageRecordCountTicket =
    "com.norvalen.nb.rtz.printsettings.SpecialPageRecordCountTicket";
inline constexpr std::string_view kNPIFCoverCountTicket =
    "com.norvalen.nb.rtz.printsettings.NPIFCoverCountTicket";
inline constexpr std::string_view kNPIFCoverValueTicket =
    "com.norvalen.nb.rtz.printsettings.NPIFCoverValueTicket_";
inline constexpr std::string_view kNPIFInsertionCountTicket =
    "com.norvalen.nb.rtz.printsettings.NPIFInsertionCountTicket";
inline constexpr std::string_view kNPIFInsertionValueTicket =
    "com.norvalen.nb.rtz.printsettings.NPIFInsertionValueTicket_";
inline constexpr std::string_view kNPIFExceptionCountTicket =
    "com.norvalen.nb.rtz.printsettings.NPIFExceptionCountTicket";
inline constexpr std::string_view kNPIFExceptionValueTicket =
    "com.norvalen.nb.rtz.printsettings.NPIFExceptionValueTicket_";

// Arrays of PPD keywords, one entry a command that has paper of its own.
inline constexpr std::string_view kPageSizeArrayTicket =
    "com.norvalen.nb.rtz.printsettings.pageSizeArrayTicket";
inline constexpr std::string_view kMediaTypeArrayTicket =
    "com.norvalen.nb.rtz.printsettings.mediaTypeArrayTicket";
inline constexpr std::string_view kMediaColorArrayTicket =
    "com.norvalen.nb.rtz.printsettings.mediaColorArrayTicket";

// "1" or "0".
inline constexpr std::string_view kWhetherMediaTypeTabTicket =
    "com.norvalen.nb.rtz.printsettings.whetherMediaTypeTabTicket";
inline constexpr std::string_view kWhetherInterposerTicket =
    "com.norvalen.nb.rtz.printsettings.whetherInterposerTicket";
inline constexpr std::string_view kWhetherMediaSizeA5Ticket =
    "com.norvalen.nb.rtz.printsettings.whetherMediaSizeA5Ticket";

/// In the print settings; only read here.
inline constexpr std::string_view kPrintTypeTicketKey =
    "com.norvalen.nb.rtz.printsettings.PrintTypeTicketKey";
/// In the preferences, with the printer's name before it; only read here.
inline constexpr std::string_view kPrintTypeReference =
    "com.norvalen.nb.rtz.printsettings.PrintTypeReference";

} // namespace specialpages

// The NPIF commands: what the print back-end is told of one special page. A command is a text of fields
// joined by commas, in one of two forms for each kind: with the sheet's paper, or with the interposer's tray
// word in its place. The words come from npif_vocabulary.h.
#pragma once

#include "records/SpecialPageRecord.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

/// How many bytes of a PPD keyword are seen.
inline constexpr std::size_t kMaxNPIFKeywordBytes = 40;

/// The PPD keywords of a record's "pagesize", "pagecolor" and "pagetype"; empty for an index past the
/// option's choices.
struct PaperKeywords {
    std::string size;
    std::string color;
    std::string type;
};

/// What a record at the job's own size needs to know. A "pagesize" at or past the count is such a record.
struct JobPaper {
    std::int32_t PageSizeOptionCount = 0;
    std::int32_t JobPageWidth = 0;  ///< hundredths of a millimetre
    std::int32_t JobPageLength = 0; ///< hundredths of a millimetre
};

struct NPIFCommand {
    std::string text;
    /// What goes to the job's three lists of paper keywords, one entry each. Null adds none: all three for a
    /// sheet from the interposer, the size for a sheet of the job's own size. A keyword that has no word, or
    /// is empty, is an entry all the same.
    std::optional<std::string> size;
    std::optional<std::string> color;
    std::optional<std::string> type;
    bool raisesTab = false;        ///< the media type's word holds "TAB" or "COATING"
    bool raisesA5 = false;         ///< the size's keyword holds "A5"
    bool raisesInterposer = false; ///< the sheet comes from the interposer

    bool operator==(const NPIFCommand&) const = default;
};

// In all three: "interposer" equal to "true" gives the interposer form and no keyword is looked at. A keyword
// or an index without a word gives an empty field. The size "Custom" is measured by "width" and "length".

/// side,1,printing,type,color,x,y or side,0,printing,interposer.
NPIFCommand cover_command(const SpecialPageRecord& record, const PaperKeywords& keywords,
                          const JobPaper& job);

/// 1,page,sheets,color,x,y,type or 0,page,sheets,interposer. The colour comes first here and the type last.
NPIFCommand insertion_command(const SpecialPageRecord& record, const PaperKeywords& keywords,
                              const JobPaper& job);

/// 1,1,1,first,last,sides,type,color,x,y or 0,1,1,first,last,sides,interposer.
NPIFCommand exception_command(const SpecialPageRecord& record, const PaperKeywords& keywords,
                              const JobPaper& job);

/// The fields of a command as the print settings hold it, plain or in slash-decimal form. Empty fields are
/// kept; an empty text has one. Null when the form is malformed.
std::optional<std::vector<std::string>> command_fields(std::string_view stored);

} // namespace specialpages

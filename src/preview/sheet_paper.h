// The paper of a sheet: what it is called, what it looks like and how large it is. The words are those of the
// list's setup column, the names those of the PPD.
#pragma once

#include "preview/paper_colors.h"
#include "records/SpecialPageRecord.h"

#include <cups/ppd.h>

#include <cstdint>
#include <string>

namespace specialpages::platform {
class Bundle;
}

namespace specialpages::preview {

struct SheetPaper {
    std::string text;  ///< "A4, Blue, Thick 1", or the interposer's name; a part without a name is left out
    std::string size;  ///< the size's name alone; empty for a size of one's own and from the interposer
    std::string color; ///< the color's name alone; empty when the printer has no colors
    PaperColor look;
    std::int32_t width = 0;  ///< hundredths of a millimetre; 0 when it is not known
    std::int32_t length = 0; ///< the same
    bool tab = false;        ///< tab stock
    bool interposer = false;

    bool operator==(const SheetPaper&) const = default;
};

/// The paper of a record. An index behind the PPD's sizes stands for the size of the job, as everywhere.
SheetPaper paper_of_record(const SpecialPageRecord& record, ppd_file_t* ppd, const platform::Bundle& bundle);

/// The paper that is marked for the job; a part without a mark is the PPD's default.
SheetPaper paper_of_job(ppd_file_t* ppd, const platform::Bundle& bundle);

} // namespace specialpages::preview

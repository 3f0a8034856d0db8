#include "paper/interposer_tray.h"

#include "ppd/cups_ppd.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_access.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace specialpages {

bool doHideTrayInterposerItem(ppd_file_t* ppd) {
    if (ppd == nullptr) {
        return true;
    }
    if (const ppd_option_t* tray = cups_find_option(ppd, kNXSeparatorsCoversTray)) {
        const std::string_view standard = field_text(tray->defchoice);
        if (standard == "True" || standard == "False") {
            return standard == "False";
        }
    }
    const std::string finisherKey = FixPPDKeywordAccordingToType(ppd, kNXOutputOptionsKey);
    const ppd_choice_t* finisher = cups_find_marked_choice(ppd, finisherKey.c_str());
    return finisher == nullptr ||
           std::find(doHideTrayInterposerItemCheckArray.begin(), doHideTrayInterposerItemCheckArray.end(),
                     field_text(finisher->choice)) == doHideTrayInterposerItemCheckArray.end();
}

ConflictingChoice interposer_conflict(ppd_file_t* ppd) {
    for (const auto& [keyword, choice] : Tray8InterposerConstrainInfo) {
        const std::string fixed = FixPPDKeywordAccordingToType(ppd, keyword);
        const ppd_choice_t* marked = cups_find_marked_choice(ppd, fixed.c_str());
        if (marked != nullptr && field_text(marked->choice) == choice) {
            return {cups_find_option(ppd, fixed.c_str()), marked};
        }
    }
    return {};
}

} // namespace specialpages

#include "ppd/cups_ppd.h"

namespace specialpages {

ppd_option_t* cups_find_option(ppd_file_t* ppd, const char* keyword) {
    return ppd == nullptr || keyword == nullptr ? nullptr : ppdFindOption(ppd, keyword);
}

ppd_choice_t* cups_find_choice(ppd_option_t* option, const char* choice) {
    return option == nullptr || choice == nullptr ? nullptr : ppdFindChoice(option, choice);
}

ppd_choice_t* cups_find_marked_choice(ppd_file_t* ppd, const char* keyword) {
    return ppd == nullptr || keyword == nullptr ? nullptr : ppdFindMarkedChoice(ppd, keyword);
}

} // namespace specialpages

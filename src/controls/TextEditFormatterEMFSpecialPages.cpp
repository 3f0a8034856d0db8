#include "controls/TextEditFormatterEMFSpecialPages.h"

#include "platform/toolkit/Application.h"
#include "support/input_filter.h"
#include "support/units.h"

namespace specialpages {

std::optional<std::string> TextEditFormatterEMFSpecialPages::stringForObjectValue(const std::string& object) {
    return object;
}

bool TextEditFormatterEMFSpecialPages::getObjectValue(std::string& object, const std::string& string,
                                                      std::string* /*errorDescription*/) {
    object = string;
    return true;
}

bool TextEditFormatterEMFSpecialPages::isPartialStringValid(const std::string& partialString,
                                                            std::string& /*newString*/,
                                                            std::string* errorDescription) {
    const std::int64_t columns = GetStringLength(partialString);
    if ((FilterDataPtr == nullptr || validateInput(partialString, *FilterDataPtr)) && columns <= maxlength) {
        return true;
    }
    if (errorDescription != nullptr) {
        *errorDescription = "String too long.";
    }
    platform::Application::shared().NSBeep();
    return false;
}

} // namespace specialpages

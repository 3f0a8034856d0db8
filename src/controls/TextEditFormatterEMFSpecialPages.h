// The formatter of every field with a filter: decides key by key what may stand in the field. It never looks
// at a text that was set by program, and it hands every text on unchanged.
#pragma once

#include "platform/toolkit/TextField.h"

#include <cstdint>

namespace specialpages {

struct TextEditFilterData;

class TextEditFormatterEMFSpecialPages : public platform::Formatter {
  public:
    /// The filter is borrowed; null lets every character through. The limit is in columns.
    TextEditFormatterEMFSpecialPages(const TextEditFilterData* filter, std::uint32_t withMaxlength)
        : FilterDataPtr(filter), maxlength(withMaxlength) {}

    std::optional<std::string> stringForObjectValue(const std::string& object) override;
    bool getObjectValue(std::string& object, const std::string& string,
                        std::string* errorDescription) override;
    /// Whether the filter accepts the text and it has no more columns than the limit. Otherwise the key is
    /// dropped with a beep, and the error says "String too long." whatever the cause was.
    bool isPartialStringValid(const std::string& partialString, std::string& newString,
                              std::string* errorDescription) override;

  protected:
    const TextEditFilterData* FilterDataPtr = nullptr;
    std::uint32_t maxlength = 0;
};

} // namespace specialpages

#include "host/option_encoding.h"

#include <cups/cups.h>

#include <memory>
#include <string_view>

namespace specialpages::host {

namespace {

struct Delete {
    void operator()(ipp_t* ipp) const { ippDelete(ipp); }
};

/// The kinds of text that libcups gives to names which it does not know.
bool is_text(ipp_tag_t tag) {
    return tag == IPP_TAG_NAME || tag == IPP_TAG_TEXT || tag == IPP_TAG_KEYWORD;
}

} // namespace

std::string filter_option(const std::string& name, const std::string& value) {
    constexpr std::string_view kEscaped = " \t\n\\'\"";
    std::string text = name + "=";
    for (const char c : value) {
        if (kEscaped.find(c) != std::string_view::npos) {
            text += '\\';
        }
        text += c;
    }
    return text;
}

bool is_read_back(const std::string& name, const std::string& value) {
    const std::string next = name + "-next"; // another name for sure
    const std::string argument = filter_option(name, value) + " " + next + "=1";
    cups_option_t* options = nullptr;
    const int count = cupsParseOptions(argument.c_str(), 0, &options);
    const char* const read = cupsGetOption(name.c_str(), count, options);
    const char* const readNext = cupsGetOption(next.c_str(), count, options);
    const bool same = count == 2 && read != nullptr && read == value && readNext != nullptr &&
                      std::string_view(readNext) == "1";
    cupsFreeOptions(count, options);
    return same;
}

bool arrives_as_text(const std::string& name, const std::string& value) {
    const std::unique_ptr<ipp_t, Delete> job(ippNew());
    cups_option_t* options = nullptr;
    const int count = cupsAddOption(name.c_str(), value.c_str(), 0, &options);
    cupsEncodeOptions2(job.get(), count, options, IPP_TAG_JOB);
    cupsFreeOptions(count, options);
    ipp_attribute_t* const attribute = ippFirstAttribute(job.get());
    if (attribute == nullptr || ippNextAttribute(job.get()) != nullptr ||
        !is_text(ippGetValueTag(attribute)) || ippGetCount(attribute) != 1) {
        return false;
    }
    const char* const text = ippGetString(attribute, 0, nullptr);
    return text != nullptr && ippGetName(attribute) == name && text == value;
}

} // namespace specialpages::host

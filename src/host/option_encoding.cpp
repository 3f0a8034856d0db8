#include "host/option_encoding.h"

#include <cups/cups.h>

#include <memory>

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

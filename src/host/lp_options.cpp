#include "host/lp_options.h"

#include <string_view>

namespace specialpages::host {

std::string lp_option(const JobOption& option) {
    constexpr std::string_view kEscaped = " \t\n\\'\"{";
    std::string text = option.name + "=";
    for (const char c : option.value) {
        if (kEscaped.find(c) != std::string_view::npos) {
            text += '\\';
        }
        text += c;
    }
    return text;
}

std::string shell_word(const std::string& text) {
    std::string word = "'";
    for (const char c : text) {
        if (c == '\'') {
            word += "'\\''"; // ends the quotation, an apostrophe, a new quotation
        } else {
            word += c;
        }
    }
    return word + "'";
}

std::string lp_arguments(const JobOptions& options) {
    std::string arguments;
    for (const JobOption& option : options) {
        arguments += (arguments.empty() ? "-o " : " -o ") + shell_word(lp_option(option));
    }
    return arguments;
}

} // namespace specialpages::host

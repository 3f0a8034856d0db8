#include "platform/foundation/language_tags.h"

#include <algorithm>
#include <cstddef>

namespace specialpages::platform {

namespace {

constexpr std::size_t kRegionLength = 2;
constexpr std::size_t kScriptLength = 4;

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// One part of a tag in its usual case: "de", "Hant", "AT".
std::string usual_case(std::string_view part, bool isLanguage) {
    std::string text(part);
    std::ranges::transform(text, text.begin(), lower);
    if (!isLanguage && text.size() == kRegionLength) {
        std::ranges::transform(text, text.begin(), upper);
    } else if (!isLanguage && text.size() == kScriptLength) {
        text.front() = upper(text.front());
    }
    return text;
}

std::string usual_tag(std::string_view name) {
    std::string tag;
    for (bool isLanguage = true;; isLanguage = false) {
        const std::size_t end = name.find_first_of("-_");
        tag += usual_case(name.substr(0, end), isLanguage);
        if (end == std::string_view::npos) {
            return tag;
        }
        tag += '-';
        name.remove_prefix(end + 1);
    }
}

} // namespace

std::vector<std::string> language_tags(std::string_view preferred) {
    std::vector<std::string> tags;
    const auto add = [&tags](std::string_view tag) {
        if (!tag.empty() && std::ranges::find(tags, tag) == tags.end()) {
            tags.emplace_back(tag);
        }
    };
    add(preferred);
    const std::string_view name = preferred.substr(0, preferred.find_first_of(".@"));
    add(name);
    std::string tag = usual_tag(name);
    add(tag);
    for (std::size_t end = tag.rfind('-'); end != std::string::npos; end = tag.rfind('-')) {
        tag.resize(end);
        add(tag);
    }
    return tags;
}

} // namespace specialpages::platform

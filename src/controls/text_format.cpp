#include "controls/text_format.h"

namespace specialpages {

namespace {

constexpr std::string_view kNextPlace = "%@";

bool is_numbered_place(std::string_view rest) {
    return rest.size() >= 4 && rest[1] >= '1' && rest[1] <= '9' && rest.substr(2, 2) == "$@";
}

} // namespace

std::string filled_format(std::string_view format, std::initializer_list<std::string_view> texts) {
    const auto textAt = [texts](std::size_t index) {
        return index < texts.size() ? *(texts.begin() + index) : std::string_view{};
    };
    std::string filled;
    std::size_t next = 0;
    while (!format.empty()) {
        std::size_t taken = 1;
        if (format.starts_with(kNextPlace)) {
            filled.append(textAt(next++));
            taken = kNextPlace.size();
        } else if (format.starts_with('%') && is_numbered_place(format)) {
            filled.append(textAt(static_cast<std::size_t>(format[1] - '1')));
            taken = 4;
        } else {
            filled.push_back(format.front());
            taken = format.starts_with("%%") ? 2 : 1;
        }
        format.remove_prefix(taken);
    }
    return filled;
}

} // namespace specialpages

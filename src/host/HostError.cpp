#include "host/HostError.h"

#include <algorithm>
#include <utility>

namespace specialpages::host {

namespace {

std::string sentence(const std::string& place, const std::string& detail) {
    std::string text = place.empty() ? detail : place + ": " + detail;
    std::replace_if(
        text.begin(), text.end(),
        [](char c) { return static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) == 0x7F; },
        '?');
    return text;
}

} // namespace

int exit_code(ErrorCode code) {
    switch (code) {
    case ErrorCode::usage:
    case ErrorCode::input:
        return 2;
    case ErrorCode::refused:
        return 3;
    case ErrorCode::printer:
        return 4;
    case ErrorCode::other:
        return 1;
    }
    return 1;
}

HostError::HostError(ErrorCode code, std::string place, std::string detail)
    : std::runtime_error(sentence(place, detail)), code_(code), place_(std::move(place)),
      detail_(std::move(detail)) {}

std::string place_of_line(const std::string& file, long line) {
    return line < 1 ? file : file + ", line " + std::to_string(line);
}

} // namespace specialpages::host

// Bytes for tests: from and to hexadecimal text, and a log that is kept.
#pragma once

#include "platform/foundation/log.h"
#include "platform/services/cryptography.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace specialpages::test {

inline platform::Bytes from_hex(std::string_view text) {
    platform::Bytes bytes;
    const std::string_view digits = "0123456789abcdef";
    for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
        bytes.push_back(static_cast<std::uint8_t>(digits.find(text[i]) * 16 + digits.find(text[i + 1])));
    }
    return bytes;
}

inline std::string to_hex(std::span<const std::uint8_t> bytes) {
    const std::string_view digits = "0123456789abcdef";
    std::string text;
    for (const std::uint8_t byte : bytes) {
        text.append(1, digits[byte / 16U]).append(1, digits[byte % 16U]);
    }
    return text;
}

inline std::string to_text(std::span<const std::uint8_t> bytes) {
    return {bytes.begin(), bytes.end()};
}

/// The lines that are logged while it lives.
class LoggedLines {
  public:
    LoggedLines()
        : before_(platform::setLogSink([this](std::string_view line) { lines_.emplace_back(line); })) {}
    ~LoggedLines() { platform::setLogSink(std::move(before_)); }
    LoggedLines(const LoggedLines&) = delete;
    LoggedLines& operator=(const LoggedLines&) = delete;
    const std::vector<std::string>& all() const { return lines_; }

  private:
    std::vector<std::string> lines_;
    platform::LogSink before_;
};

} // namespace specialpages::test

// One request of the line protocol: a JSON object whose "do" names what is asked. Everything that a request
// lacks or has of the wrong kind is a RequestError, which becomes its answer.
#pragma once

#include "platform/print/PrintSettings.h"
#include "platform/toolkit/TableView.h"

#include <nlohmann/json.hpp>

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace specialpages::cli {

/// Bounds of a request: bytes of its line, and how deep its values nest.
inline constexpr std::size_t kMaxRequestBytes = std::size_t{1024} * 1024;
inline constexpr int kMaxRequestDepth = 16;

/// Longest text that is typed, in bytes: typing goes key by key, and each key weighs the whole text.
inline constexpr std::size_t kMaxTypedBytes = std::size_t{64} * 1024;

/// Why a request is not carried out, as the answer's "error" says it.
class RequestError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

class DriveRequest {
  public:
    /// RequestError for a text that is no JSON object, or nests too deeply.
    static DriveRequest parse(std::string_view line);

    /// The "id"; null when there is none.
    const nlohmann::ordered_json* id() const { return find("id"); }

    /// The members; RequestError when one is missing or of another kind.
    const std::string& text(const char* name) const;
    std::int32_t integer(const char* name) const;
    /// Empty optional without such a member; null is one, of another kind.
    std::optional<std::int32_t> optionalInteger(const char* name) const;
    /// A text that can be typed: at most kMaxTypedBytes, and without U+0000, which no key has.
    const std::string& typed(const char* name) const;
    platform::RowSet rows(const char* name) const;
    /// A text or array of texts; empty optional for null.
    std::optional<platform::SettingsValue> setting(const char* name) const;

  private:
    explicit DriveRequest(nlohmann::ordered_json object) : object_(std::move(object)) {}
    const nlohmann::ordered_json* find(const char* name) const;
    const nlohmann::ordered_json& member(const char* name, const char* expected) const;

    nlohmann::ordered_json object_;
};

} // namespace specialpages::cli

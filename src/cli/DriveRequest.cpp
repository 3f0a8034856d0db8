#include "cli/DriveRequest.h"

#include <limits>
#include <utility>

namespace specialpages::cli {

using nlohmann::ordered_json;

namespace {

/// How deep the brackets outside of texts nest; more than the bound is not counted on.
int nesting(std::string_view line) {
    int depth = 0;
    int deepest = 0;
    bool inText = false;
    for (std::size_t i = 0; i < line.size() && deepest <= kMaxRequestDepth; ++i) {
        const char c = line[i];
        if (inText) {
            i += c == '\\' ? 1U : 0U;
            inText = c != '"';
        } else if (c == '"') {
            inText = true;
        } else if (c == '{' || c == '[') {
            deepest = std::max(deepest, ++depth);
        } else if (c == '}' || c == ']') {
            --depth;
        }
    }
    return deepest;
}

RequestError unexpected(const char* name, const char* expected) {
    return RequestError(std::string("\"") + name + "\": expected " + expected);
}

/// Texts that print settings carry: U+0000 ends a text on its way to the printer.
const std::string& carried(const std::string& text, const char* name) {
    if (text.find('\0') != std::string::npos) {
        throw unexpected(name, "a text without U+0000");
    }
    return text;
}

} // namespace

DriveRequest DriveRequest::parse(std::string_view line) {
    if (nesting(line) > kMaxRequestDepth) {
        throw RequestError("expected a request that nests at most " + std::to_string(kMaxRequestDepth) +
                           " deep");
    }
    ordered_json object;
    try {
        object = ordered_json::parse(line);
    } catch (const ordered_json::exception& error) {
        throw RequestError(std::string("expected a JSON object: ") + error.what());
    }
    if (!object.is_object()) {
        throw RequestError(std::string("expected a JSON object, found ") + object.type_name());
    }
    return DriveRequest(std::move(object));
}

const ordered_json* DriveRequest::find(const char* name) const {
    const auto found = object_.find(name);
    return found == object_.end() ? nullptr : &*found;
}

const ordered_json& DriveRequest::member(const char* name, const char* expected) const {
    const ordered_json* const found = find(name);
    if (found == nullptr) {
        throw unexpected(name, expected);
    }
    return *found;
}

const std::string& DriveRequest::text(const char* name) const {
    const ordered_json& value = member(name, "a text");
    if (!value.is_string()) {
        throw unexpected(name, "a text");
    }
    return value.get_ref<const std::string&>();
}

std::int32_t DriveRequest::integer(const char* name) const {
    constexpr const char* kExpected = "an integer of 32 bits";
    const ordered_json& value = member(name, kExpected);
    using Limits = std::numeric_limits<std::int32_t>;
    const bool fits = value.is_number_unsigned()
                          ? value.get<std::uint64_t>() <= static_cast<std::uint64_t>(Limits::max())
                          : value.is_number_integer() && value.get<std::int64_t>() >= Limits::min();
    if (!fits) {
        throw unexpected(name, kExpected);
    }
    return value.get<std::int32_t>();
}

std::optional<std::int32_t> DriveRequest::optionalInteger(const char* name) const {
    return find(name) == nullptr ? std::nullopt : std::optional(integer(name));
}

const std::string& DriveRequest::typed(const char* name) const {
    const std::string& keys = carried(text(name), name);
    if (keys.size() > kMaxTypedBytes) {
        throw RequestError("\"" + std::string(name) + "\": expected a text of at most " +
                           std::to_string(kMaxTypedBytes) + " bytes");
    }
    return keys;
}

platform::RowSet DriveRequest::rows(const char* name) const {
    constexpr const char* kExpected = "an array of row numbers from 0";
    const ordered_json& value = member(name, kExpected);
    platform::RowSet rows;
    if (!value.is_array()) {
        throw unexpected(name, kExpected);
    }
    for (const ordered_json& row : value) {
        if (!row.is_number_unsigned()) {
            throw unexpected(name, kExpected);
        }
        rows.insert(row.get<std::size_t>());
    }
    return rows;
}

std::optional<platform::SettingsValue> DriveRequest::setting(const char* name) const {
    constexpr const char* kExpected = "a text, an array of texts, or null";
    const ordered_json& value = member(name, kExpected);
    if (value.is_null()) {
        return std::nullopt;
    }
    if (value.is_string()) {
        return carried(value.get_ref<const std::string&>(), name);
    }
    if (!value.is_array()) {
        throw unexpected(name, kExpected);
    }
    std::vector<std::string> texts;
    for (const ordered_json& element : value) {
        if (!element.is_string()) {
            throw unexpected(name, kExpected);
        }
        texts.push_back(carried(element.get_ref<const std::string&>(), name));
    }
    return texts;
}

} // namespace specialpages::cli

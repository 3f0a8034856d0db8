#include "host/settings_file.h"

#include "host/HostError.h"
#include "platform/foundation/atomic_file.h"
#include "platform/foundation/property_list.h"
#include "platform/foundation/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>
#include <optional>
#include <utility>
#include <vector>

namespace specialpages::host {

namespace {

using nlohmann::ordered_json;
using platform::PrintSettings;
using platform::PropertyList;
using platform::SettingsValue;

constexpr const char* kExpectedValue = "expected a text or an array of texts, found ";

std::string in_quotes(std::string_view key) {
    return '"' + std::string(key) + '"';
}

long line_at(std::string_view bytes, std::size_t position) {
    const std::string_view before = bytes.substr(0, std::min(position, bytes.size()));
    return 1 + static_cast<long>(std::count(before.begin(), before.end(), '\n'));
}

bool is_carried(const std::string& text) {
    return text.find('\0') == std::string::npos && platform::is_valid_utf8(text);
}

/// Walks over the bytes and tells how far it came, so that an error found by the handler has a line.
class CountingIterator {
  public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    CountingIterator(const char* at, std::size_t* passed) : at_(at), passed_(passed) {}
    reference operator*() const { return *at_; }
    CountingIterator& operator++() {
        ++at_;
        ++*passed_;
        return *this;
    }
    CountingIterator operator++(int) {
        CountingIterator old = *this;
        ++*this;
        return old;
    }
    bool operator==(const CountingIterator& other) const { return at_ == other.at_; }

  private:
    const char* at_;
    std::size_t* passed_;
};

/// Takes the events of one settings object. The first thing that does not belong there throws.
class SettingsReader : public nlohmann::json_sax<ordered_json> {
  public:
    SettingsReader(std::string_view bytes, const std::string& name) : bytes_(bytes), name_(name) {}

    PrintSettings read() {
        CountingIterator first(bytes_.data(), &passed_);
        CountingIterator last(bytes_.data() + bytes_.size(), &passed_);
        ordered_json::sax_parse(first, last, this);
        return std::move(settings_);
    }

    bool null() override { return refuse("null"); }
    bool boolean(bool /*value*/) override { return refuse("true or false"); }
    bool number_integer(number_integer_t /*value*/) override { return refuse("a number"); }
    bool number_unsigned(number_unsigned_t /*value*/) override { return refuse("a number"); }
    bool number_float(number_float_t /*value*/, const string_t& /*text*/) override {
        return refuse("a number");
    }
    bool binary(binary_t& /*value*/) override { return refuse("bytes"); }

    bool string(string_t& text) override {
        if (!inObject_) {
            return refuse("a text");
        }
        if (!is_carried(text)) {
            fail("the character U+0000 stands in the value of " + in_quotes(key_));
        }
        if (array_) {
            array_->push_back(std::move(text));
        } else {
            settings_.setValue(key_, std::move(text), false);
        }
        return true;
    }

    bool start_object(std::size_t /*elements*/) override {
        if (inObject_) {
            return refuse("an object");
        }
        inObject_ = true;
        return true;
    }

    bool key(string_t& text) override {
        if (text.empty()) {
            fail("a key is empty");
        }
        if (!is_carried(text)) {
            fail("the character U+0000 stands in the key " + in_quotes(text));
        }
        if (settings_.value(text) != nullptr) {
            fail("the key " + in_quotes(text) + " stands twice");
        }
        key_ = std::move(text);
        return true;
    }

    bool end_object() override { return true; }

    bool start_array(std::size_t /*elements*/) override {
        if (!inObject_ || array_) {
            return refuse("an array");
        }
        array_.emplace();
        return true;
    }

    bool end_array() override {
        settings_.setValue(key_, std::move(*array_), false);
        array_.reset();
        return true;
    }

    bool parse_error(std::size_t position, const std::string& /*lastToken*/,
                     const nlohmann::detail::exception& error) override {
        // The library puts its own number and position in front; the position is given as a line here.
        std::string detail = error.what();
        for (const char* const mark : {"parse error", ": "}) {
            const std::size_t found = detail.find(mark);
            detail.erase(0, found == std::string::npos ? 0 : found + std::string_view(mark).size());
        }
        passed_ = position == 0 ? 0 : position - 1;
        fail("expected JSON: " + detail);
    }

  private:
    // Answers nothing: the declared type is what the handlers answer.
    [[noreturn]] bool refuse(const std::string& found) {
        if (!inObject_) {
            fail("expected an object of settings, found " + found);
        }
        fail(in_quotes(key_) + ": " + (array_ ? "expected texts in the array, found " : kExpectedValue) +
             found);
    }

    [[noreturn]] void fail(const std::string& detail) const {
        throw HostError(ErrorCode::input, place_of_line(name_, line_at(bytes_, passed_)), detail);
    }

    std::string_view bytes_;
    const std::string& name_;
    std::size_t passed_ = 0;
    PrintSettings settings_;
    bool inObject_ = false;
    std::string key_;
    std::optional<std::vector<std::string>> array_;
};

/// The text in a node of a property list. HostError when it is none, or one that is not carried.
std::string property_list_text(PropertyList& node, const std::string& name, const std::string& key,
                               const char* expected) {
    auto* const text = std::get_if<std::string>(&node.value);
    if (text == nullptr) {
        static constexpr std::array<const char*, 7> kKinds{
            "true or false", "a number", "a number", "a text", "data", "an array", "a dictionary"};
        throw HostError(ErrorCode::input, name,
                        in_quotes(key) + ": " + expected + kKinds.at(node.value.index()));
    }
    if (!is_carried(*text)) {
        throw HostError(ErrorCode::input, name, in_quotes(key) + ": expected UTF-8 without U+0000");
    }
    return std::move(*text);
}

PrintSettings parse_property_list_settings(std::string_view bytes, const std::string& name) {
    std::string error;
    auto list = platform::parse_property_list(bytes, &error);
    if (!list) {
        throw HostError(ErrorCode::input, name, "expected an XML property list: " + error);
    }
    auto* const dictionary = std::get_if<PropertyList::Dictionary>(&list->value);
    if (dictionary == nullptr) {
        throw HostError(ErrorCode::input, name, "expected a dictionary of settings");
    }
    PrintSettings settings;
    for (auto& [key, node] : *dictionary) {
        if (key.empty()) {
            throw HostError(ErrorCode::input, name, "a key is empty");
        }
        if (!is_carried(key)) {
            throw HostError(ErrorCode::input, name,
                            in_quotes(key) + ": expected a key in UTF-8 without U+0000");
        }
        if (settings.value(key) != nullptr) {
            throw HostError(ErrorCode::input, name, "the key " + in_quotes(key) + " stands twice");
        }
        if (auto* const array = std::get_if<PropertyList::Array>(&node.value)) {
            std::vector<std::string> texts;
            for (PropertyList& element : *array) {
                texts.push_back(
                    property_list_text(element, name, key, "expected texts in the array, found "));
            }
            settings.setValue(key, std::move(texts), false);
        } else {
            settings.setValue(key, property_list_text(node, name, key, kExpectedValue), false);
        }
    }
    return settings;
}

/// HostError when the entry could not be read back.
void check_entry(const PrintSettings::Entry& entry) {
    const auto check = [&](const std::string& text) {
        if (!is_carried(text)) {
            throw HostError(ErrorCode::other, entry.key,
                            "the value cannot be written: expected UTF-8 without U+0000");
        }
    };
    if (!is_carried(entry.key)) {
        throw HostError(ErrorCode::other, entry.key,
                        "the key cannot be written: expected UTF-8 without U+0000");
    }
    if (const auto* const text = std::get_if<std::string>(&entry.value)) {
        check(*text);
        return;
    }
    for (const std::string& text : std::get<std::vector<std::string>>(entry.value)) {
        check(text);
    }
}

std::string write_json(const PrintSettings& settings) {
    ordered_json object = ordered_json::object();
    // Appended, not looked up: the keys of print settings differ already.
    auto& members = object.get_ref<ordered_json::object_t&>();
    members.reserve(settings.entries().size());
    for (const PrintSettings::Entry& entry : settings.entries()) {
        std::visit(
            [&](const auto& value) {
                members.push_back({entry.key, ordered_json(value)});
            },
            entry.value);
    }
    return object.dump(2) + "\n";
}

std::string write_property_list_settings(const PrintSettings& settings) {
    PropertyList::Dictionary dictionary;
    for (const PrintSettings::Entry& entry : settings.entries()) {
        PropertyList node;
        if (const auto* const text = std::get_if<std::string>(&entry.value)) {
            node.value = *text;
        } else {
            PropertyList::Array array;
            for (const std::string& text : std::get<std::vector<std::string>>(entry.value)) {
                array.push_back(PropertyList{text});
            }
            node.value = std::move(array);
        }
        dictionary.emplace_back(entry.key, std::move(node));
    }
    return platform::write_property_list(PropertyList{std::move(dictionary)});
}

} // namespace

SettingsFormat settings_format(const std::filesystem::path& file) {
    std::string ending = file.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return ending == ".plist" ? SettingsFormat::propertyList : SettingsFormat::json;
}

PrintSettings parse_settings(std::string_view bytes, SettingsFormat format, const std::string& name) {
    if (bytes.size() > kMaxSettingsBytes) {
        throw HostError(ErrorCode::input, name,
                        "expected at most " + std::to_string(kMaxSettingsBytes) + " bytes of settings");
    }
    switch (format) {
    case SettingsFormat::json:
        return SettingsReader(bytes, name).read();
    case SettingsFormat::propertyList:
        return parse_property_list_settings(bytes, name);
    }
    return {};
}

std::string write_settings(const PrintSettings& settings, SettingsFormat format) {
    for (const PrintSettings::Entry& entry : settings.entries()) {
        check_entry(entry);
    }
    switch (format) {
    case SettingsFormat::json:
        return write_json(settings);
    case SettingsFormat::propertyList:
        return write_property_list_settings(settings);
    }
    return {};
}

PrintSettings read_settings_file(const std::filesystem::path& file) {
    std::string error;
    const auto bytes = platform::read_file(file, &error, kMaxSettingsBytes);
    if (!bytes) {
        throw HostError(ErrorCode::input, file.string(), "expected a settings file: " + error);
    }
    return parse_settings(*bytes, settings_format(file), file.string());
}

void write_settings_file(const std::filesystem::path& file, const PrintSettings& settings) {
    const std::string error =
        platform::write_file_atomically(file, write_settings(settings, settings_format(file)));
    if (!error.empty()) {
        throw HostError(ErrorCode::other, file.string(), "cannot be written: " + error);
    }
}

} // namespace specialpages::host

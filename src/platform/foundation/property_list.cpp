#include "platform/foundation/property_list.h"

#include "platform/foundation/property_list_check.h"
#include "platform/foundation/text.h"
#include "platform/foundation/utf8_repair.h"

#include <plist/plist.h>

#include <algorithm>
#include <cstdlib>
#include <locale.h>
#include <memory>
#include <unordered_set>
#include <utility>

namespace specialpages::platform {

namespace {

struct FreePlist {
    void operator()(void* list) const { plist_free(list); }
};
using PlistHandle = std::unique_ptr<void, FreePlist>;

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

/// The library reads and writes reals by the locale; this keeps the calling thread in the C locale.
class CLocale {
  public:
    CLocale() : locale_(::newlocale(LC_ALL_MASK, "C", nullptr)), before_(::uselocale(locale_)) {}
    CLocale(const CLocale&) = delete;
    CLocale& operator=(const CLocale&) = delete;
    ~CLocale() {
        ::uselocale(before_);
        ::freelocale(locale_);
    }

  private:
    locale_t locale_;
    locale_t before_;
};

/// A value of the library as one of ours; empty optional for a kind that we do not hold.
std::optional<PropertyList> from_library(plist_t node);

std::optional<PropertyList> array_from_library(plist_t node) {
    PropertyList::Array array;
    plist_array_iter raw = nullptr;
    plist_array_new_iter(node, &raw);
    const std::unique_ptr<void, FreeMemory> iterator(raw);
    for (;;) {
        plist_t item = nullptr;
        plist_array_next_item(node, raw, &item);
        if (item == nullptr) {
            return PropertyList{std::move(array)};
        }
        auto value = from_library(item);
        if (!value) {
            return std::nullopt;
        }
        array.push_back(std::move(*value));
    }
}

std::optional<PropertyList> dictionary_from_library(plist_t node) {
    PropertyList::Dictionary dictionary;
    plist_dict_iter raw = nullptr;
    plist_dict_new_iter(node, &raw);
    const std::unique_ptr<void, FreeMemory> iterator(raw);
    for (;;) {
        char* rawKey = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, raw, &rawKey, &item);
        const std::unique_ptr<char, FreeMemory> key(rawKey);
        if (item == nullptr) {
            return PropertyList{std::move(dictionary)};
        }
        auto value = from_library(item);
        if (!value || !key || !is_valid_utf8(key.get())) {
            return std::nullopt;
        }
        dictionary.emplace_back(key.get(), std::move(*value));
    }
}

std::optional<PropertyList> text_from_library(plist_t node) {
    std::uint64_t length = 0;
    const char* bytes = plist_get_string_ptr(node, &length);
    // A character reference to half of a surrogate pair comes out as ill-formed UTF-8.
    const std::string_view text(bytes == nullptr ? "" : bytes, static_cast<std::size_t>(length));
    return is_valid_utf8(text) ? std::optional(PropertyList{std::string(text)}) : std::nullopt;
}

PropertyList data_from_library(plist_t node) {
    std::uint64_t length = 0;
    const char* bytes = plist_get_data_ptr(node, &length);
    return PropertyList{bytes == nullptr ? PropertyList::Data{} : PropertyList::Data(bytes, bytes + length)};
}

std::optional<PropertyList> from_library(plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return PropertyList{value != 0};
    }
    case PLIST_UINT: {
        std::uint64_t value = 0;
        plist_get_uint_val(node, &value);
        return PropertyList{static_cast<std::int64_t>(value)};
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return PropertyList{value};
    }
    case PLIST_STRING:
        return text_from_library(node);
    case PLIST_DATA:
        return data_from_library(node);
    case PLIST_ARRAY:
        return array_from_library(node);
    case PLIST_DICT:
        return dictionary_from_library(node);
    default:
        return std::nullopt;
    }
}

/// Text as a property list can carry it: well-formed, and without zero bytes, at which C text ends.
std::string carried_text(std::string_view text) {
    return replace_all(repaired_utf8(text), std::string_view("\0", 1), "\xEF\xBF\xBD");
}

/// Makes the library's value of one of ours; the caller owns it.
struct ToLibrary {
    plist_t operator()(bool value) const { return plist_new_bool(value ? 1 : 0); }
    plist_t operator()(double value) const { return plist_new_real(value); }
    plist_t operator()(const std::string& value) const {
        return plist_new_string(carried_text(value).c_str());
    }
    plist_t operator()(std::int64_t value) const {
        return plist_new_uint(static_cast<std::uint64_t>(value)); // written as a signed number
    }
    plist_t operator()(const PropertyList::Data& value) const {
        return plist_new_data(reinterpret_cast<const char*>(value.data()), value.size());
    }
    plist_t operator()(const PropertyList::Array& value) const {
        plist_t node = plist_new_array();
        for (const auto& item : value) {
            plist_array_append_item(node, std::visit(*this, item.value));
        }
        return node;
    }
    plist_t operator()(const PropertyList::Dictionary& value) const {
        plist_t node = plist_new_dict();
        std::unordered_set<std::string> seen;
        for (const auto& [key, item] : value) {
            // The first of two equal keys is the one that find() answers.
            if (const auto [place, isNew] = seen.insert(carried_text(key)); isNew) {
                plist_dict_set_item(node, place->c_str(), std::visit(*this, item.value));
            }
        }
        return node;
    }
};

std::optional<PropertyList> refuse(std::string* error, std::string message) {
    if (error != nullptr) {
        *error = std::move(message);
    }
    return std::nullopt;
}

/// How many entries the dictionaries of the tree have.
std::size_t entries_in(const PropertyList& list) {
    std::size_t entries = 0;
    if (const auto* const dictionary = std::get_if<PropertyList::Dictionary>(&list.value)) {
        for (const auto& [key, entry] : *dictionary) {
            entries += 1 + entries_in(entry);
        }
    } else if (const auto* const array = std::get_if<PropertyList::Array>(&list.value)) {
        for (const PropertyList& element : *array) {
            entries += entries_in(element);
        }
    }
    return entries;
}

} // namespace

const PropertyList* PropertyList::find(std::string_view key) const {
    const auto* dictionary = std::get_if<Dictionary>(&value);
    if (dictionary == nullptr) {
        return nullptr;
    }
    const auto found = std::find_if(dictionary->begin(), dictionary->end(),
                                    [&](const auto& entry) { return entry.first == key; });
    return found == dictionary->end() ? nullptr : &found->second;
}

PropertyList* PropertyList::find(std::string_view key) {
    return const_cast<PropertyList*>(std::as_const(*this).find(key));
}

void PropertyList::set(std::string_view key, PropertyList entry) {
    if (PropertyList* found = find(key)) {
        *found = std::move(entry);
        return;
    }
    if (!std::holds_alternative<Dictionary>(value)) {
        value = Dictionary{};
    }
    std::get<Dictionary>(value).emplace_back(std::string(key), std::move(entry));
}

bool PropertyList::remove(std::string_view key) {
    auto* dictionary = std::get_if<Dictionary>(&value);
    return dictionary != nullptr &&
           std::erase_if(*dictionary, [&](const auto& entry) { return entry.first == key; }) > 0;
}

std::optional<PropertyList> parse_property_list(std::string_view bytes, std::string* error) {
    std::size_t keys = 0;
    if (std::string problem = check_property_list_text(bytes, &keys); !problem.empty()) {
        return refuse(error, std::move(problem));
    }
    const CLocale locale;
    plist_t raw = nullptr;
    plist_from_xml(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &raw);
    const PlistHandle list(raw);
    if (!list) {
        return refuse(error, "no well-formed property list");
    }
    auto value = from_library(list.get());
    if (!value) {
        return refuse(error, "text that is not UTF-8");
    }
    if (entries_in(*value) != keys) {
        return refuse(error, "a key that stands twice in its dictionary, or has no value");
    }
    return value;
}

std::string write_property_list(const PropertyList& list) {
    const CLocale locale;
    const PlistHandle node(std::visit(ToLibrary{}, list.value));
    char* raw = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node.get(), &raw, &length);
    const std::unique_ptr<char, FreeMemory> text(raw);
    return raw == nullptr ? std::string{} : std::string(raw, length);
}

} // namespace specialpages::platform

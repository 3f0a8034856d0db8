#include "ppd/ppd_access.h"

#include "platform/foundation/text.h"
#include "ppd/cups_ppd.h"
#include "ppd/ppd_keywords.h"
#include "support/help.h"
#include "support/leading_number.h"

#include <algorithm>
#include <cstring>
#include <iterator>

namespace specialpages {

namespace {

/// Longest keyword of the vendor-prefix rule, in bytes.
constexpr std::size_t kMaxKeywordBytes = 99;

/// How many bytes of an attribute's value hold the number of mailboxes.
constexpr std::size_t kMailboxNumberBytes = 3;

/// The names under which a PPD gives its encoding.
constexpr std::string_view kISOLatin1 = "ISOLatin1";
constexpr std::string_view kWindowsANSI = "WindowsANSI";
constexpr std::string_view kJIS83_RKSJ = "JIS83-RKSJ";
constexpr std::string_view kUTF_8 = "UTF-8";
constexpr std::string_view kUTF8 = "UTF8";

/// The text in one of the PPD's fixed fields, terminated or full.
template <std::size_t Size>
std::string_view field_text(const char (&field)[Size]) {
    return {field, ::strnlen(field, Size)};
}

std::span<ppd_choice_t> choices_of(const ppd_option_t* option) {
    if (option == nullptr || option->choices == nullptr || option->num_choices <= 0) {
        return {};
    }
    return {option->choices, static_cast<std::size_t>(option->num_choices)};
}

/// Index of the first choice with exactly that keyword; the number of choices when there is none.
std::size_t choice_position(std::span<const ppd_choice_t> choices, std::string_view keyword) {
    const auto found = std::find_if(choices.begin(), choices.end(), [keyword](const ppd_choice_t& choice) {
        return field_text(choice.choice) == keyword;
    });
    return static_cast<std::size_t>(found - choices.begin());
}

/// The first attribute, in file order, that `accepts`.
template <typename Accepts>
ppd_attr_t* first_attribute(const ppd_file_t* ppd, Accepts accepts) {
    if (ppd == nullptr || ppd->attrs == nullptr || ppd->num_attrs <= 0) {
        return nullptr;
    }
    const std::span attributes{ppd->attrs, static_cast<std::size_t>(ppd->num_attrs)};
    const auto found = std::find_if(attributes.begin(), attributes.end(), [&](const ppd_attr_t* attribute) {
        return attribute != nullptr && accepts(*attribute);
    });
    return found == attributes.end() ? nullptr : *found;
}

/// The attribute's value; null when the attribute or its value is missing.
const char* attribute_value(ppd_file_t* ppd, const char* name) {
    const ppd_attr_t* attribute = ppdFindAttr_ALT(ppd, name);
    return attribute == nullptr ? nullptr : attribute->value;
}

constexpr char ascii_upper(char character) {
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

bool begins_with_ignoring_case(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), text.begin(),
                      [](char left, char right) { return ascii_upper(left) == ascii_upper(right); });
}

bool is_digit(char character) {
    return character >= '0' && character <= '9';
}

} // namespace

bool CheckPPDKeyIsExist(ppd_file_t* ppd, const char* key) {
    return cups_find_option(ppd, key) != nullptr;
}

std::int32_t GetPPDKeyOptionCount(ppd_file_t* ppd, const char* key) {
    return static_cast<std::int32_t>(choices_of(cups_find_option(ppd, key)).size());
}

void GetValueFromPPDByIndex(ppd_file_t* ppd, const char* key, std::string& out, std::int32_t index) {
    const auto choices = choices_of(cups_find_option(ppd, key));
    if (index < 0 || static_cast<std::size_t>(index) >= choices.size()) {
        return;
    }
    out = field_text(choices[static_cast<std::size_t>(index)].choice).substr(0, kMaxChoiceBytes);
}

std::int32_t GetIndexFromPPDByKeyword(const ppd_option_t* option, const char* choice) {
    const auto choices = choices_of(option);
    if (choice == nullptr) {
        return 0;
    }
    const std::size_t position = choice_position(choices, choice);
    return position == choices.size() ? 0 : static_cast<std::int32_t>(position);
}

std::int32_t GetChoiceIndex(ppd_file_t* ppd, const char* key, const char* choice) {
    const auto choices = choices_of(cups_find_option(ppd, key));
    return static_cast<std::int32_t>(choice == nullptr ? choices.size() : choice_position(choices, choice));
}

std::int32_t GetValueFromPPD(ppd_file_t* ppd, const char* key, std::span<const std::string> table) {
    const ppd_option_t* option = cups_find_option(ppd, key);
    if (option == nullptr) {
        return -1;
    }
    const auto found = std::find(table.begin(), table.end(), field_text(option->defchoice));
    return found == table.end() ? -1 : static_cast<std::int32_t>(found - table.begin());
}

std::int32_t GetUIDefaultFromPPD(ppd_file_t* ppd, const char* key, std::optional<std::string>& out) {
    out.reset();
    const ppd_option_t* option = cups_find_option(ppd, key);
    if (option != nullptr && platform::is_valid_utf8(field_text(option->defchoice))) {
        out.emplace(field_text(option->defchoice));
    }
    return 0;
}

std::int32_t GetUIDefaultValueFromPPD(ppd_file_t* ppd, const char* key) {
    const ppd_option_t* option = cups_find_option(ppd, key);
    if (option == nullptr) {
        return -1;
    }
    const auto choices = choices_of(option);
    const std::size_t position = choice_position(choices, field_text(option->defchoice));
    return position == choices.size() ? -1 : static_cast<std::int32_t>(position);
}

std::int32_t GetUITitleFromPPD(ppd_file_t* ppd, const char* key, std::optional<std::string>& out) {
    out.reset();
    const ppd_option_t* option = cups_find_option(ppd, key);
    if (option != nullptr) {
        out = platform::utf8_from_encoding(field_text(option->text),
                                           converter_name(GetCFStringEncodingFromPPD(ppd)));
    }
    return 0;
}

std::int32_t GetIndexOfMarkedOptionWithKey(ppd_option_t* option, ppd_file_t* ppd, const char* key) {
    if (option == nullptr) {
        return -1;
    }
    const ppd_choice_t* chosen = cups_find_marked_choice(ppd, key);
    if (chosen == nullptr) {
        chosen = cups_find_choice(option, std::string(field_text(option->defchoice)).c_str());
    }
    // By address: a choice of another option is not in this one, whatever its keyword is.
    const auto choices = choices_of(option);
    for (std::size_t index = 0; index < choices.size(); ++index) {
        if (&choices[index] == chosen) {
            return static_cast<std::int32_t>(index);
        }
    }
    return -1;
}

ppd_attr_t* ppdFindAttr_ALT(ppd_file_t* ppd, const char* name, const char* /*spec*/) {
    if (name == nullptr) {
        return nullptr;
    }
    return first_attribute(
        ppd, [name](const ppd_attr_t& attribute) { return field_text(attribute.name).starts_with(name); });
}

ppd_attr_t* ppdFindAttr_ALT_SPEC(ppd_file_t* ppd, const char* name, const char* spec) {
    if (name == nullptr || spec == nullptr) {
        return nullptr;
    }
    // By the beginning: "Width" finds "WidthOffset" when that stands first in the PPD.
    return first_attribute(ppd, [name, spec](const ppd_attr_t& attribute) {
        return field_text(attribute.name).starts_with(name) && field_text(attribute.spec).starts_with(spec);
    });
}

bool CDFKeyExist(ppd_file_t* ppd, const char* name) {
    return ppdFindAttr_ALT(ppd, name) != nullptr;
}

std::int32_t CheckIfPPDKeywordSupported(ppd_file_t* ppd, const char* name, const char* prefix) {
    const char* value = attribute_value(ppd, name);
    return value != nullptr && prefix != nullptr && std::string_view(value).starts_with(prefix) ? 1 : 0;
}

std::int32_t getIntFromString(std::string_view bytes) {
    std::string digits;
    std::copy_if(bytes.begin(), bytes.end(), std::back_inserter(digits), is_digit);
    return saturated(leading_integer(digits).value);
}

std::int32_t GetPWMiniIntValueFromPPD(ppd_file_t* ppd, const char* key) {
    const ppd_option_t* option = cups_find_option(ppd, key);
    return option == nullptr ? -1 : getIntFromString(field_text(option->defchoice));
}

std::int32_t GetSorlundPWMiniIntValueFromPPD(ppd_file_t* ppd, const char* name) {
    const char* value = attribute_value(ppd, name);
    if (value == nullptr) {
        return -1;
    }
    for (std::string_view rest(value); !rest.empty(); rest.remove_prefix(1)) {
        const LeadingInteger number = leading_integer(rest);
        if (number.consumed > 0) {
            return saturated(number.value);
        }
    }
    return -1;
}

std::int32_t GetMBMaxNumberFromPPD(ppd_file_t* ppd, const char* name) {
    const char* value = attribute_value(ppd, name);
    return value == nullptr ? 0 : getIntFromString(std::string_view(value).substr(0, kMailboxNumberBytes));
}

std::string FixPPDKeywordAccordingToType(ppd_file_t* ppd, std::string_view keyword) {
    std::string fixed(keyword.substr(0, kMaxKeywordBytes));
    const std::string_view prefix(KVendorPPDPrefix);
    const char* manufacturer = attribute_value(ppd, "Manufacturer");
    if (manufacturer != nullptr && std::string_view(manufacturer) == KVendorPPDValue &&
        begins_with_ignoring_case(fixed, prefix)) {
        fixed.replace(0, prefix.size(), prefix);
    }
    return fixed;
}

PPDEncoding GetCFStringEncodingFromPPD(const ppd_file_t* ppd) {
    if (ppd == nullptr || ppd->lang_encoding == nullptr) {
        return PPDEncoding::MacRoman;
    }
    const std::string_view name(ppd->lang_encoding);
    if (name == kISOLatin1) {
        return PPDEncoding::ISOLatin1;
    }
    if (name == kWindowsANSI) {
        return PPDEncoding::WindowsLatin1;
    }
    if (name == kJIS83_RKSJ) {
        return PPDEncoding::MacJapanese;
    }
    if (name == kUTF_8 || name == kUTF8) {
        return PPDEncoding::UTF8;
    }
    return PPDEncoding::MacRoman;
}

const char* converter_name(PPDEncoding encoding) {
    switch (encoding) {
    case PPDEncoding::MacRoman:
        return "macintosh";
    case PPDEncoding::MacJapanese:
        return "Shift_JIS"; // the nearest that there is a converter for
    case PPDEncoding::ISOLatin1:
        return "ISO-8859-1";
    case PPDEncoding::WindowsLatin1:
        return "windows-1252";
    case PPDEncoding::UTF8:
        return "UTF-8";
    }
    return "macintosh";
}

std::int32_t FindPPDKeyPairsMatch(std::span<const std::pair<std::string, std::string>> pairs,
                                  std::string_view key, std::string_view value) {
    const auto found = std::find_if(pairs.begin(), pairs.end(), [key, value](const auto& pair) {
        return pair.first == key && pair.second == value;
    });
    return found == pairs.end() ? -1 : static_cast<std::int32_t>(found - pairs.begin());
}

void AddNoRepeatStrToArray(std::vector<std::string>* array, std::optional<std::string_view> text) {
    if (array != nullptr && text && std::find(array->begin(), array->end(), *text) == array->end()) {
        array->emplace_back(*text);
    }
}

std::optional<std::string> GetAppResourceNameNS(std::optional<std::string_view> text, std::int32_t which) {
    return GetAppResourceName(text, which);
}

std::vector<std::string> option_keywords(const ppd_file_t* ppd) {
    std::vector<std::string> keywords;
    if (ppd == nullptr || ppd->groups == nullptr) {
        return keywords;
    }
    for (int group = 0; group < ppd->num_groups; ++group) {
        const ppd_group_t& options = ppd->groups[group];
        for (int option = 0; options.options != nullptr && option < options.num_options; ++option) {
            keywords.emplace_back(field_text(options.options[option].keyword));
        }
    }
    return keywords;
}

std::vector<std::string>& nxPPDKeywordList() {
    static std::vector<std::string> keywords;
    return keywords;
}

} // namespace specialpages

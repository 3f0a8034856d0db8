#include "platform/toolkit/TextField.h"

#include "platform/foundation/text.h"
#include "platform/foundation/utf8_repair.h"

#include <utility>
#include <vector>

namespace specialpages::platform {

namespace {

/// The text cut where a user sees one character end and the next begin. Ill-formed bytes become U+FFFD.
std::vector<std::string> composed_characters(std::string_view text) {
    const std::u16string units = utf16_from_utf8(repaired_utf8(text)).value_or(std::u16string());
    std::vector<std::string> characters;
    std::size_t begin = 0;
    for (const std::size_t end : composed_character_ends(units)) {
        characters.push_back(utf8_from_utf16(std::u16string_view(units).substr(begin, end - begin)));
        begin = end;
    }
    return characters;
}

} // namespace

Formatter::~Formatter() = default;

std::optional<std::string> Formatter::stringForObjectValue(const std::string& object) {
    return object;
}

bool Formatter::getObjectValue(std::string& object, const std::string& string,
                               std::string* /*errorDescription*/) {
    object = string;
    return true;
}

bool Formatter::isPartialStringValid(const std::string& /*partialString*/, std::string& /*newString*/,
                                     std::string* /*errorDescription*/) {
    return true;
}

void TextField::show(std::string text) {
    if (text_ != text) {
        text_ = std::move(text);
        announce(ViewChange::text);
    }
}

std::string TextField::stringValue() {
    if (editing_) {
        commit();
    }
    return value_;
}

void TextField::setStringValue(std::string value) {
    // Held, since the formatter may be exchanged while it works.
    const std::shared_ptr<Formatter> formatter = formatter_;
    std::string text = value;
    if (formatter != nullptr) {
        std::optional<std::string> shown = formatter->stringForObjectValue(value);
        std::string error;
        if (!shown || !formatter->getObjectValue(value, *shown, &error)) {
            return;
        }
        text = std::move(*shown);
    }
    value_ = std::move(value);
    valueAtStart_ = value_;
    show(std::move(text));
}

void TextField::commit() {
    if (committing_) {
        return;
    }
    const std::shared_ptr<Formatter> formatter = formatter_;
    if (formatter == nullptr) {
        value_ = text_;
        return;
    }
    committing_ = true;
    std::string object;
    std::string error;
    const bool accepted = formatter->getObjectValue(object, text_, &error);
    if (accepted) {
        value_ = std::move(object);
    }
    std::optional<std::string> shown = formatter->stringForObjectValue(value_);
    committing_ = false;
    show(shown ? std::move(*shown) : accepted ? text_ : value_);
}

void TextField::setTextColor(TextColor color) {
    if (color_ != color) {
        color_ = color;
        announce(ViewChange::textColor);
    }
}

bool TextField::editText(const std::string& text) {
    if (!beginEditing()) {
        return false;
    }
    const std::shared_ptr<Formatter> formatter = formatter_;
    std::string kept = text;
    std::string error;
    if (formatter == nullptr || formatter->isPartialStringValid(text, kept, &error)) {
        show(text);
        return true;
    }
    if (kept != text) {
        show(std::move(kept));
    }
    return false;
}

bool TextField::type(std::string_view text) {
    if (!beginEditing()) {
        return false;
    }
    if (text.empty()) {
        editText({});
    }
    bool allSelected = true;
    for (const std::string& character : composed_characters(text)) {
        const std::string before = text_;
        const bool stands = editText(allSelected ? character : before + character);
        allSelected = allSelected && !stands && text_ == before;
    }
    endEditing();
    return true;
}

} // namespace specialpages::platform

// Text: editable fields with formatters, static texts, and scrolling texts.
#pragma once

#include "platform/toolkit/View.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace specialpages::platform {

/// Decides what may be typed into a field and what becomes of it.
class SPECIALPAGES_PLATFORM_API Formatter {
  public:
    Formatter() = default;
    Formatter(const Formatter&) = delete;
    Formatter& operator=(const Formatter&) = delete;
    virtual ~Formatter();

    /// The text of a value to show; empty optional: the value is not shown and the field keeps its text.
    virtual std::optional<std::string> stringForObjectValue(const std::string& object);
    /// Turns the text of the field into its value: true, with `object` set, accepts it.
    virtual bool getObjectValue(std::string& object, const std::string& string,
                                std::string* errorDescription);
    /// Whether the text may stand in the field while it is typed. False with `newString` set to something
    /// else than `partialString` puts that in its place; otherwise the key is dropped.
    virtual bool isPartialStringValid(const std::string& partialString, std::string& newString,
                                      std::string* errorDescription);
};

enum class TextColor { controlTextColor, disabledControlTextColor, lightGrayColor };

/// An editable field (kind textField), a static text (staticText) or a scrolling text (scrollText); only the
/// first can be edited by the user. ViewChange::text announces a change of the shown text (also when a commit
/// makes it), ViewChange::focus the begin and the end of the editing.
class SPECIALPAGES_PLATFORM_API TextField : public View {
  public:
    explicit TextField(ViewKind kind = ViewKind::textField) : View(kind) {}

    /// The field's value. Reading it commits what is being typed first; while the formatter is doing that, it
    /// is the value before.
    std::string stringValue();
    /// What the field shows now, with nothing committed.
    const std::string& shownText() const { return text_; }
    /// By program: runs the formatter (stringForObjectValue:, then getObjectValue:...), fires no action. A
    /// value that the formatter refuses or does not show changes nothing; any other replaces what was being
    /// typed, and leaving the field then fires no action for that.
    void setStringValue(std::string value);

    void setFormatter(std::shared_ptr<Formatter> formatter) { formatter_ = std::move(formatter); }
    Formatter* formatter() const { return formatter_.get(); }
    TextColor textColor() const { return color_; }
    void setTextColor(TextColor color);

    /// The user puts the cursor into the field; it becomes its window's first responder. False when the field
    /// takes no events or cannot be edited.
    bool beginEditing();
    bool isEditing() const { return editing_; }
    /// The user's whole edited text as a face has it after one key, which begins the editing when it has not
    /// begun: asks isPartialStringValid:... Answers whether it stands; the shown text is then `text`,
    /// otherwise what the formatter left. False, and nothing happens, when the field takes no events.
    bool editText(const std::string& text);
    /// Leaves the field: commits with getObjectValue:..., then fires the action when the value changed since
    /// the editing began. A text that the formatter refuses gives way to the value that was committed last.
    /// Nothing when the field is not being edited.
    void endEditing();
    /// Selects all, types `text` one composed character at a time (a refused one is dropped), and leaves the
    /// field. An empty text clears the field. Until a character stands the old text stays. False when the
    /// field takes no events.
    bool type(std::string_view text);

  private:
    bool editable() const { return kind() == ViewKind::textField; }
    void commit();
    void show(std::string text);
    std::string text_;  ///< what is shown
    std::string value_; ///< what was committed last
    std::string valueAtStart_;
    bool editing_ = false;
    bool committing_ = false;
    std::shared_ptr<Formatter> formatter_;
    TextColor color_ = TextColor::controlTextColor;
};

} // namespace specialpages::platform

// A text field. Its value is a UTF-8 text of at most kMaxBlockBytes, cut where a character ends; the size in
// use is the text's length in columns, which is what the bounds of its table limit. A block never holds a
// zero byte: the text ends there.
//
// The view shows a value only when the control has an access record, even one without keys: without it the
// view stays empty and is not read.
//
// A formatter hears of every text, typed or set by program, and may hand it to the field as a raw text
// (OnRawKeyUp), which then tells the neighbours: a stepper, a twin in the other unit. They answer by setting
// texts and numbers of their own. While a field tells its neighbours, a text that comes back to it is an echo
// and changes nothing, so that what the user typed stands as it was typed.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"

#include <memory>

namespace specialpages::platform {
class TextField;
}

namespace specialpages {

struct TextEditFilterData;

struct TextEditIniData {
    const char* initialText = "";
    const char* defaultText = "";
    std::uint32_t minimumLength = 0; ///< columns
    std::uint32_t maximumLength = 0; ///< columns
};

/// The numbers that a field accepts, both ends included, in the unit of the field.
struct EditValueRangeData {
    std::int32_t minimum = 0;
    std::int32_t maximum = 0;
};

/// Most bytes that a text block holds.
inline constexpr std::size_t kMaxBlockBytes = 255;

/// What a block keeps of the text: up to its first zero byte, at most `maxBytes` of it, whole characters.
std::string block_text(std::string_view text, std::size_t maxBytes = kMaxBlockBytes);

class TextEditCtrlEMFSpecialPages : public BaseControlEMFSpecialPages {
  public:
    TextEditCtrlEMFSpecialPages() = default;
    TextEditCtrlEMFSpecialPages(const TextEditCtrlEMFSpecialPages&) = delete;
    TextEditCtrlEMFSpecialPages& operator=(const TextEditCtrlEMFSpecialPages&) = delete;

    using BaseControlEMFSpecialPages::CreateControl;
    /// The tables are borrowed; each may be null.
    void CreateControl(platform::View* view, const TextEditIniData* IniData,
                       const ConstraintRecord* constrain, const AccessInfo* accessInfo,
                       std::string_view usernamein, const TextEditFilterData* FilterData);

    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// Only the formatter is made anew; the value stays.
    bool ReInitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override;
    /// Gives the view its formatter when there are a filter and a table, else takes it away.
    virtual void InitializeCtrlFormat();

    /// False, and the size is 0, without a data block; false too when the view or the access record is
    /// missing.
    bool SetControlValueToUI() override;
    /// Shows the whole text, whatever `size` says. True without an effect when it is an echo.
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t size) override;
    /// The size becomes the default's length in bytes, not in columns.
    bool SetControlValueToDefault() override;
    /// The size becomes the length of the view's whole text, also when the block holds its head only.
    ValueBlock* GetValueFromUI() override;
    ValueBlock* GetValueFromControl() override { return &ctrlDataBlkPtr; }
    void SetValueFromUIToControl() override;
    bool setExternalValueToData(const ControlValue& value, std::uint32_t size,
                                std::int32_t valueType) override;
    std::optional<ControlValue> GetDefaultDataBlk() const override;
    std::uint32_t GetDefaultDataSize() const override;
    bool ConvertToPreferenceString(std::string& text) override;
    bool ConvertFromPreferenceString(std::string_view text) override;
    bool ConvertToTickectData(std::string& text) override;

    /// Judges the UI block; an empty field passes. A text outside the bounds or the filter is refused with an
    /// alert.
    bool InvalidateData() override;
    /// The same without the alert: a subclass that adds a check of its own asks this one and warns once.
    bool InvalidateDataAndReturnError() override;
    /// Empties view and UI block. True.
    virtual bool CorrectCtrlUI();
    /// Shows the message of the filter and puts the cursor into the field. Nothing without a message, a panel
    /// or its bundle.
    virtual void ShowErrMsg();

    /// What a formatter hands over when a number was entered; a subclass keeps it and tells its neighbours.
    /// Answers 0.
    virtual std::int32_t OnRawKeyUp(const std::string& text);
    virtual const std::string* GetCorrectedData() { return nullptr; }
    /// The raw text; this class never fills it.
    std::string& GetUIData() { return uiData; }
    /// The most columns that the field takes; 0 without a table.
    std::uint32_t GetEditMaxLength() const;

    /// For formatters: OnRawKeyUp, during which this field takes no text from its neighbours.
    void tellNeighbours(const std::string& rawText);
    bool isTellingNeighbours() const { return tellingNeighbours_; }
    /// For formatters: the text becomes the UI block and its length the size in use. Nothing without a block.
    void setUIText(std::string_view text);

  protected:
    platform::TextField* textField() const;
    /// Whether the view may be read and written: there are one and an access record.
    bool viewTakesPart() const;
    /// Whether the size in use lies within the bounds of the table; true without one.
    bool lengthIsInBounds() const;
    /// Reads the view, whatever the answer. Only a field that is neither hidden nor disabled, by its counts,
    /// and has a value is validated at all.
    bool ToValidate();
    /// The UI block's text; empty without one.
    std::string uiText() const;
    /// An alert with one button; then the cursor goes into the field. Nothing without a panel or its bundle.
    void showAlert(const std::string& informativeText);
    /// The localised message of the filter; empty optional when ShowErrMsg has nothing to show.
    std::optional<std::string> filterMessage() const;
    /// How a formatter, which belongs to the view, finds this control for as long as it lives.
    std::weak_ptr<TextEditCtrlEMFSpecialPages> weakSelf() { return self_; }

    const TextEditIniData* textEditIniDataPtr = nullptr;
    const TextEditFilterData* textEditFilterDataPtr = nullptr;
    std::string uiData;

  private:
    bool tellingNeighbours_ = false;
    // Owns nothing: it only ends with the control.
    std::shared_ptr<TextEditCtrlEMFSpecialPages> self_{this, [](TextEditCtrlEMFSpecialPages*) {
                                                       }};
};

} // namespace specialpages

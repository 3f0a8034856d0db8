// Controls, windows and surroundings for the tests of the control framework: views with a tag, controls that
// keep a journal, controls with a value, and process-wide values that come back at the end of a test.
#pragma once

#include "controls/BaseControlEMFSpecialPages.h"
#include "controls/BasePrintPanelEMFSpecialPages.h"
#include "controls/value_transfer.h"
#include "platform/foundation/Bundle.h"
#include "platform/foundation/log.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/preferences.h"
#include "platform/foundation/system_version.h"
#include "platform/print/PDEPluginCallback.h"
#include "platform/print/PrintSession.h"
#include "platform/print/PrintSettings.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/View.h"
#include "support/leading_number.h"
#include "support/plugin_bundle.h"
#include "support/settings_access.h"
#include "support/temporary_bundle.h"

#include <array>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace specialpages::test {

/// What happened, in order: "who.operation".
using Journal = std::vector<std::string>;

class TaggedView : public platform::View {
  public:
    explicit TaggedView(ControlTag tag) { setTag(tag); }
};

/// A view that holds a number; the user changes it and clicks.
class NumberView : public platform::Button {
  public:
    explicit NumberView(ControlTag tag) { setTag(tag); }
    void choose(std::int32_t value) {
        setIntValue(value);
        click();
    }
};

/// Constraint rows that own their tags.
class Rows {
  public:
    Rows(std::initializer_list<std::vector<ControlTag>> rows) : tags_(rows) {
        for (const auto& row : tags_) {
            rows_.emplace_back(row);
        }
    }
    Rows(const Rows&) = delete;
    Rows& operator=(const Rows&) = delete;
    ConstraintRows all() const { return rows_; }
    ConstraintRow at(std::size_t index) const { return rows_.at(index); }

  private:
    std::vector<std::vector<ControlTag>> tags_;
    std::vector<ConstraintRow> rows_;
};

/// A panel whose registries may get empty entries.
class TestPanel : public BasePrintPanelEMFSpecialPages {
  public:
    TestPanel() { CreatePanel(nullptr); }
    explicit TestPanel(platform::Window* window) { CreatePanel(window); }
    void addEmptyEntries() {
        fCtrlGroupArray.push_back(nullptr);
        fWindowGroupArray.push_back(nullptr);
    }
};

/// A host that has a PPD and nothing else.
class TestHost : public platform::PDEPluginCallback {
  public:
    explicit TestHost(ppd_file_s* ppd = nullptr) : ppd_(ppd) {}
    ppd_file_s* ppdFile() override { return ppd_; }
    platform::PrintSettings* printSettings() override { return nullptr; }
    platform::PrintSession* printSession() override { return nullptr; }
    platform::PageFormat* pageFormat() override { return nullptr; }

  private:
    ppd_file_s* ppd_;
};

/// A session that has chosen the printer.
inline platform::PrintSession session_of(std::string printer) {
    platform::PrintSession session;
    session.currentPrinter = platform::Printer{std::move(printer)};
    return session;
}

/// A control that does nothing but write down what it is asked.
class RecordingControl : public BaseControlEMFSpecialPages {
  public:
    RecordingControl(Journal& journal, std::string name, platform::View* view)
        : journal_(journal), name_(std::move(name)) {
        CreateControl(view);
    }

    bool presetAnswer = true;
    bool preferenceAnswer = true;
    bool preInvalidateAnswer = true;
    bool invalidateAnswer = true;
    bool hasValue = false;
    /// Runs inside InitializeCtrl.
    std::function<void(RecordingControl&)> onInitialize;

    std::int32_t Open() override { return note("Open", 3); }
    std::int32_t Close() override { return note("Close", 3); }
    void setTargetandAction() override { note("setTargetandAction", 0); }
    bool InitializeCtrl(platform::Bundle*, ppd_file_s*) override {
        if (onInitialize) {
            onInitialize(*this);
        }
        return note("InitializeCtrl", false);
    }
    bool ReInitializeCtrl(platform::Bundle*, ppd_file_s*) override { return note("ReInitializeCtrl", false); }
    std::int32_t ConstrainPanelControlFromPPD(ppd_file_s*) override {
        return note("ConstrainPanelControlFromPPD", 3);
    }
    std::int32_t UpdateConflictsPanelControlFromPPD(ppd_file_s*) override {
        return note("UpdateConflictsPanelControlFromPPD", 3);
    }
    ValueBlock* GetValueFromUI() override {
        note("GetValueFromUI", 0);
        return hasValue ? &ctrlUIDataBlkPtr : nullptr;
    }
    bool GetValueToPreset() override { return note("GetValueToPreset", presetAnswer); }
    void SetValueFromUIToControl() override { note("SetValueFromUIToControl", 0); }
    bool SetControlValueToUI() override { return note("SetControlValueToUI", false); }
    bool SetUIValueToIniData() override { return note("SetUIValueToIniData", false); }
    bool SetControlValueToDefault() override { return note("SetControlValueToDefault", false); }
    bool SetDefaultValueToUI() override { return note("SetDefaultValueToUI", false); }
    bool InvalidateData() override { return note("InvalidateData", invalidateAnswer); }
    bool PreInvalidateData() override { return note("PreInvalidateData", preInvalidateAnswer); }
    bool SetValueToPreference() override { return note("SetValueToPreference", false); }
    bool GetValueFromPreference() override { return note("GetValueFromPreference", preferenceAnswer); }
    bool SetValueToPreferenceWithPrinterSettings() override {
        return note("SetValueToPreferenceWithPrinterSettings", false);
    }
    bool GetValueFromPreferenceWithPrinterSettings() override {
        return note("GetValueFromPreferenceWithPrinterSettings", preferenceAnswer);
    }
    bool SetValueToTicket(platform::PrintSettings*, bool) override { return note("SetValueToTicket", false); }
    bool SetValueToTicket(platform::PrintSettings*, bool, std::span<platform::View* const>) override {
        return note("SetValueToTicket_encryptArray", false);
    }
    std::int32_t GetSummaryText(SummaryText*, std::vector<std::string>*) override {
        return note("GetSummaryText", 3);
    }
    std::int32_t DoControlUpdateConstrain() override { return note("DoControlUpdateConstrain", 3); }
    std::int32_t DoSelfUpdate() override { return note("DoSelfUpdate", 3); }
    std::int32_t DoControlHideConstrain() override { return note("DoControlHideConstrain", 3); }
    std::int32_t DoControlConstrain() override { return note("DoControlConstrain", 3); }
    std::int32_t Update() override { return note("Update", 3); }
    void ResetStatus() override { note("ResetStatus", 0); }

  protected:
    template <typename Answer>
    Answer note(const char* operation, Answer answer) {
        journal_.push_back(name_ + "." + operation);
        return answer;
    }

  private:
    Journal& journal_;
    std::string name_;
};

/// The same with the event as one entry, for walks that simulate it.
class EventRecordingControl : public RecordingControl {
  public:
    using RecordingControl::RecordingControl;
    bool UIEventHandler() override { return note("UIEventHandler", false); }
    bool SimulationUIEventHandler() override { return note("SimulationUIEventHandler", false); }
};

/// A window that writes down what it is asked and answers `status`; booleans say whether that is 0.
class RecordingWindow : public BasePrintPanelEMFSpecialPages {
  public:
    RecordingWindow(Journal& journal, std::string name, std::int32_t answer = 0)
        : status(answer), journal_(journal), name_(std::move(name)) {
        CreatePanel(nullptr);
    }

    std::int32_t status;

    std::int32_t Open() override { return note("Open"); }
    std::int32_t Close() override { return note("Close"); }
    std::int32_t GetSummaryText(std::map<std::string, std::string>*, std::vector<std::string>*) override {
        return note("GetSummaryText");
    }
    std::int32_t SetUIDataToIniData() override { return note("SetUIDataToIniData"); }
    std::int32_t SetCurrentValueToUI() override { return note("SetCurrentValueToUI"); }
    bool GetValueFromPreset() override { return note("GetValueFromPreset") == 0; }
    std::int32_t GetValueFromPreference() override { return note("GetValueFromPreference"); }
    std::int32_t GetValueFromPreferenceWithPrinterSettings() override {
        return note("GetValueFromPreferenceWithPrinterSettings");
    }
    std::int32_t SetValueToPreference() override { return note("SetValueToPreference"); }
    std::int32_t SetValueToPreferenceWithPrinterSettings() override {
        return note("SetValueToPreferenceWithPrinterSettings");
    }
    std::int32_t SetValueToTicket(platform::PrintSettings*, bool) override {
        return note("SetValueToTicket");
    }
    std::int32_t SetValueToTicket(platform::PrintSettings*, bool,
                                  const std::vector<platform::View*>*) override {
        return note("SetValueToTicket_encryptArray");
    }
    std::int32_t ResetControlStatus() override { return note("ResetControlStatus"); }
    std::int32_t InitializeUserPane(platform::Bundle*, ppd_file_s*) override {
        return note("InitializeUserPane");
    }
    bool SetCurrentPrintSettings(platform::PrintSettings* settings, ppd_file_s* andPPD,
                                 platform::PDEPluginCallback* andCallbackObj,
                                 platform::PrintSession* withPrintSession) override {
        BasePrintPanelEMFSpecialPages::SetCurrentPrintSettings(settings, andPPD, andCallbackObj,
                                                               withPrintSession);
        return note("SetCurrentPrintSettings") == 0;
    }

  private:
    std::int32_t note(const char* operation) {
        journal_.push_back(name_ + "." + operation);
        return status;
    }
    Journal& journal_;
    std::string name_;
};

/// What the block holds. Throws std::logic_error when it does not exist or holds something else.
template <typename Value>
const Value& held(const ValueBlock& block) {
    const auto* value = block ? std::get_if<Value>(&*block) : nullptr;
    if (value == nullptr) {
        throw std::logic_error("the block does not hold such a value");
    }
    return *value;
}

/// A control with an integer value in a NumberView, the way that every control with a value is built.
class NumberControl : public BaseControlEMFSpecialPages {
  public:
    static constexpr std::uint32_t kSize = 4;

    NumberControl(NumberView* view, std::optional<std::int32_t> standard, std::int32_t initial = -1)
        : standard_(standard), initial_(initial) {
        CreateControl(view);
    }
    void setTables(const ConstraintRecord* constrain, const AccessInfo* access = nullptr,
                   std::string_view usernamein = {}) {
        ctrlConstrainControlArray = constrain;
        ctrlDataAccessInfoPtr = access;
        userNameinPreference = usernamein;
    }

    /// The row of the tables for the present value.
    std::int64_t arrayNumber = 0;
    /// Runs inside DoSelfUpdate.
    std::function<void()> onSelfUpdate;
    /// Runs when a neighbour's update row reaches the control.
    std::function<void()> onUpdate;
    int updates = 0;
    std::function<bool(std::int32_t)> acceptable;

    bool InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) override {
        BaseControlEMFSpecialPages::InitializeCtrl(bundle, withPPD);
        ctrlDataBlkPtr = ControlValue{0};
        ctrlUIDataBlkPtr = ControlValue{0};
        ctrlDataSize = kSize;
        return true;
    }
    ValueBlock* GetValueFromUI() override {
        if (ctrlUIDataBlkPtr && view() != nullptr) {
            ctrlUIDataBlkPtr = view()->intValue();
        }
        return ctrlUIDataBlkPtr ? &ctrlUIDataBlkPtr : nullptr;
    }
    ValueBlock* GetValueFromControl() override { return &ctrlDataBlkPtr; }
    bool SetControlValueToUI() override {
        return ctrlDataBlkPtr && SetExternalValueToUI(*ctrlDataBlkPtr, kSize);
    }
    bool SetExternalValueToUI(const ControlValue& value, std::uint32_t) override {
        if (view() != nullptr) {
            view()->setIntValue(std::get<std::int32_t>(value));
        }
        return view() != nullptr;
    }
    std::optional<ControlValue> GetDefaultDataBlk() const override {
        return standard_ ? std::optional<ControlValue>(*standard_) : std::nullopt;
    }
    std::uint32_t GetDefaultDataSize() const override { return kSize; }
    std::optional<ControlValue> GetIniDataBlk() const override { return ControlValue{initial_}; }
    std::uint32_t GetIniDataSize() const override { return kSize; }
    bool InvalidateData() override {
        return !acceptable || acceptable(view() == nullptr ? 0 : view()->intValue());
    }
    bool ConvertToPreferenceString(std::string& text) override {
        text = platform::decimal_text(data());
        return true;
    }
    bool ConvertToTickectData(std::string& text) override { return ConvertToPreferenceString(text); }
    bool ConvertFromPreferenceString(std::string_view text) override {
        ctrlDataBlkPtr = static_cast<std::int32_t>(leading_integer(text).value);
        return true;
    }
    std::int32_t DoSelfUpdate() override {
        if (onSelfUpdate) {
            onSelfUpdate();
        }
        return 0;
    }
    std::int32_t Update() override {
        ++updates;
        if (onUpdate) {
            onUpdate();
        }
        return 0;
    }
    std::int64_t GetCurrentControlArrayNumber() override { return arrayNumber; }

    std::int32_t data() const { return number(ctrlDataBlkPtr); }
    std::int32_t ui() const { return number(ctrlUIDataBlkPtr); }
    std::int32_t shown() const { return view()->intValue(); }

  private:
    NumberView* view() const { return static_cast<NumberView*>(ControlPtr); }
    static std::int32_t number(const ValueBlock& block) { return held<std::int32_t>(block); }

    std::optional<std::int32_t> standard_;
    std::int32_t initial_;
};

/// A control whose committed value is a text, for the transfer of values.
class TextValueControl : public BaseControlEMFSpecialPages {
  public:
    explicit TextValueControl(platform::View* view = nullptr) { CreateControl(view); }
    void setAccess(const AccessInfo* access, std::string_view usernamein = {}) {
        ctrlDataAccessInfoPtr = access;
        userNameinPreference = usernamein;
    }
    void setText(std::string text) { ctrlDataBlkPtr = std::move(text); }
    std::string text() const { return held<std::string>(ctrlDataBlkPtr); }

    bool convertAnswer = true;
    bool nullOutput = false;

    bool ConvertToPreferenceString(std::string& text) override {
        text = held<std::string>(ctrlDataBlkPtr);
        return convertAnswer;
    }
    bool ConvertToTickectData(std::string& text) override { return ConvertToPreferenceString(text); }
    bool ConvertFromPreferenceString(std::string_view text) override {
        if (convertAnswer) {
            ctrlDataBlkPtr = std::string(text);
        }
        return convertAnswer;
    }
    bool IsOutputNullToTicket() const override { return nullOutput; }
};

/// Print settings that refuse every write.
class RefusingPrintSettings : public platform::PrintSettings {
  public:
    platform::OSStatus setValue(std::string_view, platform::SettingsValue, bool) override {
        return platform::ioErr;
    }
};

/// The text under the key, or "(none)".
inline std::string settings_text(const platform::PrintSettings& settings, std::string_view key) {
    const platform::SettingsValue* value = settings.value(key);
    const auto* text = value == nullptr ? nullptr : std::get_if<std::string>(value);
    return text == nullptr ? "(none)" : *text;
}

/// The lines that are logged while it lives.
class LogLines {
  public:
    LogLines()
        : before_(platform::setLogSink([this](std::string_view line) { lines_.emplace_back(line); })) {}
    ~LogLines() { platform::setLogSink(before_); }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;
    const std::vector<std::string>& all() const { return lines_; }

  private:
    std::vector<std::string> lines_;
    platform::LogSink before_;
};

/// The pane believes to run on that kernel. "10.15.0" is the last below version 4208, "11.0.0" is 4208.
class KernelRelease {
  public:
    explicit KernelRelease(std::string release) {
        platform::set_kernel_release_source([release = std::move(release)] { return release; });
        ResetGestalt_ALT();
    }
    ~KernelRelease() {
        platform::set_kernel_release_source(nullptr);
        ResetGestalt_ALT();
    }
    KernelRelease(const KernelRelease&) = delete;
    KernelRelease& operator=(const KernelRelease&) = delete;
};

/// A preference store in a file of its own in place of the process's.
class TemporaryPreferences {
  public:
    TemporaryPreferences() {
        platform::setStandardPreferences(std::make_unique<platform::Preferences>(file()));
    }
    ~TemporaryPreferences() { platform::setStandardPreferences(nullptr); }
    TemporaryPreferences(const TemporaryPreferences&) = delete;
    TemporaryPreferences& operator=(const TemporaryPreferences&) = delete;
    std::filesystem::path file() const { return directory_.path() / "preferences.plist"; }

  private:
    TemporaryDirectory directory_;
};

/// The services of value transfer come back as they were.
class RestoredTransferServices {
  public:
    RestoredTransferServices() : before_(std::exchange(valueTransferServices(), {})) {}
    ~RestoredTransferServices() { valueTransferServices() = before_; }
    RestoredTransferServices(const RestoredTransferServices&) = delete;
    RestoredTransferServices& operator=(const RestoredTransferServices&) = delete;

  private:
    ValueTransferServices before_;
};

/// A bundle with English texts in its default table.
class LocalizedBundle {
  public:
    using Texts = std::initializer_list<std::pair<std::string_view, std::string_view>>;

    LocalizedBundle() : LocalizedBundle(Texts{}) {}
    LocalizedBundle(Texts texts) {
        write_bundle(directory_.path(), "com.norvalen.test.controls");
        std::string table;
        for (const auto& [key, text] : texts) {
            table.append("\"").append(key).append("\" = \"").append(text).append("\";\n");
        }
        write_test_file(directory_.path() / "en.lproj" / "Localizable.strings", table);
        bundle_ = platform::Bundle::load(directory_.path());
        if (!bundle_) {
            throw std::runtime_error("the bundle cannot be loaded");
        }
    }
    platform::Bundle* get() const { return bundle_.get(); }
    std::shared_ptr<platform::Bundle> shared() const { return bundle_; }
    const std::filesystem::path& path() const { return directory_.path(); }

  private:
    TemporaryDirectory directory_;
    std::shared_ptr<platform::Bundle> bundle_;
};

/// The pane's own bundle while it lives.
class PluginBundle {
  public:
    explicit PluginBundle(std::shared_ptr<platform::Bundle> bundle)
        : before_(std::exchange(pluginBundle(), std::move(bundle))) {}
    ~PluginBundle() { pluginBundle() = before_; }
    PluginBundle(const PluginBundle&) = delete;
    PluginBundle& operator=(const PluginBundle&) = delete;

  private:
    std::shared_ptr<platform::Bundle> before_;
};

} // namespace specialpages::test

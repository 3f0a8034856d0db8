// A user and a program at one text field: keys, pastes, leaving, and texts set from outside, in any order. A
// user's text stands exactly when each of its characters is in the table and it is not longer than the field;
// so what the field shows is such a text, or whole what the program set last, which may be anything. What the
// control keeps of it are whole characters, at most 255 bytes.
//
// An input is a letter for the table (capital: a number field with a stepper's formatter), a character for
// the maximum length, then operations, each a letter and a text up to the next "|".

#include "controls/SPInchMMTextEditCtrlEMF.h"
#include "controls/TextEditCtrlEMFSpecialPages.h"
#include "platform/foundation/text.h"
#include "platform/toolkit/Application.h"
#include "platform/toolkit/TextField.h"
#include "support/input_filter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>
#include <variant>

namespace {

using namespace specialpages;

void require(bool holds, const char* what) {
    if (!holds) {
        std::fprintf(stderr, "text_field_fuzz: %s\n", what);
        std::abort();
    }
}

constexpr std::array kKana{CodeRange{0x30A0, 0x30FF}, CodeRange{0xFF66, 0xFF9D}};
constexpr TextEditFilterData kKanaFilterData{kKana, kKana, nullptr};

/// A table, and the same said anew: the bytes that it accepts; null for the kana.
struct Table {
    const TextEditFilterData* filter;
    const char* bytes;
};
constexpr std::size_t kTables = 12;
const std::array<Table, kTables> kAllTables{{{&kKanaFilterData, nullptr},
                                             {&SPCustomSizeWidthMMFilterData, ".0123456789"},
                                             {&SPCustomSizeLengthMMFilterData, ".0123456789"},
                                             {&SPCustomSizeLengthInchFilterData, ".0123456789"},
                                             {&SPCustomSizeWidthInchFilterData, ".0123456789"},
                                             {&pageDefineFilterData, " ,0123456789-"},
                                             {&SPInstPageNumEditFilterData, "0123456789,- "},
                                             {&SPInstQuantityEditFilterData, "0123456789"},
                                             {&SPNumInSequenceSubFilterData, "0123456789"},
                                             {&SPNumInSequenceFilterData, "0123456789"},
                                             {&SPTabMarginMMFilterData, "0123456789."},
                                             {&SPTabMarginInchFilterData, "0123456789."}}};

bool is_mark(char16_t unit) {
    return unit == 0xFF9E || unit == 0xFF9F;
}

bool is_kana(char16_t unit) {
    return (unit >= 0x30A0 && unit <= 0x30FF) || (unit >= 0xFF66 && unit <= 0xFF9D);
}

/// Whether the table has the unit.
bool has(const Table& table, char16_t unit) {
    if (table.bytes == nullptr) {
        return is_kana(unit);
    }
    return unit != 0 && unit < 0x80 &&
           std::string_view(table.bytes).find(static_cast<char>(unit)) != std::string_view::npos;
}

/// Whether a user may enter the text. Behind each character of the table, not of kana tables only, one sound
/// mark may stand.
bool may_stand(const std::string& text, const Table& table, std::uint32_t maximum) {
    const auto units = platform::utf16_from_utf8(text);
    if (!units) {
        return false;
    }
    std::size_t columns = 0;
    bool takesMark = false;
    for (const char16_t unit : *units) {
        const bool inTable = has(table, unit);
        if (!inTable && !(takesMark && is_mark(unit))) {
            return false;
        }
        takesMark = inTable;
        columns += unit < 0x80 ? 1 : 2;
    }
    return columns <= maximum;
}

/// Whether the block is the head of the text that a block has room for.
void require_head(const std::string& block, const std::string& text, std::size_t room) {
    const std::string whole = text.substr(0, text.find('\0'));
    require(block.size() <= room, "a block holds more than it has room for");
    require(whole.starts_with(block), "a block holds something else than its text");
    if (platform::is_valid_utf8(whole)) {
        require(platform::is_valid_utf8(block), "a text is cut inside a character");
        require(block.size() == whole.size() || block.size() + 4 > room, "a text is cut without a need");
    }
}

/// The block's text; there has to be one.
std::string text_of(const ValueBlock& block) {
    const auto* text = block ? std::get_if<std::string>(&*block) : nullptr;
    require(text != nullptr, "a block is not there");
    return text == nullptr ? std::string{} : *text;
}

class Face : public platform::ApplicationFace {
  public:
    int beeps = 0;
    void runEvents(platform::Window&, const std::function<bool()>&) override {}
    void showAlert(const platform::Alert&) override {}
    void beep() override { ++beeps; }
};

class Session {
  public:
    Session(const Table& table, std::uint32_t maximum, bool holdsNumber)
        : table_(table), maximum_(maximum), iniData_{"0", "12.7", 1, maximum} {
        if (holdsNumber) {
            auto field = std::make_unique<SPInchMMTextEditCtrlEMF>();
            field->CreateControl(&view_, &iniData_, nullptr, &access_, {}, table.filter, nullptr, &range_);
            control_ = std::move(field);
        } else {
            control_ = std::make_unique<TextEditCtrlEMFSpecialPages>();
            control_->CreateControl(&view_, &iniData_, nullptr, &access_, {}, table.filter);
        }
        control_->InitializeCtrl(nullptr, nullptr);
        control_->setTargetandAction();
    }

    void run(char operation, const std::string& text) {
        switch (operation) {
        case 'k':
            edit(shown() + text);
            break;
        case 'p':
            edit(text);
            break;
        case 'P':
            edit(repeated(text));
            break;
        case 'b':
            edit(std::string(platform::utf8_prefix(shown(), shown().empty() ? 0 : shown().size() - 1)));
            break;
        case 't':
            view_.type(text);
            break;
        case 'e':
            leave();
            break;
        case 's':
            set(text);
            break;
        case 'S':
            set(repeated(text));
            break;
        case 'd':
            show_data(text);
            break;
        case 'D':
            show_default();
            break;
        case 'C':
            correct();
            break;
        case 'R':
            control_->ReInitializeCtrl(nullptr, nullptr);
            break;
        case 'x':
            toggle();
            break;
        default:
            break;
        }
        require(shown() == lastSet_ || may_stand(shown(), table_, maximum_), "a text stands that may not");
        if (operation != 'k' && operation != 'b') {
            read();
        }
    }

  private:
    static std::string repeated(const std::string& text) {
        constexpr int kTimes = 1000;
        std::string all;
        for (int i = 0; i < kTimes; ++i) {
            all += text;
        }
        return all;
    }
    const std::string& shown() const { return view_.shownText(); }

    void edit(const std::string& text) {
        const std::string before = shown();
        const int beeps = face_.beeps;
        const bool legal = may_stand(text, table_, maximum_);
        require(view_.editText(text) == (enabled_ && legal), "a text is judged wrongly");
        require(shown() == (enabled_ && legal ? text : before), "a refused key changes the field");
        require(face_.beeps == beeps + (enabled_ && !legal ? 1 : 0), "a refused key beeps once");
    }
    void leave() {
        const std::string before = shown();
        view_.endEditing();
        require(shown() == before && !view_.isEditing(), "leaving the field changes it");
    }
    void set(const std::string& text) {
        require(control_->SetExternalValueToUI(text, 0), "a text cannot be set");
        require(shown() == text, "a text set by program is not shown whole");
        lastSet_ = text;
    }
    void show_data(const std::string& text) {
        control_->setExternalValueToData(text, static_cast<std::uint32_t>(text.size()), 0);
        const std::string data = text_of(control_->GetControlBlkPtr());
        require_head(data, text, kMaxBlockBytes);
        require(control_->SetControlValueToUI(), "a value cannot be shown");
        require(shown() == (platform::is_valid_utf8(data) ? data : std::string{}), "the value is not shown");
        lastSet_ = shown();
    }
    void show_default() {
        control_->SetControlValueToDefault();
        require(control_->SetControlValueToUI() && shown() == "12.7", "the default is not shown");
        lastSet_ = shown();
    }
    void correct() {
        control_->CorrectCtrlUI();
        require(shown().empty(), "a corrected field is not empty");
    }
    void toggle() {
        enabled_ = !enabled_;
        enabled_ ? control_->Enable() : control_->Disable();
    }

    /// Reads the view and commits; a text that may stand and is not empty has nothing against it.
    void read() {
        const std::string before = shown();
        const ValueBlock* block = control_->GetValueFromUI();
        require(block != nullptr && shown() == before, "reading the field changes it");
        const std::string seen = text_of(*block);
        if (platform::is_valid_utf8(before)) {
            require_head(seen, before, kMaxBlockBytes);
        } else {
            require(seen.empty(), "a text that is no UTF-8 is kept");
        }
        if (may_stand(before, table_, maximum_)) {
            require(control_->InvalidateDataAndReturnError(), "what may be typed is refused in the end");
        }
        control_->SetValueFromUIToControl();
        require(text_of(control_->GetControlBlkPtr()) == seen, "the value is not the one seen");
    }

    const Table& table_;
    std::uint32_t maximum_;
    TextEditIniData iniData_;
    EditValueRangeData range_{1, 254};
    AccessInfo access_;
    Face face_;
    struct Installed {
        explicit Installed(Face& face) : before(platform::Application::shared().setFace(&face)) {}
        ~Installed() { platform::Application::shared().setFace(before); }
        Installed(const Installed&) = delete;
        Installed& operator=(const Installed&) = delete;
        platform::ApplicationFace* before;
    };
    Installed installed_{face_};
    platform::TextField view_;
    std::unique_ptr<TextEditCtrlEMFSpecialPages> control_;
    std::string lastSet_;
    bool enabled_ = true;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 2) {
        return 0;
    }
    constexpr std::uint8_t kLetter = 0x1F;
    constexpr std::uint8_t kSmall = 0x20;
    const Table& table = kAllTables[(data[0] & kLetter) % kTables];
    const bool isDigit = data[1] >= '0' && data[1] <= '9';
    Session session(table, isDigit ? data[1] - std::uint32_t{'0'} : data[1], (data[0] & kSmall) == 0);
    std::string_view rest(reinterpret_cast<const char*>(data) + 2, size - 2);
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('|'), rest.size());
        if (end > 0) {
            session.run(rest.front(), std::string(rest.substr(1, end - 1)));
        }
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return 0;
}

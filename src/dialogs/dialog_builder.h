// Makes the controls of a dialog's window and registers them, each where the nib has a view with its tag: a
// control without a view is not made, and its field is null. What every dialog has is here by kind; what only
// one has goes through add().
#pragma once

#include "controls/BasePrintPanelEMFSpecialPages.h"
#include "controls/control_tables.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>

namespace specialpages::platform {
class View;
class Window;
} // namespace specialpages::platform

namespace specialpages {

struct PopupIniData;
struct ScrollViewIniData;
class SPHelpButtonEMF;
class SPJobSettingScrollViewCtrlEMF;
class SPPageSettingScrollViewCtrlEMF;
class SPSelectPaperListCtrlEMF;
class StaticTextEditControlEMFSpecialPages;

/// The tables of one paper menu.
struct PaperMenuTables {
    const PopupIniData* iniData = nullptr;
    const ConstraintRecord* constraints = nullptr;
    std::int32_t windowType = 0; ///< kCoversWndType, kInsertsWndType, kExceptionsWndType
    std::optional<ControlTag> duplexControl = std::nullopt; ///< the sidedness list that belongs to the menu
};

/// The title keys of the buttons that every dialog has.
inline constexpr const char* kRestoreButtonTitle = "Special Pages RESTORE Btn";
inline constexpr const char* kCancelButtonTitle = "Special Pages CANCEL Btn";
inline constexpr const char* kOkButtonTitle = "Special Pages OK Btn";

class DialogBuilder {
  public:
    /// Both are borrowed; without a window nothing is made.
    DialogBuilder(BasePrintPanelEMFSpecialPages& dialog, platform::Window* window)
        : dialog_(dialog), window_(window) {}

    /// A control of any kind: `create` gets the control and the view that the tag names.
    template <typename Control, typename Create>
    void add(Control*& field, ControlTag tag, Create create) {
        auto control = std::make_unique<Control>();
        create(*control, view(tag));
        dialog_.RunTimeAddNewControl(std::move(control), field);
    }
    /// A button with a title, by its key.
    template <typename Control>
    void button(Control*& field, ControlTag tag, const char* key) {
        add(field, tag, [key](Control& control, platform::View* view) { control.CreateControl(view, key); });
    }
    /// The paper menu of inserts and exceptions, or one derived from it.
    template <typename Control>
    void paperMenu(Control*& field, ControlTag tag, const PaperMenuTables& tables) {
        add(field, tag,
            [&tables](Control& control, platform::View* view) { createPaperMenu(control, view, tables); });
    }
    /// A view of what paper that menu has chosen, or one derived from it.
    template <typename Control>
    void paperView(Control*& field, ControlTag tag, const ScrollViewIniData& iniData,
                   SPSelectPaperListCtrlEMF* menu) {
        add(field, tag, [&](Control& control, platform::View* view) {
            createPaperView(control, view, tag, iniData, menu);
        });
    }
    void title(StaticTextEditControlEMFSpecialPages*& field, ControlTag tag, const char* key);
    void jobView(SPJobSettingScrollViewCtrlEMF*& field, ControlTag tag, const ScrollViewIniData& iniData);
    void help(SPHelpButtonEMF*& field, ControlTag tag, const char* page);

  private:
    platform::View* view(ControlTag tag) const;
    static void createPaperMenu(SPSelectPaperListCtrlEMF& control, platform::View* view,
                                const PaperMenuTables& tables);
    static void createPaperView(SPPageSettingScrollViewCtrlEMF& control, platform::View* view, ControlTag tag,
                                const ScrollViewIniData& iniData, SPSelectPaperListCtrlEMF* menu);

    BasePrintPanelEMFSpecialPages& dialog_;
    platform::Window* window_;
};

} // namespace specialpages

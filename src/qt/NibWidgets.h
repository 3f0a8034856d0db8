// The widgets of a nib, made by Qt's own loader from the Designer source that the bundle carries: the same
// XML that the headless loader makes the models from. What a widget becomes is decided by its view's kind, so
// that a list drawn as a combo box is a PopUpWidget, arrows drawn as a spin box a StepperWidget, and so on. A
// window whose nib says `statusLine` has one.
#pragma once

#include "platform/toolkit/Nib.h"

#include <QString>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

class QWidget;

namespace specialpages::qt {

class NibWidgets {
  public:
    /// Loads the nib's source. Every named element of the nib has its widget afterwards. HostError (other),
    /// naming file and widget, when the file cannot be read or a widget is missing or of another kind than
    /// its view. The widgets belong to `parent` (not null) and are not shown.
    NibWidgets(const std::filesystem::path& file, QWidget& parent);

    /// The nib's root: it holds the views that are in no window, and the windows are its children.
    QWidget& root() const { return *root_; }
    /// The widget of that name, borrowed; null when the nib has none.
    QWidget* find(const std::string& name) const;
    /// The widgets whose `nameFrom` in the nib is that name.
    const std::vector<QWidget*>& namedAfter(const std::string& label) const;
    /// The nib's tab stops, in their order.
    const std::vector<std::string>& tabStops() const { return tabStops_; }

  private:
    void load(const std::string& xml, QWidget& parent);
    void check(const platform::NibElement& element);
    void orderTabStops() const;

    std::string file_;
    QWidget* root_ = nullptr;
    std::map<std::string, QWidget*> widgets_;
    std::map<std::string, std::vector<QWidget*>> namedAfter_;
    std::vector<std::string> tabStops_;
};

} // namespace specialpages::qt

// The widgets of a nib, made by Qt's own loader from the Designer source that the bundle carries: the same
// XML that the models were made from. What a widget becomes is decided by its view's kind, so that a list
// drawn as a combo box is a PopUpWidget, arrows drawn as a spin box a StepperWidget, and so on. A window
// whose nib says `statusLine` has one. A window's widgets are made when the first of them is asked for: a
// print dialog opens with the pane, and most of a nib is in windows that few jobs need.
#pragma once

#include "platform/toolkit/Nib.h"

#include <QString>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QWidget;

namespace specialpages::qt {

class NibWidgets {
  public:
    /// Parts of the nib, those that have names; borrowed from it.
    using Elements = std::vector<const platform::NibElement*>;

    /// Every named element of the nib (not null) that is in no window has its widget afterwards, and every
    /// one in a window can have it. HostError (other), naming file and widget, when a widget is missing or of
    /// another kind than its view. The widgets belong to `parent` and are not shown.
    NibWidgets(std::shared_ptr<const platform::NibSource> nib, QWidget& parent);

    /// What the nib is called in messages.
    const std::string& file() const { return file_; }
    /// The nib's root: it holds the views that are in no window, and the windows that were made are its
    /// children.
    QWidget& root() const { return *root_; }
    /// The widget of that name, borrowed; null when the nib has none. Makes the widgets of its window when
    /// nobody has asked for one of them yet; HostError as in the constructor.
    QWidget* find(const std::string& name) const;
    /// The widgets whose `nameFrom` in the nib is that name, once the window that they are in was made.
    const std::vector<QWidget*>& namedAfter(const std::string& label) const;
    /// The nib's tab stops, in their order.
    const std::vector<std::string>& tabStops() const { return tabStops_; }

  private:
    void checkNames() const;
    void putOff(const Elements& windows, const Elements& made);
    QWidget* make(const std::string& source, const Elements& elements, QWidget& parent) const;
    void checkKind(const platform::NibElement& element, QWidget* widget) const;
    void orderTabStops(const QWidget& window) const;

    std::shared_ptr<const platform::NibSource> nib_;
    std::string file_;
    QWidget* root_ = nullptr;
    std::vector<std::string> tabStops_;
    // What find moves on when it makes a window; the windows stand under the names of all that is in them.
    mutable std::map<std::string, QWidget*> widgets_;
    mutable std::map<std::string, std::vector<QWidget*>> namedAfter_;
    mutable std::map<std::string, const platform::NibElement*> unmade_;
};

} // namespace specialpages::qt

// The headless model of a view. It draws nothing and holds all state; a face (a window, a terminal, a test)
// observes it and sends the user's events back. A view is owned by its superview, or by its nib when it has
// none.
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace specialpages::platform {

struct NibSource;
class Window;

enum class ViewKind {
    view,
    window,
    icon,
    button,
    radio,
    popup,
    textField,
    staticText,
    scrollText,
    stepper,
    table
};

/// What changed. Every change is announced once; setting a value that is there already announces nothing.
enum class ViewChange {
    tag,
    enabled,
    hidden,
    title,
    toolTip,
    value,
    items,
    text,
    textColor,
    range,
    rows,
    selection,
    columns,
    focus,
    image,
    open,
    display
};

class SPECIALPAGES_PLATFORM_API View {
  public:
    using Action = std::function<void(View& sender)>;
    using Observer = std::function<void(View& view, ViewChange change)>;

    explicit View(ViewKind kind = ViewKind::view) : kind_(kind) {}
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    virtual ~View();

    ViewKind kind() const { return kind_; }
    /// The name that the nib gives it; empty for a view made in code.
    const std::string& name() const { return name_; }
    void setName(std::string name) { name_ = std::move(name); }
    /// The nib that the view or its nearest superview was loaded from, so that a face can draw it from the
    /// same description; null when there is none.
    const std::shared_ptr<const NibSource>& nib() const;
    void setNib(std::shared_ptr<const NibSource> nib) { nib_ = std::move(nib); }

    /// 0 when none was set.
    std::int32_t tag() const { return tag_; }
    void setTag(std::int32_t tag);
    bool isEnabled() const { return enabled_; }
    void setEnabled(bool enabled);
    /// The view's own flag; see isVisible for what its superviews add.
    bool isHidden() const { return hidden_; }
    void setHidden(bool hidden);
    /// Neither it nor one of its superviews is hidden.
    bool isVisible() const;
    const std::string& toolTip() const { return toolTip_; }
    void setToolTip(std::string toolTip);

    /// Who gets the action of a user's event, and what it runs. A null action removes both.
    void setTargetAction(const void* target, Action action);
    const void* target() const { return target_; }
    bool hasAction() const { return static_cast<bool>(action_); }
    /// Runs the action; nothing without one. For the kinds' own event operations: a value set by program
    /// never comes here.
    void sendAction();

    /// Takes the subview over, from its former superview too, and answers it. Not null. A view that would
    /// come to stand in itself stays where it is.
    View& addSubview(std::shared_ptr<View> subview);
    const std::vector<std::shared_ptr<View>>& subviews() const { return subviews_; }
    View* superview() const { return superview_; }
    /// The window that the view stands in (itself for a window); null when it stands in none.
    Window* window();
    /// This view or the first view below it, depth first, with that tag; null when there is none. Windows
    /// below it are not looked into.
    View* viewWithTag(std::int32_t tag);

    /// Asks the faces to draw the view anew; announced always.
    void display();

    /// Adds an observer and answers its number for removeObserver. Observers may be added and removed while
    /// they are told: one that was removed is not told any more, one that was added hears of the next change.
    int addObserver(Observer observer);
    void removeObserver(int number);

    /// Whether a user's event may reach the view: it is enabled, it and its superviews are shown, and its
    /// window is the front window (or it stands in no window).
    bool acceptsEvents();

  protected:
    void announce(ViewChange change);

  private:
    ViewKind kind_;
    std::string name_;
    std::shared_ptr<const NibSource> nib_;
    std::int32_t tag_ = 0;
    bool enabled_ = true;
    bool hidden_ = false;
    std::string toolTip_;
    const void* target_ = nullptr;
    Action action_;
    View* superview_ = nullptr;
    std::vector<std::shared_ptr<View>> subviews_;
    std::vector<std::pair<int, Observer>> observers_;
    int nextObserver_ = 1;
};

} // namespace specialpages::platform

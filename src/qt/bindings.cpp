// How each kind of view is shown and used.
#include "platform/toolkit/Button.h"
#include "platform/toolkit/IconView.h"
#include "platform/toolkit/PopUpButton.h"
#include "platform/toolkit/Stepper.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/TextField.h"
#include "platform/toolkit/Window.h"
#include "qt/DialogWidget.h"
#include "qt/FieldWidget.h"
#include "qt/IconWidget.h"
#include "qt/PopUpWidget.h"
#include "qt/StepperWidget.h"
#include "qt/TableWidget.h"
#include "qt/ViewBinding.h"
#include "qt/menus.h"
#include "qt/text.h"

#include <QAbstractButton>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QSignalBlocker>
#include <algorithm>
#include <array>
#include <limits>

namespace specialpages::qt {

using platform::View;
using platform::ViewChange;
using platform::ViewKind;

namespace {

/// A binding of one kind of view to one class of widgets.
template <class Model, class Widget>
class BindingOf : public ViewBinding {
  public:
    BindingOf(View& view, QWidget& widget)
        : ViewBinding(view, widget), model_(dynamic_cast<Model&>(view)),
          shown_(dynamic_cast<Widget&>(widget)) {}

  protected:
    Model& model_;
    Widget& shown_;
};

class PlainBinding : public ViewBinding {
  public:
    using ViewBinding::ViewBinding;

  protected:
    bool show(ViewChange /*change*/) override { return false; }
    void showAll() override {}
};

class WindowBinding : public BindingOf<platform::Window, DialogWidget> {
  public:
    WindowBinding(View& view, QWidget& widget) : BindingOf(view, widget) {
        shown_.setHandlers(
            [this] {
                leaveField();
                model_.performDefault();
            },
            [this] { model_.performCancel(); });
    }
    ~WindowBinding() override { shown_.setHandlers({}, {}); }

  protected:
    bool show(ViewChange change) override {
        if (change == ViewChange::title) {
            shown_.setWindowTitle(shown_text(model_.title()));
            return true;
        }
        // Whoever runs the window shows it.
        if (change == ViewChange::open && !model_.isOpen()) {
            shown_.hide();
            return true;
        }
        return false;
    }
    void showAll() override { show(ViewChange::title); }

  private:
    /// Return ends the editing as a click on the button does.
    void leaveField() const {
        if (auto* const field = dynamic_cast<platform::TextField*>(model_.firstResponder())) {
            field->endEditing();
        }
    }
};

class IconBinding : public BindingOf<platform::IconView, IconWidget> {
  public:
    using BindingOf::BindingOf;

  protected:
    bool show(ViewChange change) override {
        if (change == ViewChange::image) {
            showAll();
        }
        return change == ViewChange::image;
    }
    void showAll() override { shown_.setPicture(model_.image()); }
};

/// Push buttons and radio buttons. The widget's own check mark is never left to itself.
class ButtonBinding : public BindingOf<platform::Button, QAbstractButton> {
  public:
    ButtonBinding(View& view, QWidget& widget) : BindingOf(view, widget) {
        shown_.setAutoExclusive(false);
        // One button of a window is Return's, whichever has the keyboard.
        shown_.setProperty("autoDefault", false);
        const platform::Window* const window = view.window();
        if (window != nullptr && window->defaultButton() == &model_) {
            shown_.setProperty("default", true);
        }
        clicks_ = QObject::connect(&shown_, &QAbstractButton::clicked, [this] {
            model_.click();
            showValue();
        });
    }
    ~ButtonBinding() override { QObject::disconnect(clicks_); }

  protected:
    bool show(ViewChange change) override {
        if (change == ViewChange::title) {
            shown_.setText(literal_label(model_.title()));
            return true;
        }
        if (change == ViewChange::value) {
            showValue();
            return shown_.isCheckable();
        }
        return false;
    }
    void showAll() override {
        show(ViewChange::title);
        showValue();
    }

  private:
    void showValue() {
        if (shown_.isCheckable()) {
            const QSignalBlocker quiet(&shown_);
            shown_.setChecked(model_.intValue() != 0);
        }
    }
    QMetaObject::Connection clicks_;
};

class PopUpBinding : public BindingOf<platform::PopUpButton, PopUpWidget> {
  public:
    PopUpBinding(View& view, QWidget& widget) : BindingOf(view, widget) {
        shown_.setHandlers({[this] { return titles(); },
                            [this](QMenu& menu) {
                                fill_menu(menu, model_.menu(), {},
                                          [this](const MenuPath& path) { pickLater(path); });
                            },
                            [this](int direction) {
                                return step(direction);
                            }});
    }
    ~PopUpBinding() override { shown_.setHandlers({}); }

  protected:
    bool show(ViewChange change) override {
        if (change != ViewChange::items && change != ViewChange::value) {
            return false;
        }
        const QString title = shown_text(model_.titleOfSelectedItem());
        const bool moved = items_ != model_.numberOfItems();
        if (moved) {
            items_ = model_.numberOfItems();
            shown_.updateGeometry();
        }
        const std::int64_t index = model_.indexOfSelectedItem();
        if (title != shown_.currentText() || index != shown_.shownIndex()) {
            shown_.showSelection(index, title);
            return true;
        }
        return moved;
    }
    void showAll() override { show(ViewChange::items); }

  private:
    QStringList titles() const {
        QStringList titles;
        for (std::int64_t i = 0; i < model_.numberOfItems(); ++i) {
            titles << shown_text(model_.menu().itemAtIndex(i)->title());
        }
        return titles;
    }

    /// When the menu is done with: a pick may run a whole dialog, and the menu does not outlive its closing.
    void pickLater(const MenuPath& path) {
        QMetaObject::invokeMethod(
            &receiver_, [this, path] { model_.pick(path); }, Qt::QueuedConnection);
    }

    bool step(int direction) {
        for (std::int64_t i = 0; i < model_.numberOfItems(); ++i) {
            if (model_.menu().itemAtIndex(i)->submenu() != nullptr) {
                return false;
            }
        }
        for (std::int64_t at = model_.indexOfSelectedItem() + direction;
             at >= 0 && at < model_.numberOfItems(); at += direction) {
            if (model_.pick(std::array{at})) {
                break;
            }
        }
        return true;
    }

    QObject receiver_;        ///< drops what is still to be picked when the binding ends
    std::int64_t items_ = -1; ///< how many the widget's width was asked for
};

class FieldBinding : public BindingOf<platform::TextField, FieldWidget> {
  public:
    FieldBinding(View& view, QWidget& widget) : BindingOf(view, widget) {
        shown_.setHandlers({[this] { model_.beginEditing(); },
                            [this](const QString& text) {
                                model_.editText(model_text(text));
                                showAll();
                            },
                            [this] {
                                model_.endEditing();
                            }});
    }
    ~FieldBinding() override { shown_.setHandlers({}); }

  protected:
    bool show(ViewChange change) override {
        if (change == ViewChange::textColor) {
            showColor();
            return true;
        }
        if (change == ViewChange::text) {
            showText();
        }
        return change == ViewChange::text;
    }
    void showAll() override {
        showText();
        showColor();
    }

  private:
    void showText() { shown_.showText(shown_text(model_.shownText())); }
    void showColor() {
        const bool normal = model_.textColor() == platform::TextColor::controlTextColor;
        QPalette palette;
        if (!normal) {
            palette.setBrush(QPalette::Text, palette.brush(QPalette::Disabled, QPalette::Text));
        }
        shown_.setPalette(palette);
    }
};

class StaticTextBinding : public BindingOf<platform::TextField, QLabel> {
  public:
    StaticTextBinding(View& view, QWidget& widget) : BindingOf(view, widget) {
        shown_.setTextFormat(Qt::PlainText);
    }

  protected:
    bool show(ViewChange change) override {
        if (change == ViewChange::text) {
            shown_.setText(shown_.buddy() != nullptr ? literal_label(model_.shownText())
                                                     : shown_text(model_.shownText()));
            return true;
        }
        if (change == ViewChange::textColor) {
            const bool normal = model_.textColor() == platform::TextColor::controlTextColor;
            shown_.setForegroundRole(normal ? QPalette::WindowText : QPalette::PlaceholderText);
            return true;
        }
        return false;
    }
    void showAll() override {
        show(ViewChange::text);
        show(ViewChange::textColor);
    }
};

class ScrollTextBinding : public BindingOf<platform::TextField, QPlainTextEdit> {
  public:
    using BindingOf::BindingOf;

  protected:
    bool show(ViewChange change) override {
        if (change == ViewChange::text) {
            const QSignalBlocker quiet(&shown_);
            shown_.setPlainText(shown_text(model_.shownText()));
            return true;
        }
        if (change == ViewChange::textColor) {
            const bool normal = model_.textColor() == platform::TextColor::controlTextColor;
            QPalette palette;
            if (!normal) {
                palette.setBrush(QPalette::Text, palette.brush(QPalette::Disabled, QPalette::Text));
            }
            shown_.setPalette(palette);
            return true;
        }
        return false;
    }
    void showAll() override {
        show(ViewChange::text);
        show(ViewChange::textColor);
    }
};

class StepperBinding : public BindingOf<platform::Stepper, StepperWidget> {
  public:
    StepperBinding(View& view, QWidget& widget) : BindingOf(view, widget) {
        shown_.setStepHandler([this](std::int32_t value) { model_.step(value); });
    }
    ~StepperBinding() override { shown_.setStepHandler({}); }

  protected:
    bool show(ViewChange change) override {
        if (change != ViewChange::value && change != ViewChange::range) {
            return false;
        }
        const QSignalBlocker quiet(&shown_);
        if (change == ViewChange::range) {
            shown_.setRange(whole(model_.minValue()), whole(model_.maxValue()));
            shown_.setSingleStep(model_.increment());
        }
        shown_.setValue(model_.intValue());
        return true;
    }
    void showAll() override { show(ViewChange::range); }

  private:
    static int whole(double end) {
        using Limits = std::numeric_limits<int>;
        return static_cast<int>(std::clamp<double>(end, Limits::min(), Limits::max()));
    }
};

class TableBinding : public BindingOf<platform::TableView, TableWidget> {
  public:
    TableBinding(View& view, QWidget& widget) : BindingOf(view, widget) {
        shown_.setHandlers({[this](const platform::RowSet& rows) {
                                model_.userSelects(rows);
                                shown_.showSelection(model_.selectedRowIndexes());
                            },
                            [this] {
                                model_.doubleClick();
                            }});
    }
    ~TableBinding() override {
        shown_.setHandlers({});
        shown_.setTable(nullptr);
    }

  protected:
    bool show(ViewChange change) override {
        if (change == ViewChange::rows) {
            shown_.showRows();
            shown_.showSelection(model_.selectedRowIndexes());
        } else if (change == ViewChange::selection) {
            shown_.showSelection(model_.selectedRowIndexes());
        } else if (change == ViewChange::columns) {
            shown_.showColumns();
        } else {
            return false;
        }
        return true;
    }
    void showAll() override {
        shown_.setTable(&model_);
        shown_.showSelection(model_.selectedRowIndexes());
    }
};

} // namespace

std::unique_ptr<ViewBinding> make_binding(View& view, QWidget& widget) {
    switch (view.kind()) {
    case ViewKind::view:
        return std::make_unique<PlainBinding>(view, widget);
    case ViewKind::window:
        return std::make_unique<WindowBinding>(view, widget);
    case ViewKind::icon:
        return std::make_unique<IconBinding>(view, widget);
    case ViewKind::button:
    case ViewKind::radio:
        return std::make_unique<ButtonBinding>(view, widget);
    case ViewKind::popup:
        return std::make_unique<PopUpBinding>(view, widget);
    case ViewKind::textField:
        return std::make_unique<FieldBinding>(view, widget);
    case ViewKind::staticText:
        return std::make_unique<StaticTextBinding>(view, widget);
    case ViewKind::scrollText:
        return std::make_unique<ScrollTextBinding>(view, widget);
    case ViewKind::stepper:
        return std::make_unique<StepperBinding>(view, widget);
    case ViewKind::table:
        return std::make_unique<TableBinding>(view, widget);
    }
    return nullptr;
}

} // namespace specialpages::qt

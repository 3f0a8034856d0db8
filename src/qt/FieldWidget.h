// A text field. The text that a key or an assistive tool makes is shown to the model, which lets it stand or
// not; the widget follows.
#pragma once

#include <QLineEdit>
#include <functional>

namespace specialpages::qt {

class FieldWidget : public QLineEdit {
  public:
    explicit FieldWidget(QWidget* parent);

    /// `entered`: the keyboard comes; `edited`: the text that a key or a tool would make; `left`: the
    /// keyboard goes to another control. A menu or another window that has it for a while is neither.
    struct Handlers {
        std::function<void()> entered;
        std::function<void(const QString& text)> edited;
        std::function<void()> left;
    };
    void setHandlers(Handlers handlers) { handlers_ = std::move(handlers); }

    /// Whether `entered` or `edited` runs, so that what happens to the field is the user's own doing.
    bool isInUse() const { return inUse_; }

    /// Shows the text. The one that stood there before the user's last key, press or drop brings its cursor
    /// and selection back.
    void showText(const QString& text);

  protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    struct Before {
        QString text;
        int cursor = 0;
        int selectionStart = -1;
        int selectionLength = 0;
    };
    Before now() const;

    void use(const std::function<void()>& handler);

    Handlers handlers_;
    Before before_;
    bool inUse_ = false;
    bool isAway_ = false; ///< the keyboard is in another window or a menu, and comes back
};

} // namespace specialpages::qt

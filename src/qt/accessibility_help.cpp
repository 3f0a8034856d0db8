#include "qt/accessibility_help.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>
#include <algorithm>
#include <utility>
#include <vector>

namespace specialpages::qt {

namespace {

/// Characters of the page, `end` behind the last.
struct Range {
    int begin = 0;
    int end = 0;
};

struct PageLink {
    Range at;
    QString address;
};

std::vector<PageLink> links_of(const QTextDocument& page) {
    std::vector<PageLink> links;
    for (QTextBlock block = page.begin(); block.isValid(); block = block.next()) {
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment part = it.fragment();
            const QString address = part.charFormat().anchorHref();
            if (address.isEmpty()) {
                continue;
            }
            const Range at{part.position(), part.position() + part.length()};
            // A link whose words look different is one all the same.
            if (!links.empty() && links.back().at.end == at.begin && links.back().address == address) {
                links.back().at.end = at.end;
            } else {
                links.push_back({at, address});
            }
        }
    }
    return links;
}

/// The page's characters, each in its place. Where a table or one of its cells begins or ends the document
/// has characters that nobody can read; here they are ends of lines.
QString text_in(const QTextDocument& page, Range range) {
    return page.toPlainText().mid(range.begin, range.end - range.begin);
}

QTextCursor cursor_over(const QTextBrowser& browser, Range range) {
    const int last = browser.document()->characterCount() - 1;
    QTextCursor cursor(browser.document());
    cursor.setPosition(std::clamp(range.begin, 0, last));
    cursor.setPosition(std::clamp(range.end, 0, last), QTextCursor::KeepAnchor);
    return cursor;
}

/// Where they stand within the viewport.
QRect place_of(const QTextBrowser& browser, Range range) {
    QRect place;
    for (int at = range.begin; at <= range.end; ++at) {
        place |= browser.cursorRect(cursor_over(browser, {at, at}));
    }
    return place;
}

QRect on_screen(const QTextBrowser& browser, const QRect& place) {
    return {browser.viewport()->mapToGlobal(place.topLeft()), place.size()};
}

/// A link of the page that is shown; it ends with the page.
class LinkAccessible final : public QAccessibleInterface, public QAccessibleActionInterface {
  public:
    LinkAccessible(QTextBrowser& browser, PageLink link) : browser_(&browser), link_(std::move(link)) {}

    bool isValid() const override { return browser_ != nullptr; }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return browser_->window()->windowHandle(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(browser_); }
    QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }

    QString text(QAccessible::Text text) const override {
        return text == QAccessible::Name ? text_in(*browser_->document(), link_.at) : QString();
    }
    void setText(QAccessible::Text /*text*/, const QString& /*value*/) override {}
    QRect rect() const override { return on_screen(*browser_, place_of(*browser_, link_.at)); }
    QAccessible::Role role() const override { return QAccessible::Link; }
    QAccessible::State state() const override {
        QAccessible::State state;
        state.linked = true;
        state.focusable = true;
        state.focused = hasKeyboard();
        state.disabled = !browser_->isEnabled();
        state.invisible = !browser_->isVisible();
        state.offscreen = !browser_->viewport()->rect().intersects(place_of(*browser_, link_.at));
        return state;
    }
    /// The browser marks the link that the keyboard is on.
    bool hasKeyboard() const {
        const QTextCursor marked = browser_->textCursor();
        return browser_->hasFocus() && marked.selectionStart() == link_.at.begin &&
               marked.selectionEnd() == link_.at.end;
    }

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override {
        return browser_->isEnabled() ? QStringList{pressAction()} : QStringList{};
    }
    void doAction(const QString& name) override {
        if (name == pressAction() && browser_->isEnabled()) {
            // Later, since the link ends with its page.
            const QUrl url = browser_->source().resolved(QUrl(link_.address));
            QMetaObject::invokeMethod(
                browser_, [browser = browser_, url] { browser->setSource(url); }, Qt::QueuedConnection);
        }
    }
    QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

  private:
    QPointer<QTextBrowser> browser_;
    PageLink link_;
};

/// The page: a text that can be read but not written, and its links in order. Qt calls it a label whose text
/// can be changed, and tells of no links.
class PageAccessible final : public QAccessibleWidget, public QAccessibleTextInterface {
  public:
    explicit PageAccessible(QTextBrowser& browser)
        : QAccessibleWidget(&browser, QAccessible::Document),
          changes_(QObject::connect(browser.document(), &QTextDocument::contentsChanged,
                                    [this] { forgetLinks(); })) {}
    ~PageAccessible() override {
        QObject::disconnect(changes_);
        forgetLinks();
    }
    PageAccessible(const PageAccessible&) = delete;
    PageAccessible& operator=(const PageAccessible&) = delete;

    void* interface_cast(QAccessible::InterfaceType type) override {
        return type == QAccessible::TextInterface ? static_cast<QAccessibleTextInterface*>(this)
                                                  : QAccessibleWidget::interface_cast(type);
    }
    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.readOnly = true;
        state.multiLine = true;
        state.selectableText = true;
        return state;
    }

    int childCount() const override { return static_cast<int>(links().size()); }
    QAccessibleInterface* child(int index) const override {
        return index < 0 || index >= childCount()
                   ? nullptr
                   : QAccessible::accessibleInterface(links()[static_cast<std::size_t>(index)]);
    }
    int indexOfChild(const QAccessibleInterface* wanted) const override {
        return indexOf([&](const QAccessibleInterface& link) { return &link == wanted; });
    }
    QAccessibleInterface* childAt(int x, int y) const override {
        return child(indexOf([&](const QAccessibleInterface& link) { return link.rect().contains(x, y); }));
    }
    QAccessibleInterface* focusChild() const override {
        return child(indexOf([](const QAccessibleInterface& link) { return link.state().focused != 0; }));
    }

    // The text.

    void selection(int index, int* start, int* end) const override {
        const QTextCursor marked = browser().textCursor();
        *start = index == 0 ? marked.selectionStart() : 0;
        *end = index == 0 ? marked.selectionEnd() : 0;
    }
    int selectionCount() const override { return browser().textCursor().hasSelection() ? 1 : 0; }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int index) override {
        if (index == 0) {
            setCursorPosition(cursorPosition());
        }
    }
    void setSelection(int index, int start, int end) override {
        if (index == 0) {
            browser().setTextCursor(cursor_over(browser(), {start, end}));
        }
    }
    int cursorPosition() const override { return browser().textCursor().position(); }
    void setCursorPosition(int position) override { setSelection(0, position, position); }

    QString text(QAccessible::Text text) const override { return QAccessibleWidget::text(text); }
    QString text(int start, int end) const override {
        return text_in(*browser().document(), {start, end < 0 ? characterCount() : end});
    }
    int characterCount() const override {
        return browser().document()->characterCount() - 1; // the last is the document's own
    }
    QRect characterRect(int offset) const override {
        return on_screen(browser(), place_of(browser(), {offset, offset + 1}));
    }
    int offsetAtPoint(const QPoint& point) const override {
        return browser().cursorForPosition(browser().viewport()->mapFromGlobal(point)).position();
    }
    void scrollToSubstring(int start, int /*end*/) override {
        QScrollBar& bar = *browser().verticalScrollBar();
        bar.setValue(bar.value() + place_of(browser(), {start, start}).top());
    }
    /// Bold is what a window calls a button or a choice, and a heading.
    QString attributes(int offset, int* start, int* end) const override {
        const QTextBlock block = browser().document()->findBlock(offset);
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextFragment part = it.fragment();
            if (part.contains(offset)) {
                *start = part.position();
                *end = part.position() + part.length();
                return part.charFormat().fontWeight() >= QFont::Bold ? QStringLiteral("font-weight:bold;")
                                                                     : QString();
            }
        }
        *start = offset;
        *end = std::min(offset + 1, characterCount());
        return {};
    }

  private:
    QTextBrowser& browser() const { return *static_cast<QTextBrowser*>(object()); }

    const std::vector<QAccessible::Id>& links() const {
        if (!known_) {
            for (PageLink& link : links_of(*browser().document())) {
                // Owned by the table of interfaces until it is deleted by its id.
                links_.push_back(
                    QAccessible::registerAccessibleInterface(new LinkAccessible(browser(), std::move(link))));
            }
            known_ = true;
        }
        return links_;
    }
    void forgetLinks() {
        for (const QAccessible::Id id : std::exchange(links_, {})) {
            QAccessible::deleteAccessibleInterface(id);
        }
        known_ = false;
    }
    template <class Predicate>
    int indexOf(const Predicate& is) const {
        const auto& all = links();
        const auto found = std::find_if(all.begin(), all.end(), [&](QAccessible::Id id) {
            return is(*QAccessible::accessibleInterface(id));
        });
        return found == all.end() ? -1 : static_cast<int>(found - all.begin());
    }

    QMetaObject::Connection changes_;
    mutable std::vector<QAccessible::Id> links_;
    mutable bool known_ = false;
};

} // namespace

QAccessibleInterface* describe_page(QTextBrowser& browser) {
    return new PageAccessible(browser);
}

} // namespace specialpages::qt

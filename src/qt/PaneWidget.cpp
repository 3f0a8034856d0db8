#include "qt/PaneWidget.h"

#include "host/HostError.h"
#include "platform/foundation/Bundle.h"
#include "platform/services/help_viewer.h"
#include "platform/toolkit/Application.h"
#include "qt/DialogWidget.h"
#include "qt/QtFace.h"
#include "qt/TableWidget.h"
#include "qt/text.h"
#include "qt/window_mnemonics.h"

#include <QAbstractButton>
#include <QMessageBox>
#include <QShortcut>
#include <QVBoxLayout>
#include <filesystem>
#include <string>

namespace specialpages::qt {

namespace {

platform::View& view_of(host::PrintHost& host) {
    platform::View* const view = host.panel() == nullptr ? nullptr : host.panel()->panelView();
    if (view == nullptr || view->nib() == nullptr) {
        throw host::HostError(host::ErrorCode::other, host.ppd().name(),
                              "expected a pane with a view from a nib for this printer");
    }
    return *view;
}

/// Views are translated with their nib; names for assistive tools alone are none of theirs.
void translate_names(QWidget& root, const platform::Bundle& bundle, const std::filesystem::path& nib) {
    const std::string table = nib.stem().string();
    for (QWidget* const widget : root.findChildren<QWidget*>()) {
        const std::string name = model_text(widget->accessibleName());
        if (!name.empty()) {
            widget->setAccessibleName(shown_text(bundle.localizedStringForKey(name, name, table)));
        }
    }
}

/// A key that stands for a click on the button, while the keyboard is in `place` (or below it).
void add_key(QAbstractButton& button, const QString& key, QWidget& place, Qt::ShortcutContext context) {
    auto* const shortcut = new QShortcut(QKeySequence(key, QKeySequence::PortableText), &place);
    shortcut->setContext(context);
    const QString words = shortcut->key().toString(QKeySequence::NativeText);
    if (button.toolTip().isEmpty()) {
        button.setToolTip(words);
    }
    button.setAccessibleDescription(words);
    // Through the button, so that what the pane does not allow now is not done; and when the key is done
    // with, since a click may run a whole dialog, whose keys are not to meet a half-finished shortcut.
    QObject::connect(shortcut, &QShortcut::activated, &button, &QAbstractButton::click, Qt::QueuedConnection);
}

} // namespace

PaneWidget::PaneWidget(host::PrintHost& host, QtFace& face, QWidget* parent)
    : QWidget(parent), host_(host), face_(face), nib_(view_of(host).nib(), *this), mirror_(nib_) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&nib_.root());
    setWindowTitle(shown_text(host.panel()->panelName()));
    translate_names(*this, *host.module().bundle(), view_of(host).nib()->file);
    mirror_.bind(view_of(host));
    mirror_.followFocus(host.window());
    makeKeys();
}

PaneWidget::~PaneWidget() {
    delete help_;
    if (face_.pane() == this) {
        face_.setPane(nullptr);
        platform::setHelpOpener(nullptr);
    }
}

void PaneWidget::activate() {
    platform::Application::shared().setMainWindow(&host_.window());
    face_.setPane(this);
    platform::setHelpOpener([this](std::string_view book, std::string_view page, std::string_view anchor) {
        return openHelp(book, page, anchor) ? platform::noErr : platform::fnfErr;
    });
}

bool PaneWidget::openHelp(std::string_view book, std::string_view page, std::string_view anchor) {
    if (help_ == nullptr) {
        help_ = new HelpViewer(host_.module().bundle());
    }
    return help_->showPage(book, page, anchor, *this);
}

DialogWidget* PaneWidget::widgetsOf(platform::Window& window) {
    try {
        mirror_.bind(window);
    } catch (const host::HostError& error) {
        QMessageBox::critical(this, windowTitle(), shown_text(error.what()));
        return nullptr;
    }
    return dynamic_cast<DialogWidget*>(mirror_.widgetOf(window));
}

void PaneWidget::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    give_mnemonics(*this); // beside those of the window that it is in now
}

void PaneWidget::makeKeys() {
    auto* const table = dynamic_cast<TableWidget*>(nib_.root().findChild<QTableView*>());
    for (auto* const button : nib_.root().findChildren<QAbstractButton*>()) {
        for (const QString& key : button->property("tableKeys").toStringList()) {
            if (table != nullptr) {
                add_key(*button, key, *table, Qt::WidgetShortcut);
            }
        }
        for (const QString& key : button->property("paneKeys").toStringList()) {
            add_key(*button, key, *this, Qt::WidgetWithChildrenShortcut);
        }
    }
}

} // namespace specialpages::qt

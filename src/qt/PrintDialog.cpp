#include "qt/PrintDialog.h"

#include "host/HostError.h"
#include "qt/text.h"

#include <QAbstractButton>
#include <QDialogButtonBox>
#include <QLabel>
#include <QMessageBox>
#include <QTabWidget>
#include <QVBoxLayout>
#include <utility>

namespace specialpages::qt {

namespace {

constexpr const char* kProblemTitle = "Special Pages";

} // namespace

PrintDialog::PrintDialog(QPrinter& printer, QWidget* parent) : QPrintDialog(&printer, parent) {
    tabs(); // there are tabs, or this is no dialog to stand in
}

PrintDialog::~PrintDialog() {
    showTab(nullptr); // the tab is the pane's, not the dialog's
}

QTabWidget& PrintDialog::tabs() {
    auto* widget = findChild<QTabWidget*>();
    if (widget == nullptr) {
        throw host::HostError(host::ErrorCode::other, "print dialog", "expected it to have tabs");
    }
    return *widget;
}

void PrintDialog::showTab(QWidget* tab) {
    QTabWidget& all = tabs();
    if (tab_ != nullptr) {
        all.removeTab(all.indexOf(tab_));
        tab_->setParent(nullptr);
    }
    tab_ = tab;
    if (tab == nullptr) {
        return;
    }
    all.addTab(tab, tab->windowTitle());
    all.setCurrentWidget(tab);
    expand();
}

void PrintDialog::expand() {
    // The dialog opens without its tabs; the button that brings them is the one of the box that "resets".
    if (!tabs().parentWidget()->isHidden()) {
        return;
    }
    for (const auto* const box : findChildren<QDialogButtonBox*>()) {
        for (QAbstractButton* const button : box->buttons()) {
            if (box->buttonRole(button) == QDialogButtonBox::ResetRole) {
                button->click();
            }
        }
    }
}

void PrintDialog::setPane(std::unique_ptr<PrinterPane> pane) {
    showTab(nullptr);
    problem_.reset();
    pane_ = std::move(pane);
    if (pane_ != nullptr) {
        pane_->widget().activate();
        showTab(&pane_->widget());
        pane_->host().panel()->willShow();
    }
}

void PrintDialog::setProblem(const QString& sentence) {
    setPane(nullptr);
    problem_ = std::make_unique<QWidget>();
    problem_->setWindowTitle(QLatin1String(kProblemTitle));
    auto* const layout = new QVBoxLayout(problem_.get());
    auto* const label = new QLabel(problem_.get());
    label->setTextFormat(Qt::PlainText);
    label->setText(sentence);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout->addWidget(label);
    layout->addStretch();
    showTab(problem_.get());
}

void PrintDialog::setPrintHandler(std::function<void(const platform::PrintSettings&)> handler) {
    handler_ = std::move(handler);
}

void PrintDialog::say(const QString& sentence) {
    QMessageBox::warning(this, windowTitle(), sentence);
}

void PrintDialog::accept() {
    std::string reason;
    if (pane_ != nullptr && !pane_->print(reason)) {
        say(shown_text(reason));
        return;
    }
    QPrintDialog::accept();
}

void PrintDialog::done(int result) {
    if (result == QDialog::Accepted && handler_ && pane_ != nullptr) {
        try {
            handler_(pane_->host().settings());
        } catch (const host::HostError& error) {
            say(shown_text(error.what()));
            return;
        }
    }
    QPrintDialog::done(result);
}

} // namespace specialpages::qt

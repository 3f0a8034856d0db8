#include "qt/PrintDialog.h"

#include "host/HostError.h"
#include "platform/toolkit/Application.h"
#include "qt/dialog_options.h"
#include "qt/text.h"
#include "qt/window_place.h"

#include <QAbstractButton>
#include <QAbstractFileIconProvider>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileSystemModel>
#include <QIcon>
#include <QMargins>
#include <QMessageBox>
#include <QPrinter>
#include <QScreen>
#include <QTabWidget>
#include <utility>

namespace specialpages::qt {

namespace {

/// In which the pane's table shows its rows whole.
constexpr QSize kComfortable(660, 740);
/// Room for what a window manager draws around a window.
constexpr QMargins kFrame(4, 24, 4, 8);

/// The part of that name; any of its kind for a null name.
template <class Widget>
Widget& part_of(const PrintDialog& dialog, const char* name, const char* what) {
    auto* const widget = dialog.findChild<Widget*>(QLatin1String(name));
    if (widget == nullptr) {
        throw host::HostError(host::ErrorCode::other, "print dialog",
                              std::string("expected it to have ") + what);
    }
    return *widget;
}

/// Symbols of no file. The dialog reads the user's folder as it opens, to complete the name of a file to
/// print into, and would look each file up among all types of files that the machine knows, for its symbol:
/// in the way of its own first painting, and longer than all of that in a large folder.
class NoSymbols : public QAbstractFileIconProvider {
  public:
    QIcon icon(const QFileInfo& /*file*/) const override { return {}; }
    QString type(const QFileInfo& /*file*/) const override { return {}; }
};

/// The entry of the list of printers that prints into a file, as the dialog itself calls it.
QString file_entry() {
    return QPrintDialog::tr("Print to File (PDF)");
}

} // namespace

PrintDialog::PrintDialog(QPrinter& printer, WindowTexts texts, QWidget* parent)
    : QPrintDialog(&printer, parent), texts_(std::move(texts)) {
    // There are tabs and a list of printers, or this is no dialog to stand in. The tabs have no frame, since
    // what is on them has frames of its own.
    tabs().setDocumentMode(true);
    connect(&printerList(), &QComboBox::currentIndexChanged, this, [this] {
        if (!isHidden()) {
            follow();
        }
    });
    if (auto* const files = findChild<QFileSystemModel*>()) {
        static NoSymbols symbols; // which a model does not own
        files->setIconProvider(&symbols);
    }
}

PrintDialog::~PrintDialog() {
    printerList().disconnect(this);
    showTab(nullptr); // the tabs are the dialog's own to end
}

QTabWidget& PrintDialog::tabs() const {
    return part_of<QTabWidget>(*this, nullptr, "tabs");
}

QComboBox& PrintDialog::printerList() const {
    return part_of<QComboBox>(*this, "printers", "a list of printers");
}

std::vector<std::string> PrintDialog::printers() const {
    const QComboBox& list = printerList();
    std::vector<std::string> all;
    for (int i = 0; i < list.count(); ++i) {
        const QString name = list.itemText(i);
        if (!name.isEmpty() && name != file_entry()) { // a line is an entry without text
            all.push_back(model_text(name));
        }
    }
    return all;
}

std::string PrintDialog::chosenPrinter() const {
    const QComboBox& list = printerList();
    // The entry comes when the dialog is shown, and is then the chosen one.
    const bool comes = list.findText(file_entry()) < 0 && printer()->outputFormat() == QPrinter::PdfFormat;
    const QString name = list.currentText();
    return comes || name == file_entry() ? "" : model_text(name);
}

bool PrintDialog::choosePrinter(const std::string& printer) {
    const QString name = printer.empty() ? file_entry() : shown_text(printer);
    const int place = printerList().findText(name);
    if (printer.empty() && place < 0) {
        this->printer()->setOutputFormat(QPrinter::PdfFormat);
        return true;
    }
    if (place < 0 || (!printer.empty() && name == file_entry())) {
        return false;
    }
    printerList().setCurrentIndex(place);
    return true;
}

void PrintDialog::followPrinters(OpenTab open) {
    open_ = std::move(open);
    if (!isHidden()) {
        follow();
    }
}

void PrintDialog::setVisible(bool visible) {
    if (visible && isHidden()) {
        follow(); // so that the dialog is laid out with its tab at once
    }
    QPrintDialog::setVisible(visible); // which completes the list of printers
    if (visible) {
        follow();
    }
}

void PrintDialog::follow() {
    if (!open_) {
        return;
    }
    const std::string printer = chosenPrinter();
    auto found = opened_.find(printer);
    if (found == opened_.end()) {
        found = opened_.emplace(printer, open_(printer)).first;
    }
    showTab(found->second.get());
}

void PrintDialog::showTab(PrinterTab* tab) {
    if (tab == tab_) {
        return;
    }
    QTabWidget& all = tabs();
    if (tab_ != nullptr) {
        tabInFront_ = all.currentWidget() == tab_;
        if (tab_->pane() != nullptr) {
            tab_->pane()->host().panel()->shouldHide();
        }
        tab_->setParent(nullptr); // no part of the dialog any more, and so no tab
    }
    tab_ = tab;
    if (tab == nullptr) {
        return;
    }
    if (tab->pane() != nullptr) {
        tab->pane()->widget().activate();
    }
    all.addTab(tab, literal_label(tab->windowTitle()));
    if (tabInFront_) {
        all.setCurrentWidget(tab);
    }
    expand();
    if (tab->pane() != nullptr) {
        tab->pane()->host().panel()->willShow();
    }
}

void PrintDialog::expand() {
    // The dialog opens without its tabs; the button that brings them is the one of the box that "resets".
    if (!tabs().parentWidget()->isHidden()) {
        return;
    }
    const QPoint middle = geometry().center();
    for (const auto* const box : findChildren<QDialogButtonBox*>()) {
        for (QAbstractButton* const button : box->buttons()) {
            if (box->buttonRole(button) == QDialogButtonBox::ResetRole) {
                button->click();
            }
        }
    }
    fitOnScreen(middle);
}

void PrintDialog::fitOnScreen(QPoint middle) {
    const QRect place = window_place({size(), kComfortable, minimumSizeHint()}, middle,
                                     screen()->availableGeometry().marginsRemoved(kFrame));
    if (isHidden()) {
        resize(place.size()); // being shown gives it a place
    } else {
        setGeometry(place);
    }
}

void PrintDialog::setPrintHandler(std::function<void(const PrintRequest&)> handler) {
    handler_ = std::move(handler);
}

void PrintDialog::say(const QString& sentence) {
    QMessageBox box(QMessageBox::Warning, windowTitle(), sentence, QMessageBox::Ok, this);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}

void PrintDialog::accept() {
    if (pane() != nullptr && platform::Application::shared().modalDepth() > 0) {
        say(texts_(kWindowOpen));
        return;
    }
    QPrintDialog::accept();
}

bool PrintDialog::print() {
    PrintRequest request;
    request.printer = chosenPrinter();
    if (!request.printer.empty()) {
        request.options = dialog_options(*printer());
    }
    if (pane() != nullptr) {
        pane()->host().markJobOptions(request.options);
        if (!pane()->host().panel()->shouldPrint()) {
            say(texts_(kPrintStopped));
            return false;
        }
        request.settings = &pane()->host().settings();
    }
    try {
        if (handler_) {
            handler_(request);
        }
    } catch (const host::HostError& error) {
        say(shown_text(error.what()));
        return false;
    }
    return true;
}

void PrintDialog::keepSettings() {
    try {
        if (tab_ != nullptr) {
            tab_->keepSettings();
        }
    } catch (const host::HostError& error) {
        say(texts_(kNotRemembered, error.what())); // the job is printed: no reason to stay
    }
}

void PrintDialog::done(int result) {
    if (result == QDialog::Accepted) {
        if (!print()) {
            return;
        }
        keepSettings();
    }
    QPrintDialog::done(result);
}

} // namespace specialpages::qt

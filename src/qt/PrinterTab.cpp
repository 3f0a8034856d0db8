#include "qt/PrinterTab.h"

#include "host/HostError.h"
#include "host/queue_ppd.h"
#include "host/remembered_settings.h"
#include "qt/text.h"
#include "qt/window_mnemonics.h"

#include <QCheckBox>
#include <QLabel>
#include <QVBoxLayout>
#include <utility>

namespace specialpages::qt {

namespace {

/// What is kept for a printer, and why it cannot be read where it cannot.
struct Recalled {
    std::optional<platform::PrintSettings> settings;
    std::string unreadable;
};

Recalled recall(const std::string& printer) {
    try {
        return {host::recall_settings(printer), ""};
    } catch (const host::HostError& error) {
        return {std::nullopt, error.what()};
    }
}

/// As the nib's.
constexpr int kPaneMargin = 12;

} // namespace

PrinterTab::PrinterTab(const WindowTexts& texts, const QString& sentence) {
    setWindowTitle(texts(kTabTitle));
    auto* const layout = new QVBoxLayout(this);
    addSentence(*layout, sentence);
    layout->addStretch();
}

PrinterTab::PrinterTab(const WindowTexts& texts, std::unique_ptr<PrinterPane> pane, std::string printer,
                       bool remembered, const std::string& unreadable)
    : pane_(std::move(pane)), printer_(std::move(printer)),
      remember_(new QCheckBox(literal_label(texts(kRememberSettings)), this)) {
    setWindowTitle(pane_->widget().windowTitle());
    auto* const tab = new QVBoxLayout(this);
    tab->setContentsMargins(0, 0, 0, 0); // the pane keeps its own
    tab->setSpacing(0);
    tab->addWidget(&pane_->widget(), 1);
    auto* const layout = new QVBoxLayout;
    layout->setContentsMargins(kPaneMargin, 0, kPaneMargin, kPaneMargin);
    tab->addLayout(layout);
    remember_->setObjectName(QStringLiteral("rememberSettings"));
    set_latin_text(*remember_, QString::fromLatin1(kRememberSettings.english));
    remember_->setChecked(remembered);
    remember_->setEnabled(unreadable.empty() && host::remembered_settings_name(printer_).has_value());
    layout->addWidget(remember_);
    if (!unreadable.empty()) {
        addSentence(*layout, texts(kRememberedUnreadable, unreadable));
    }
}

void PrinterTab::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (remember_ != nullptr) {
        give_mnemonics(*remember_); // after the pane, which has the first choice
    }
}

QLabel* PrinterTab::addSentence(QVBoxLayout& layout, const QString& sentence) {
    auto* const label = new QLabel(this);
    label->setTextFormat(Qt::PlainText);
    label->setText(sentence);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    layout.addWidget(label);
    return label;
}

void PrinterTab::keepSettings() {
    if (remember_ == nullptr || !remember_->isEnabled()) {
        return;
    }
    if (remember_->isChecked()) {
        host::remember_settings(printer_, pane_->host().settings());
    } else {
        host::forget_settings(printer_);
    }
}

std::unique_ptr<PrinterTab> open_printer_tab(const ReadPpd& ppd, PrinterTabOptions options, QtFace& face,
                                             const WindowTexts& texts) {
    try {
        host::PpdFile file = ppd();
        const std::string name = options.printer.empty() ? file.model_name() : options.printer;
        const Recalled recalled = recall(name);
        const bool remembered = recalled.settings.has_value();
        PrinterPaneOptions pane;
        pane.printer = options.printer;
        pane.language = std::move(options.language);
        pane.bundle = std::move(options.bundle);
        if (options.settings) {
            pane.settings = *options.settings;
        } else if (recalled.settings) {
            pane.settings = *recalled.settings;
        }
        auto opened = PrinterPane::open(std::move(file), pane, face);
        if (opened == nullptr) {
            return nullptr;
        }
        return std::make_unique<PrinterTab>(texts, std::move(opened), name, remembered, recalled.unreadable);
    } catch (const host::QueueWithoutPpd&) {
        return nullptr;
    } catch (const host::HostError& error) {
        return std::make_unique<PrinterTab>(texts, shown_text(error.what()));
    }
}

} // namespace specialpages::qt

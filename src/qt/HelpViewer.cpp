#include "qt/HelpViewer.h"

#include "platform/foundation/Bundle.h"
#include "qt/text.h"
#include "qt/window_mnemonics.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>
#include <QTextDocument>
#include <QUrl>
#include <cmath>
#include <utility>

namespace specialpages::qt {

namespace {

/// Room for a page of help, in characters and lines.
constexpr int kColumns = 72;
constexpr int kLines = 28;

/// The contrast ratio of the Web Content Accessibility Guidelines (WCAG 2.1, "contrast ratio" and "relative
/// luminance"): 1 (none) to 21.
double contrast(const QColor& one, const QColor& other) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    const auto light = [&](const QColor& color) {
        return 0.05 + 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
               0.0722 * linear(color.blueF());
    };
    const double ratio = light(one) / light(other);
    return ratio < 1 ? 1 / ratio : ratio;
}

/// The palette's color of links; that of text, links being underlined, where it cannot be read on the page,
/// as in dark palettes that leave links as they are.
QColor link_color(const QPalette& palette) {
    constexpr double kReadable = 4.5; // the least for text of that size (WCAG 2.1, 1.4.3)
    const QColor link = palette.color(QPalette::Link);
    return contrast(link, palette.color(QPalette::Base)) < kReadable ? palette.color(QPalette::Text) : link;
}

} // namespace

HelpViewer::HelpViewer(std::shared_ptr<platform::Bundle> bundle)
    : bundle_(std::move(bundle)), browser_(new QTextBrowser(this)) {
    // Pages are read where they lie; a link that leads out of the help opens nothing.
    browser_->setOpenExternalLinks(false);
    const WindowTexts texts(bundle_);
    QPushButton* const back = addButton(texts, kHelpBack, "helpBack");
    QPushButton* const forward = addButton(texts, kHelpForward, "helpForward");
    QPushButton* const close = addButton(texts, kHelpClose, "helpClose");
    back->setEnabled(false);
    forward->setEnabled(false);
    auto* const layout = new QVBoxLayout(this);
    auto* const buttons = new QHBoxLayout;
    buttons->addWidget(back);
    buttons->addWidget(forward);
    buttons->addStretch();
    buttons->addWidget(close);
    layout->addWidget(browser_);
    layout->addLayout(buttons);
    browser_->setAccessibleName(texts(kHelpPage));
    give_mnemonics(*this);
    addKey(QKeySequence::Back, *back);
    addKey(QKeySequence::Forward, *forward);
    QObject::connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
    QObject::connect(forward, &QPushButton::clicked, browser_, &QTextBrowser::forward);
    QObject::connect(close, &QPushButton::clicked, this, &QDialog::close);
    QObject::connect(browser_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    QObject::connect(browser_, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
    resize(fontMetrics().averageCharWidth() * kColumns, fontMetrics().lineSpacing() * kLines);
}

QPushButton* HelpViewer::addButton(const WindowTexts& texts, const WindowText& text, const char* name) {
    auto* const button = new QPushButton(literal_label(texts(text)), this);
    set_latin_text(*button, QString::fromLatin1(text.english));
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    return button;
}

void HelpViewer::addKey(QKeySequence::StandardKey key, QPushButton& button) {
    // A button's own shortcut is its letter.
    for (const QKeySequence& keys : QKeySequence::keyBindings(key)) {
        QObject::connect(new QShortcut(keys, this), &QShortcut::activated, &button, &QPushButton::click);
    }
}

bool HelpViewer::showPage(std::string_view book, std::string_view page, std::string_view anchor,
                          QWidget& asker) {
    const auto file = bundle_->CFBundleCopyResourceURL(page, "", "Help");
    if (!file) {
        return false;
    }
    QUrl url = QUrl::fromLocalFile(shown_text(file->string()));
    if (!anchor.empty()) {
        url.setFragment(shown_text(anchor));
    }
    QWidget* const over =
        QApplication::activeModalWidget() != nullptr ? QApplication::activeModalWidget() : asker.window();
    if (parentWidget() != over) {
        hide();
        setParent(over, Qt::Dialog); // a modal dialog lets only its own windows be used
    }
    setWindowTitle(shown_text(book));
    browser_->document()->setDefaultStyleSheet(QLatin1String("a { color: ") + link_color(palette()).name() +
                                               QLatin1String("; }"));
    browser_->setSource(url);
    show();
    raise();
    activateWindow();
    browser_->setFocus();
    return true;
}

} // namespace specialpages::qt

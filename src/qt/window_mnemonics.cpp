#include "qt/window_mnemonics.h"

#include "qt/mnemonics.h"
#include "qt/text.h"

#include <QAbstractButton>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QVariant>
#include <algorithm>

namespace specialpages::qt {

namespace {

constexpr const char* kLatinText = "latinText";
constexpr const char* kNamedHere = "namedWithoutLetter";
/// The nib's word for the buttons that Return and Escape press.
constexpr const char* kRole = "role";

QString text_of(const QWidget& widget) {
    return widget.property("text").toString();
}

/// Those shown in `top` that are part of its window, itself first.
std::vector<QWidget*> shown_in(QWidget& top) {
    std::vector<QWidget*> shown{&top};
    for (QWidget* const widget : top.findChildren<QWidget*>()) {
        if (widget->window() == top.window() && widget->isVisibleTo(&top)) {
            shown.push_back(widget);
        }
    }
    return shown;
}

/// The letters of everything in the window that is not in the scope.
QString letters_around(const QWidget& scope) {
    QString letters;
    const auto add = [&](const QString& label) {
        if (const QChar letter = mnemonic_of(label); !letter.isNull()) {
            letters += letter;
        }
    };
    for (const QWidget* const widget : shown_in(*scope.window())) {
        if (widget == &scope || scope.isAncestorOf(widget)) {
            continue;
        }
        if (takes_letter(*widget)) {
            add(text_of(*widget));
        } else if (const auto* const box = qobject_cast<const QGroupBox*>(widget)) {
            add(box->title());
        } else if (const auto* const tabs = qobject_cast<const QTabBar*>(widget)) {
            for (int i = 0; i < tabs->count(); ++i) {
                add(tabs->tabText(i));
            }
        }
    }
    return letters;
}

/// A letter that was added to the text is not read out: the widget bears its text without, unless it was
/// named otherwise.
void name_without_letter(QWidget& named, const QString& plain, bool added) {
    const bool ours = named.property(kNamedHere).toBool();
    if (ours || (added && named.accessibleName().isEmpty())) {
        named.setAccessibleName(plain);
        named.setProperty(kNamedHere, true);
    }
}

void show_label(QWidget& widget, const QString& label, const QString& plain) {
    widget.setProperty("text", label);
    const bool added = label.contains(QLatin1String("(&")) && !plain.contains(QLatin1String("(&"));
    name_without_letter(widget, plain, added);
    if (const auto* const of = qobject_cast<const QLabel*>(&widget)) {
        name_without_letter(*of->buddy(), plain, added);
    }
}

} // namespace

bool takes_letter(const QWidget& widget) {
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    return label != nullptr ? label->buddy() != nullptr
                            : qobject_cast<const QAbstractButton*>(&widget) != nullptr;
}

std::vector<QWidget*> give_mnemonics(QWidget& scope) {
    std::vector<QWidget*> labelled;
    std::vector<LabelText> texts;
    for (QWidget* const widget : shown_in(scope)) {
        if (takes_letter(*widget)) {
            labelled.push_back(widget);
            texts.push_back({plain_label(text_of(*widget)), widget->property(kLatinText).toString(),
                             widget->property(kRole).isValid()});
        }
    }
    const QStringList labels = with_mnemonics(texts, letters_around(scope));
    std::vector<QWidget*> changed;
    for (std::size_t i = 0; i < labelled.size(); ++i) {
        const QString& label = labels[static_cast<qsizetype>(i)];
        if (label != text_of(*labelled[i])) {
            show_label(*labelled[i], label, texts[i].text);
            changed.push_back(labelled[i]);
        }
    }
    return changed;
}

void level_buttons(QWidget& scope) {
    int height = 0;
    std::vector<QPushButton*> buttons;
    for (QWidget* const widget : shown_in(scope)) {
        if (auto* const button = qobject_cast<QPushButton*>(widget)) {
            buttons.push_back(button);
            height = std::max(height, button->sizeHint().height());
        }
    }
    for (QPushButton* const button : buttons) {
        if (button->minimumHeight() != height) {
            button->setMinimumHeight(height);
        }
    }
}

void set_latin_text(QWidget& widget, const QString& text) {
    widget.setProperty(kLatinText, text);
}

} // namespace specialpages::qt

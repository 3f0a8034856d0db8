// Layouts hold their texts: in every language that the bundle has, with texts of 100, 125 and 200 percent.
#include "platform/foundation/Bundle.h"
#include "qt/HelpViewer.h"
#include "qt/PopUpWidget.h"
#include "qt/StatusLine.h"
#include "qt/pane_windows.h"
#include "qt/print_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTableView>
#include <QTextBrowser>
#include <map>

namespace specialpages::qt::testing {
namespace {

using ::testing::IsEmpty;
using Complaints = std::vector<std::string>;

/// Edges closer than this are meant to be one.
constexpr int kNearly = 8;
/// As long as the reasons of a rich printer get.
constexpr const char* kLongReason = "Not with Paper Type: Preprinted Thick 4, 1 Side Only";

std::string told(const QWidget& widget, const QString& text, const QSize& needs) {
    return (widget.objectName() + QLatin1String(" \"") + text + QLatin1String("\" needs ") +
            QString::number(needs.width()) + QLatin1Char('x') + QString::number(needs.height()) +
            QLatin1String(", has ") + QString::number(widget.width()) + QLatin1Char('x') +
            QString::number(widget.height()))
        .toStdString();
}

void check_size(const QWidget& widget, const QString& text, const QSize& needs, Complaints& complaints) {
    if (!text.isEmpty() && widget.isVisible() &&
        (widget.width() < needs.width() || widget.height() < needs.height())) {
        complaints.push_back(told(widget, text, needs));
    }
}

/// What is cut in the window.
Complaints cut_texts(QWidget& window) {
    Complaints complaints;
    for (const auto* const label : window.findChildren<QLabel*>()) {
        if (dynamic_cast<const StatusLine*>(label) != nullptr) {
            continue; // its text is made to fit
        }
        const QSize needs =
            label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->minimumSizeHint();
        check_size(*label, label->text(), needs, complaints);
    }
    for (const auto* const button : window.findChildren<QAbstractButton*>()) {
        check_size(*button, button->text(), button->minimumSizeHint(), complaints);
    }
    for (const auto* const list : window.findChildren<PopUpWidget*>()) {
        // Room for each of its items; where the screen ends the window, for what it shows.
        const bool bounded = window.width() >= window.screen()->availableSize().width();
        const int shown = list->fontMetrics().horizontalAdvance(list->currentText()) + list->height();
        check_size(*list, list->currentText(),
                   bounded ? list->minimumSizeHint().expandedTo({shown, 0}) : list->sizeHint(), complaints);
    }
    for (const auto* const field : window.findChildren<QLineEdit*>()) {
        const int text = field->fontMetrics().horizontalAdvance(field->text());
        check_size(*field, field->text(), {text + 4, field->minimumSizeHint().height()}, complaints);
    }
    for (const auto* const text : window.findChildren<QPlainTextEdit*>()) {
        if (text->isVisible() && text->verticalScrollBar()->isVisible()) {
            complaints.push_back(text->objectName().toStdString() + " has to be scrolled");
        }
    }
    for (const auto* const table : window.findChildren<QTableView*>()) {
        const QHeaderView& header = *table->horizontalHeader();
        for (int column = 0; column < header.count() && header.isVisible(); ++column) {
            if (header.sectionSize(column) < header.sectionSizeHint(column)) {
                complaints.push_back("column " + std::to_string(column) + " of " +
                                     table->objectName().toStdString());
            }
        }
    }
    return complaints;
}

bool is_shown(const QWidget& widget, const QWidget& window) {
    return widget.window() == &window && widget.isVisible();
}

QRect place_in(const QWidget& widget, const QWidget& window) {
    return {widget.mapTo(&window, QPoint(0, 0)), widget.size()};
}

/// The left edges of the buttons, lists, fields and labels of a window that are not one of a few columns:
/// edges that are nearly, but not quite, those of another.
Complaints ragged_edges(QWidget& window) {
    std::map<int, std::string> edges;
    const auto add = [&](const QWidget& widget) {
        edges.emplace(place_in(widget, window).left(), widget.objectName().toStdString());
    };
    for (const auto* const child : window.findChildren<QWidget*>()) {
        const bool control = qobject_cast<const QComboBox*>(child) != nullptr ||
                             qobject_cast<const QLineEdit*>(child) != nullptr ||
                             qobject_cast<const QPlainTextEdit*>(child) != nullptr ||
                             qobject_cast<const QLabel*>(child) != nullptr;
        if (control && is_shown(*child, window) && !child->objectName().startsWith(QLatin1String("qt_"))) {
            add(*child);
        }
    }
    Complaints ragged;
    for (auto edge = edges.begin(); edge != edges.end(); ++edge) {
        const auto next = std::next(edge);
        if (next != edges.end() && next->first - edge->first < kNearly) {
            ragged.push_back(edge->second + " at " + std::to_string(edge->first) + " and " + next->second +
                             " at " + std::to_string(next->first));
        }
    }
    return ragged;
}

/// The buttons of a dialog's last row that are not of one height on one line, or not in the window's margin.
Complaints ragged_buttons(QWidget& window) {
    Complaints complaints;
    const QMargins margins = window.layout()->contentsMargins();
    const QPushButton* lowest = nullptr;
    for (const auto* const button : window.findChildren<QPushButton*>()) {
        if (is_shown(*button, window) &&
            (lowest == nullptr || place_in(*button, window).top() > place_in(*lowest, window).top())) {
            lowest = button;
        }
    }
    if (lowest == nullptr) {
        return {"no buttons"};
    }
    const QRect row = place_in(*lowest, window);
    int right = 0;
    for (const auto* const button : window.findChildren<QPushButton*>()) {
        const QRect place = place_in(*button, window);
        if (is_shown(*button, window) && place.bottom() >= row.top()) {
            right = std::max(right, place.right());
            if (place.top() != row.top() || place.height() != row.height()) {
                complaints.push_back(button->objectName().toStdString() + " is off the row");
            }
        }
    }
    int foot = window.height() - margins.bottom();
    if (const auto* const dialog = dynamic_cast<const DialogWidget*>(&window);
        dialog != nullptr && dialog->statusLine() != nullptr) {
        foot -= dialog->statusLine()->sizeHint().height() + window.layout()->spacing();
    }
    if (right != window.width() - margins.right() - 1 || row.bottom() != foot - 1) {
        complaints.push_back("the buttons end at " + std::to_string(right) + "," +
                             std::to_string(row.bottom()) + " of " + std::to_string(window.width()) + "x" +
                             std::to_string(window.height()));
    }
    return complaints;
}

/// Labels that do not stand on the line of the control beside them.
Complaints off_line(QWidget& window) {
    Complaints complaints;
    for (const auto* const label : window.findChildren<QLabel*>()) {
        const QWidget* const buddy = label->buddy();
        if (buddy == nullptr || !is_shown(*label, window) || !is_shown(*buddy, window)) {
            continue;
        }
        const QRect text = place_in(*label, window);
        const QRect control = place_in(*buddy, window);
        const bool beside =
            text.right() < control.left() && text.top() <= control.bottom() && control.top() <= text.bottom();
        const bool above = text.bottom() <= control.top() && text.left() == control.left();
        const int apart = std::abs(text.center().y() - control.center().y());
        if ((!beside && !above) || (beside && apart > 2)) {
            complaints.push_back(label->objectName().toStdString());
        }
    }
    return complaints;
}

/// As wide as a sentence of the longest reason asks for.
void expect_reason_fits(const DialogWidget& dialog) {
    if (dialog.statusLine() != nullptr) {
        dialog.statusLine()->say(kLongReason);
        EXPECT_EQ(dialog.statusLine()->text(), kLongReason) << dialog.objectName().toStdString();
        EXPECT_GE(dialog.statusLine()->height(), dialog.fontMetrics().height());
        dialog.statusLine()->say({});
    }
}

class Layouts : public PaneWindowsTest, public ::testing::WithParamInterface<int> {
  protected:
    Layouts() {
        QFont larger = before_;
        larger.setPointSizeF(before_.pointSizeF() * GetParam() / 100);
        QApplication::setFont(larger);
    }
    ~Layouts() override { QApplication::setFont(before_); }

    static std::vector<std::string> languages() {
        return platform::Bundle::load(paths::bundle_dir())->localizations();
    }
    static void check(DialogWidget& dialog, const std::string& word) {
        settle();
        EXPECT_THAT(cut_texts(dialog), IsEmpty()) << word;
        EXPECT_THAT(ragged_edges(dialog), IsEmpty()) << word;
        EXPECT_THAT(ragged_buttons(dialog), IsEmpty()) << word;
        EXPECT_THAT(off_line(dialog), IsEmpty()) << word;
        EXPECT_LE(dialog.width(), 1000 * GetParam() / 100) << word;
        expect_reason_fits(dialog);
    }

  private:
    QFont before_ = QApplication::font();
};

TEST_P(Layouts, HoldTheTextsOfEveryWindow) {
    for (const std::string& language : languages()) {
        SCOPED_TRACE(language);
        open(host::read_settings_file(kHandbook), kSamplePpd, language);
        window_->resize(window_->size().expandedTo(window_->minimumSizeHint()));
        settle();
        EXPECT_THAT(cut_texts(*window_), IsEmpty());
        for (const PaneWindow& window : pane_windows()) {
            inWindow(window, [&](DialogWidget& dialog) { check(dialog, window.word); });
        }
        close();
    }
}

TEST_P(Layouts, HoldTheTextsOfTheHelp) {
    for (const std::string& language : languages()) {
        open({}, kSamplePpd, language);
        click(widget<QWidget>("SPMainHelpButton"));
        HelpViewer* const help = pane_->widget().help();
        ASSERT_NE(help, nullptr);
        settle();
        EXPECT_THAT(cut_texts(*help), IsEmpty()) << language;
        EXPECT_FALSE(help->browser().horizontalScrollBar()->isVisible()) << language;
        help->close();
        close();
    }
}

INSTANTIATE_TEST_SUITE_P(Percent, Layouts, ::testing::Values(100, 125, 200));

class PrintLayout : public PrintProgramTest {};

TEST_F(PrintLayout, WhatTheTabGainsGoesToTheListAndTheStrip) {
    PrintOptions options;
    options.ppd = sample("production");
    options.settings = kHandbook;
    start(options);
    PrinterTab& tab = *dialog().tab();
    QWidget desk; // a window's own size would be the window manager's
    tab.setParent(&desk);
    desk.show();
    tab.show();
    const auto sizes = [&](int width, int height) {
        tab.resize(width, height);
        settle();
        EXPECT_EQ(tab.size(), QSize(width, height));
        EXPECT_THAT(cut_texts(tab), IsEmpty()) << width;
        return std::pair{tab.findChild<QTableView*>()->size(),
                         tab.findChild<QWidget*>(QStringLiteral("SheetStrip"))->size()};
    };
    const auto [listBefore, stripBefore] = sizes(600, 450);
    EXPECT_GE(listBefore.height(), 60) << "there are rows to see";
    const auto [list, strip] = sizes(1000, 800);
    EXPECT_EQ(list.width(), listBefore.width() + 400);
    EXPECT_EQ(strip.width(), stripBefore.width() + 400);
    EXPECT_EQ(list.height() + strip.height(), listBefore.height() + stripBefore.height() + 350);
    EXPECT_GE(list.height(), listBefore.height() + 300);
    EXPECT_GE(strip.height(), stripBefore.height());
    EXPECT_EQ(sizes(600, 450), std::pair(listBefore, stripBefore)) << "and gives it back";
    tab.setParent(nullptr); // the dialog's own again
}

TEST_F(PrintLayout, TheTabFits600By450InEveryLanguage) {
    for (const std::string& language : platform::Bundle::load(paths::bundle_dir())->localizations()) {
        SCOPED_TRACE(language);
        PrintOptions options;
        options.ppd = sample("production");
        options.language = language;
        start(options);
        const QSize least = dialog().tab()->minimumSizeHint();
        EXPECT_LE(least.width(), 600);
        EXPECT_LE(least.height(), 450);
        EXPECT_THAT(cut_texts(*dialog().tab()), IsEmpty());
    }
}

} // namespace
} // namespace specialpages::qt::testing

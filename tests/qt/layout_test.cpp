// Layouts hold their texts: in every language that the bundle has, with texts of 100, 125 and 200 percent.
#include "platform/foundation/Bundle.h"
#include "qt/print_fixture.h"
#include "qt/qt_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QHeaderView>
#include <QLabel>
#include <QTableView>

namespace specialpages::qt::testing {
namespace {

using ::testing::IsEmpty;
using Complaints = std::vector<std::string>;

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
        const QSize needs =
            label->wordWrap() ? QSize(0, label->heightForWidth(label->width())) : label->minimumSizeHint();
        check_size(*label, label->text(), needs, complaints);
    }
    for (const auto* const button : window.findChildren<QAbstractButton*>()) {
        check_size(*button, button->text(), button->minimumSizeHint(), complaints);
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

/// Letters that reach more than one thing in the window.
Complaints shared_mnemonics(QWidget& window) {
    std::map<std::string, int> letters;
    const auto count = [&](const QWidget& widget, const QString& text) {
        const QKeySequence key = QKeySequence::mnemonic(text);
        if (widget.isVisible() && !key.isEmpty()) {
            ++letters[key.toString().toStdString()];
        }
    };
    for (const auto* const button : window.findChildren<QAbstractButton*>()) {
        count(*button, button->text());
    }
    for (const auto* const label : window.findChildren<QLabel*>()) {
        if (label->buddy() != nullptr) {
            count(*label, label->text());
        }
    }
    Complaints shared;
    for (const auto& [letter, times] : letters) {
        if (times > 1) {
            shared.push_back(letter);
        }
    }
    return shared;
}

class Layouts : public QtPaneTest, public ::testing::WithParamInterface<int> {
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
    void checkDialog(const char* opener) {
        inDialog(opener, [](QDialog& dialog) {
            settle();
            EXPECT_THAT(cut_texts(dialog), IsEmpty()) << dialog.objectName().toStdString();
            EXPECT_THAT(shared_mnemonics(dialog), IsEmpty()) << dialog.objectName().toStdString();
        });
    }

  private:
    QFont before_ = QApplication::font();
};

TEST_P(Layouts, CutNoTextOfThePaneAndItsDialogs) {
    for (const std::string& language : languages()) {
        SCOPED_TRACE(language);
        open(host::read_settings_file(kHandbook), kSamplePpd, language);
        window_->resize(window_->size().expandedTo(window_->minimumSizeHint()));
        settle();
        EXPECT_THAT(cut_texts(*window_), IsEmpty());
        EXPECT_THAT(shared_mnemonics(*window_), IsEmpty());
        for (const char* opener :
             {"SPAddCoversButton", "SPAddInsertsButton", "SPAddExceptionsButton", "SPDeleteAllButton"}) {
            checkDialog(opener);
        }
        pane_->widget().setParent(nullptr);
        window_.reset();
        pane_.reset();
    }
}

INSTANTIATE_TEST_SUITE_P(Percent, Layouts, ::testing::Values(100, 125, 200));

class PrintLayout : public PrintProgramTest {};

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

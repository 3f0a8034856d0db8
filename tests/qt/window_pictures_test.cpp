// Pictures of the windows for people to look at, as scripts/screenshots asks for them by the environment:
// PICTURES_FOLDER, PICTURES_LANGUAGE ("en"), PICTURES_DARK ("1"), PICTURES_WINDOWS ("print covers ..."). The
// scale is Qt's own (QT_SCALE_FACTOR). It is no test of the ordinary runs.
#include "qt/HelpViewer.h"
#include "qt/PopUpWidget.h"
#include "qt/pane_windows.h"
#include "qt/print_fixture.h"

#include <gtest/gtest.h>

#include <QLibraryInfo>
#include <QMenu>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QToolTip>
#include <QTranslator>
#include <vector>

namespace specialpages::qt::testing {
namespace {

QPalette dark_palette() {
    QPalette palette(QColor(0x35, 0x37, 0x3b), QColor(0x2b, 0x2d, 0x30));
    palette.setColor(QPalette::Base, QColor(0x1f, 0x20, 0x23));
    palette.setColor(QPalette::AlternateBase, QColor(0x26, 0x28, 0x2b));
    palette.setColor(QPalette::Highlight, QColor(0x2f, 0x65, 0xca));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        palette.setColor(role, QColor(0xe6, 0xe6, 0xe6));
        palette.setColor(QPalette::Disabled, role, QColor(0x80, 0x82, 0x86));
    }
    return palette;
}

std::string asked(const char* variable, const std::string& otherwise) {
    const char* const value = std::getenv(variable);
    return value == nullptr ? otherwise : value;
}

class WindowPictures : public PaneWindowsTest {
  protected:
    const std::string language_ = asked("PICTURES_LANGUAGE", "en");
    const bool dark_ = asked("PICTURES_DARK", "") == "1";
    const QString windows_ =
        QString::fromStdString(asked("PICTURES_WINDOWS", "print covers inserts exceptions"));

    bool wanted(const char* name) const {
        return windows_.split(QLatin1Char(' ')).contains(QLatin1String(name));
    }
    void take(QWidget& window, const std::string& name) const {
        settle();
        save(window.grab(), name);
    }
    void takeWindows() {
        for (const PaneWindow& window : pane_windows()) {
            if (wanted(window.word)) {
                inWindow(window, [&](DialogWidget& dialog) { take(dialog, window.word); });
            }
        }
    }
    void takeHelp() {
        if (wanted("help")) {
            click(widget<QWidget>("SPMainHelpButton"));
            take(*pane_->widget().help(), "help");
            pane_->widget().help()->close();
        }
    }
    /// A dialog with an open paper menu, the keyboard being on an item that tells why it is disabled.
    void takeMenu() {
        if (!wanted("menu")) {
            return;
        }
        inWindow(windowOf("inserts"), [&](DialogWidget& dialog) {
            auto& popup = widget<PopUpWidget>("spInstSelePaper");
            click(popup);
            QMenu& menu = *popup.openMenu();
            QAction& colors = *menu.actions().at(3);
            go_to(menu, colors);
            QTest::keyClick(menu.windowHandle(), Qt::Key_Right);
            go_to(*colors.menu(), *colors.menu()->actions().at(12));
            QToolTip::hideText(); // the line at the foot says the same
            takeTogether({&dialog, &menu, colors.menu()}, "menu");
            popup.hidePopup();
        });
    }
    /// Windows that stand over each other, as a screen shows them.
    void takeTogether(const std::vector<QWidget*>& windows, const std::string& name) const {
        settle();
        QRect all;
        for (const QWidget* const window : windows) {
            all = all.united(window->frameGeometry());
        }
        all.adjust(-kAround, -kAround, kAround, kAround);
        const qreal ratio = windows.front()->devicePixelRatio();
        QPixmap picture(all.size() * ratio);
        picture.setDevicePixelRatio(ratio);
        picture.fill(dark_ ? QColor(0x1a, 0x1b, 0x1d) : QColor(0xc8, 0xcb, 0xd0));
        QPainter painter(&picture);
        for (QWidget* const window : windows) {
            painter.drawPixmap(window->pos() - all.topLeft(), window->grab());
        }
        painter.end();
        save(picture, name);
    }
    void save(const QPixmap& picture, const std::string& name) const {
        const std::string file = asked("PICTURES_FOLDER", "/tmp") + "/" + name + "-" + language_ +
                                 (dark_ ? "-dark" : "") + (picture.devicePixelRatio() > 1 ? "-large" : "") +
                                 ".png";
        EXPECT_TRUE(picture.save(QString::fromStdString(file))) << file;
    }

    static constexpr int kAround = 16; ///< in pixels, of the screen behind the windows
};

TEST_F(WindowPictures, DISABLED_AreWritten) {
    QTranslator translator;
    if (translator.load(QLatin1String("qtbase_") + QString::fromStdString(language_),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        QApplication::installTranslator(&translator);
    }
    if (dark_) {
        QApplication::setPalette(dark_palette());
    }
    const host::testing::ScopedVariable server("CUPS_SERVER", (folder_.path() / "no-server").c_str());
    const host::testing::ScopedVariable state("XDG_STATE_HOME", (folder_.path() / "state").c_str());
    if (wanted("print")) {
        PrintOptions options;
        options.ppd = kSamplePpd;
        options.settings = kHandbook;
        options.language = language_;
        std::ostringstream none;
        PrintProgram program(options, cups_services(), none, none);
        program.dialog().show();
        program.dialog().resize(660, 740);
        take(program.dialog(), "print");
    }
    open(host::read_settings_file(kHandbook), kSamplePpd, language_);
    takeWindows();
    takeHelp();
    takeMenu();
}

} // namespace
} // namespace specialpages::qt::testing

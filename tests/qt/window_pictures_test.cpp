// Pictures of the windows for people to look at, as scripts/screenshots asks for them by the environment:
// PICTURES_FOLDER, PICTURES_LANGUAGE ("en"), PICTURES_DARK ("1"), PICTURES_WINDOWS ("print covers ..."). The
// scale is Qt's own (QT_SCALE_FACTOR). It is no test of the ordinary runs.
#include "qt/print_fixture.h"
#include "qt/qt_fixture.h"

#include <gtest/gtest.h>

#include <QLibraryInfo>
#include <QPalette>
#include <QTranslator>

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

class WindowPictures : public QtPaneTest {
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
        const std::string file = asked("PICTURES_FOLDER", "/tmp") + "/" + name + "-" + language_ +
                                 (dark_ ? "-dark" : "") + (window.devicePixelRatio() > 1 ? "-large" : "") +
                                 ".png";
        EXPECT_TRUE(window.grab().save(QString::fromStdString(file))) << file;
    }
    void takeDialog(const char* name, const char* opener) {
        if (wanted(name)) {
            inDialog(opener, [&](QDialog& dialog) { take(dialog, name); });
        }
    }
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
    takeDialog("covers", "SPAddCoversButton");
    takeDialog("inserts", "SPAddInsertsButton");
    takeDialog("exceptions", "SPAddExceptionsButton");
    takeDialog("warning", "SPDeleteAllButton");
}

} // namespace
} // namespace specialpages::qt::testing

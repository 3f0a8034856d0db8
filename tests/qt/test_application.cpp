// The one QApplication of the tests. It is made before the first test runs and never destroyed, as windows of
// static storage may end after it would have been.
#include "platform/foundation/Bundle.h"
#include "support/identifiers.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFont>
#include <QStyleFactory>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

/// The pane's module keeps its bundle, and with it the language of the last pane, until the process ends.
class EnglishForEachTest : public ::testing::EmptyTestEventListener {
  public:
    void OnTestStart(const ::testing::TestInfo& /*test*/) override {
        const auto bundle =
            specialpages::platform::Bundle::CFBundleGetBundleWithIdentifier(specialpages::kBundleIdentifier);
        if (bundle != nullptr) {
            bundle->setPreferredLanguages({"en"});
        }
    }
};

class ApplicationOfTheTests : public ::testing::Environment {
  public:
    void SetUp() override {
        ::testing::UnitTest::GetInstance()->listeners().Append(new EnglishForEachTest);
        // Nothing of the desktop that the tests run on: no screen unless one is asked for, and these fonts.
        setenv("QT_QPA_PLATFORM", "offscreen", 0);
        setenv("FONTCONFIG_FILE", (paths::source_dir() + "/tests/data/fonts.conf").c_str(), 0);
        setenv("QT_LOGGING_RULES", "qt.qpa.*=false", 0);
        setenv("QT_ACCESSIBILITY", "1", 0);
        // The offscreen screen says of many things that it cannot do them.
        qInstallMessageHandler([](QtMsgType type, const QMessageLogContext&, const QString& text) {
            if (!text.startsWith(QLatin1String("This plugin does not support"))) {
                std::fprintf(stderr, "%s\n", qPrintable(text));
            }
            if (type == QtFatalMsg) {
                std::abort();
            }
        });
        static int count = 1;
        static std::string name = "test_qt";
        static char* arguments[] = {name.data(), nullptr};
        new QApplication(count, arguments); // NOLINT(cppcoreguidelines-owning-memory)
        std::setlocale(LC_ALL, "C.UTF-8");
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        QApplication::setFont(QFont(QStringLiteral("DejaVu Sans"), 9));
        QApplication::setQuitOnLastWindowClosed(false);
    }
};

const ::testing::Environment* const environment =
    ::testing::AddGlobalTestEnvironment(new ApplicationOfTheTests);

} // namespace

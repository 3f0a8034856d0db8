#include "qt/read_ahead.h"
#include "qt/run_print.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <clocale>
#include <cstdio>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

int main(int argc, char** argv) {
    try {
        int exit = 0;
        auto options = specialpages::qt::parse_print_options(
            std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc), std::cout, std::cerr, exit);
        if (!options) {
            return exit;
        }
        const auto services = specialpages::qt::read_ahead(*options, specialpages::qt::cups_services());
        int programAlone = 1;
        const QApplication application(programAlone, argv);
        // Qt takes the user's locale; numbers of files and PPDs are read and written in the C locale.
        std::setlocale(LC_NUMERIC, "C");
        if (options->language.empty()) {
            options->language = QLocale::system().uiLanguages().value(0).toStdString();
        }
        QTranslator words; // of the platform's own dialog, where they are installed
        if (words.load(QLocale(QString::fromStdString(options->language)), QStringLiteral("qtbase"),
                       QStringLiteral("_"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
            QApplication::installTranslator(&words);
        }
        return specialpages::qt::run_print(*options, services, std::cout, std::cerr);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "special-pages-print: %s\n", error.what());
        return 1;
    }
}

#include "qt/run_print.h"

#include "host/HostError.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <ostream>

namespace specialpages::qt {

std::optional<PrintOptions> parse_print_options(std::vector<std::string> arguments, std::ostream& out,
                                                std::ostream& err, int& exit) {
    PrintOptions options;
    CLI::App app("Prints a document with covers, inserts and exception pages.", "special-pages-print");
    app.add_option("FILE", options.document, "The PDF document");
    app.add_option("--ppd", options.ppd, "PPD of a printer without a queue");
    app.add_option("--printer", options.printer, "The queue that is chosen at first");
    app.add_option("--settings", options.settings, "Settings to begin with");
    app.add_option("--out", options.out, "Where Print writes the settings; - is standard output")
        ->capture_default_str();
    app.add_option("--lang", options.language, "Language of the pane");
    app.set_version_flag("--version", SPECIALPAGES_VERSION);
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error, out, err);
        exit = code == 0 ? 0 : host::exit_code(host::ErrorCode::usage);
        return std::nullopt;
    }
    return options;
}

int run_print(const PrintOptions& options, const PrintServices& services, std::ostream& out,
              std::ostream& err) {
    try {
        PrintProgram program(options, services, out, err);
        return program.dialog().exec() == QDialog::Accepted ? 0 : 1;
    } catch (const host::HostError& error) {
        err << "special-pages-print: " << error.what() << '\n';
        return host::exit_code(error.code());
    }
}

} // namespace specialpages::qt

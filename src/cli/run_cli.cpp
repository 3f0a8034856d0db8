#include "cli/run_cli.h"

#include "cli/commands.h"
#include "host/HostError.h"
#include "platform/foundation/log.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <exception>
#include <ostream>
#include <utility>

namespace specialpages::cli {

namespace {

constexpr const char* kProgram = "special-pages";
constexpr const char* kPpdHelp = "The printer's PPD";
constexpr const char* kSettingsHelp = "Print settings of the job, JSON or *.plist (-: standard input)";
constexpr const char* kLanguageHelp = "Language of the pane's texts, as in de or pt-BR";

/// Shows the log on a stream while it lives.
class LogOnStream {
  public:
    LogOnStream(bool verbose, std::ostream& err) : verbose_(verbose) {
        if (verbose_) {
            before_ = platform::setLogSink([&err](std::string_view line) { err << line << '\n'; });
        }
    }
    ~LogOnStream() {
        if (verbose_) {
            platform::setLogSink(std::move(before_));
        }
    }
    LogOnStream(const LogOnStream&) = delete;
    LogOnStream& operator=(const LogOnStream&) = delete;

  private:
    bool verbose_;
    platform::LogSink before_;
};

void add_marks(CLI::App& command, PaneOptions& options) {
    command.add_option("--mark", options.marks, "Marks a PPD choice; may be given more than once")
        ->type_name("OPTION=CHOICE")
        ->allow_extra_args(false);
}

void add_apply(CLI::App& app, ApplyOptions& options) {
    CLI::App& command = *app.add_subcommand(
        "apply", "Restores the pane from print settings, prints, and writes the job's settings");
    command.add_option("--ppd", options.pane.ppd, kPpdHelp)->type_name("FILE")->required();
    command.add_option("--settings", options.pane.settings, kSettingsHelp)->type_name("IN");
    command
        .add_option("--job", options.job,
                    "Covers, inserts and exceptions to declare, JSON (-: standard input)")
        ->type_name("JOB");
    add_marks(command, options.pane);
    command.add_option("--printer", options.pane.printer, "Identifier of the printer (default: its model)")
        ->type_name("ID");
    command.add_option("--lang", options.pane.language, kLanguageHelp)->type_name("LANG");
    command.add_option("--out", options.out, "Where the settings go (default -: standard output)")
        ->type_name("OUT");
}

void add_show(CLI::App& app, ShowOptions& options) {
    CLI::App& command = *app.add_subcommand("show", "Shows the special pages of a settings file");
    command.add_option("--ppd", options.ppd, "The printer's PPD: shows the pane's own texts")
        ->type_name("FILE");
    command.add_flag("--json", options.json, "JSON in place of a table");
    command.add_option("settings", options.settings, kSettingsHelp)->type_name("SETTINGS")->required();
}

void add_drive(CLI::App& app, PaneOptions& options) {
    CLI::App& command =
        *app.add_subcommand("drive", "Uses the pane by a line protocol: one JSON object a line in, one out");
    command.add_option("--ppd", options.ppd, kPpdHelp)->type_name("FILE")->required();
    command.add_option("--settings", options.settings, kSettingsHelp)->type_name("IN");
    add_marks(command, options);
    command.add_option("--lang", options.language, kLanguageHelp)->type_name("LANG");
}

void add_pages(CLI::App& app, PagesOptions& options) {
    CLI::App& command =
        *app.add_subcommand("pages", "Shows what the pane makes of a page list, as in Add of inserts");
    command.add_flag("--exceptions", options.exceptions, "As in the exceptions dialog");
    command.add_flag("--front-cover", options.frontCover, "There is a front cover (inserts only)");
    command.add_option("--held", options.held, "How many inserts there are already (inserts only)")
        ->type_name("N")
        ->capture_default_str();
    command.add_flag("--json", options.json, "JSON in place of a table");
    command.add_option("text", options.text, "The page list; put -- before one that begins with \"-\"")
        ->type_name("TEXT")
        ->required();
}

void add_constraints(CLI::App& app, ConstraintsOptions& options) {
    CLI::App& command = *app.add_subcommand("constraints", "Shows the index of a PPD's constraints");
    command.add_option("--ppd", options.ppd, kPpdHelp)->type_name("FILE")->required();
    CLI::Option& dump = *command.add_flag("--dump", options.dump, "Every entry, a line each");
    CLI::Option& conflicts = *command
                                  .add_option("--conflicts", options.conflicts,
                                              "What forbids this choice, and whether it is marked")
                                  ->type_name("OPTION:CHOICE");
    CLI::Option& cache =
        *command.add_option("--write-cache", options.cache, "Writes the index as a cache file")
             ->type_name("FILE");
    command.add_option("--section", options.section, "The cache file's section")
        ->type_name("NAME")
        ->capture_default_str()
        ->needs(&cache);
    dump.excludes(&conflicts)->excludes(&cache);
    conflicts.excludes(&cache);
}

void add_menus(CLI::App& app, MenusOptions& options) {
    CLI::App& command = *app.add_subcommand(
        "menus", "Shows the paper menus: what is offered, what is not allowed, and what forbids it");
    command.add_option("--ppd", options.pane.ppd, kPpdHelp)->type_name("FILE")->required();
    add_marks(command, options.pane);
    command.add_option("--window", options.window, "The dialog whose menu is shown")
        ->type_name("covers|inserts|exceptions")
        ->capture_default_str();
    command.add_option("--select", options.select, "The paper to choose first")
        ->type_name("size=A4,color=...,type=...");
    command.add_option("--lang", options.pane.language, kLanguageHelp)->type_name("LANG");
    command.add_flag("--json", options.json, "JSON in place of lines");
}

void add_submit(CLI::App& app, SubmitOptions& options) {
    CLI::App& command = *app.add_subcommand(
        "submit", "Prints a PDF document with special pages through CUPS, and waits until it is printed");
    command.add_option("--printer", options.queue, "The queue, as lpstat -e names it")
        ->type_name("QUEUE")
        ->required();
    CLI::Option& settings =
        *command.add_option("--settings", options.settings, kSettingsHelp)->type_name("FILE");
    command
        .add_option("--job", options.job,
                    "Covers, inserts and exceptions to declare in the pane of the queue's PPD, JSON (-: "
                    "standard input)")
        ->type_name("JOB")
        ->excludes(&settings);
    command
        .add_option(
            "--option", options.options,
            "An option of the queue, as lp -o takes it (media=A4, sides=..., copies=2, choices of the "
            "PPD); may be given more than once")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    command.add_option("--out", options.out, "Where the job's settings are kept, written before it is sent")
        ->type_name("OUT");
    command.add_option("--lang", options.language, kLanguageHelp)->type_name("LANG");
    command.add_flag(
        "--no-wait", options.noWait,
        "Ends when the server has taken the job, as lp does; without it, the exit code says whether "
        "the job was printed, and Ctrl+C cancels it");
    command.add_flag("--json", options.json, "The job as JSON in place of its name, when it has ended");
    command.add_option("document", options.document, "The document, PDF (-: standard input)")
        ->type_name("FILE.pdf")
        ->required();
}

void add_lp_options(CLI::App& app, std::string& settings) {
    CLI::App& command = *app.add_subcommand(
        "lp-options",
        "Print settings as arguments for lp: eval \"lp $(special-pages lp-options FILE) doc.pdf\"");
    command.add_option("settings", settings, kSettingsHelp)->type_name("SETTINGS")->required();
}

void run_parsed(const std::vector<std::string>& arguments, Streams streams, CLI::App& app) {
    app.require_subcommand(0, 1); // none: told below, after arguments that belong to none
    app.fallthrough();
    app.set_version_flag("--version", std::string(kProgram) + " " + SPECIALPAGES_VERSION,
                         "Print the version and exit");
    bool verbose = false;
    app.add_flag("-v,--verbose", verbose, "Show log lines on standard error");
    ApplyOptions apply;
    add_apply(app, apply);
    ShowOptions show;
    add_show(app, show);
    std::vector<std::string> values;
    app.add_subcommand("decode", "Turns slash-decimal texts back into text, one a line")
        ->add_option("values", values, "Texts; without any, lines are read from standard input")
        ->type_name("VALUE");
    PagesOptions pages;
    add_pages(app, pages);
    ConstraintsOptions constraints;
    add_constraints(app, constraints);
    MenusOptions menus;
    add_menus(app, menus);
    SubmitOptions submit;
    add_submit(app, submit);
    std::string lpSettings;
    add_lp_options(app, lpSettings);
    PaneOptions drive;
    add_drive(app, drive);

    std::vector<std::string> reversed(arguments.rbegin(), arguments.rend()); // as the parser wants them
    app.parse(std::move(reversed));

    const LogOnStream log(verbose, streams.err);
    if (app.got_subcommand("apply")) {
        apply_command(apply, streams);
    } else if (app.got_subcommand("show")) {
        show_command(show, streams);
    } else if (app.got_subcommand("decode")) {
        decode_command(values, streams);
    } else if (app.got_subcommand("pages")) {
        pages_command(pages, streams);
    } else if (app.got_subcommand("constraints")) {
        constraints_command(constraints, streams);
    } else if (app.got_subcommand("menus")) {
        menus_command(menus, streams);
    } else if (app.got_subcommand("submit")) {
        submit_command(submit, streams);
    } else if (app.got_subcommand("lp-options")) {
        lp_options_command(lpSettings, streams);
    } else if (app.got_subcommand("drive")) {
        drive_command(drive, streams);
    } else {
        throw host::HostError(host::ErrorCode::usage, "",
                              std::string("expected a command (see ") + kProgram + " --help)");
    }
    flush_results(streams.out);
}

int report(std::ostream& err, const std::string& sentence, int code) {
    err << kProgram << ": " << sentence << '\n';
    err.flush();
    return code;
}

} // namespace

int run_cli(const std::vector<std::string>& arguments, Streams streams) {
    CLI::App app("Covers, inserts and exception pages of a print job", kProgram);
    try {
        run_parsed(arguments, streams, app);
        return 0;
    } catch (const CLI::Success& success) { // --help and --version
        app.exit(success, streams.out, streams.err);
        return streams.out.flush() ? 0 : host::exit_code(host::ErrorCode::other);
    } catch (const CLI::ParseError& error) {
        return report(streams.err, printable(error.what()) + " (see " + kProgram + " --help)",
                      host::exit_code(host::ErrorCode::usage));
    } catch (const host::HostError& error) {
        return report(streams.err, error.what(), host::exit_code(error.code()));
    } catch (const std::exception& error) {
        return report(streams.err, printable(error.what()), host::exit_code(host::ErrorCode::other));
    }
}

} // namespace specialpages::cli

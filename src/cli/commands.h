// The commands, each with its options as they were typed. A command writes results and throws HostError.
#pragma once

#include "cli/open_pane.h"
#include "cli/streams.h"

#include <optional>
#include <string>
#include <vector>

namespace specialpages::cli {

struct ApplyOptions {
    PaneOptions pane;
    std::optional<std::string> job; ///< what to enter through the dialogs
    std::string out = kStandardStream;
};
/// Restores the pane from the settings, enters the job, prints, and writes the settings. Nothing is written
/// when an entry of the job is refused.
void apply_command(const ApplyOptions& options, Streams streams);

struct ShowOptions {
    std::optional<std::string> ppd; ///< with it, the pane's own texts are shown
    std::string settings;
    bool json = false;
};
/// The special pages of a settings file, as a table or as JSON.
void show_command(const ShowOptions& options, Streams streams);

/// Turns slash-decimal texts back into text, one a line; without values, the lines of the input. HostError
/// (usage or input) naming the value or line that is malformed; those before it are written.
void decode_command(const std::vector<std::string>& values, Streams streams);

struct PagesOptions {
    std::string text;
    bool exceptions = false; ///< read as the pages of exceptions, for which the next two do not matter
    bool frontCover = false;
    std::string held = "0"; ///< inserts that there are already, in digits
    bool json = false;
};
/// What the pane's page list makes of a text: its normal form and its pages. HostError (refused) for a text
/// that the pane refuses, with the message key and the code; with `json` these are written first.
void pages_command(const PagesOptions& options, Streams streams);

/// The section that the pane reads from a constraint cache on a current system.
inline constexpr const char* kConstraintSection = "SpecialPagesPDETiger";

struct ConstraintsOptions {
    std::string ppd;
    bool dump = false;
    std::optional<std::string> conflicts; ///< "option:choice"
    std::optional<std::string> cache;     ///< the file to write
    std::string section = kConstraintSection;
};
/// What the PPD's constraint index holds: its counts; all entries; the choices that forbid one choice; or the
/// index as a cache file. HostError for a choice that the PPD does not have.
void constraints_command(const ConstraintsOptions& options, Streams streams);

struct MenusOptions {
    PaneOptions pane;
    std::string window = "covers"; ///< covers, inserts or exceptions
    std::string select;            ///< "size=KEYWORD,color=KEYWORD,type=KEYWORD", each part optional
    bool json = false;
};
/// What a person sees in the paper menu of that window with that selection: every item, whether it is allowed
/// and, when it is not, which choice forbids it. HostError for a selection that the pane does not allow.
void menus_command(const MenusOptions& options, Streams streams);

struct SubmitOptions {
    std::string queue;
    std::optional<std::string> settings; ///< what the job carries; or
    std::optional<std::string> job;      ///< what to enter through the dialogs of the queue's pane
    std::vector<std::string> options;    ///< "NAME=VALUE" of the queue
    std::optional<std::string> out;      ///< where the settings are written before anything is sent
    std::string language;
    std::string document; ///< PDF
    bool noWait = false;
    bool json = false;
};
/// Hands the document to the queue, the special pages being options of the job, and waits until it is
/// printed. Writes the job's name when the server has taken it. HostError: input for a document or settings
/// that a job cannot carry; refused when the pane refuses, or the options are too much; printer when the
/// queue refuses the job or it fails; other when it was interrupted (SIGINT), the job being canceled.
void submit_command(const SubmitOptions& options, Streams streams);

/// The settings as arguments for `lp`, in one line. HostError as submit_command for settings that a job
/// cannot carry.
void lp_options_command(const std::string& settings, Streams streams);

/// The line protocol, until `quit` or the end of input.
void drive_command(const PaneOptions& options, Streams streams);

} // namespace specialpages::cli

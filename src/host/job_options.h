// What a print job carries besides its document: a list of options, name to text. Values in, a checked list
// out, or a refusal that names the option: nothing is sent that the print server would cut, drop or turn into
// something else on its way to the filter, which gets all options as one argument.
#pragma once

#include "platform/print/PrintSettings.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::host {

struct JobOption {
    std::string name;
    std::string value;

    bool operator==(const JobOption&) const = default;
};
using JobOptions = std::vector<JobOption>;

/// How long one argument of a program may be, in bytes with its zero byte (Linux: 32 pages). A job whose
/// options are longer is taken by the server and then stopped.
inline constexpr std::size_t kFilterArgumentBytes = 131072;
/// What is kept free for the options that the server adds. Measured on CUPS 2.4: 265 bytes for a plain job
/// (numbers, times, job-uuid, host name), 84 more for media and sides, and the document's name, which
/// doubles at worst; see docs/printing.md.
inline constexpr std::size_t kServerOptionBytes = 4096;
/// The most that the options of a job may take, escaped.
inline constexpr std::size_t kMaxJobOptionBytes = kFilterArgumentBytes - kServerOptionBytes;
/// The longest value of one option, in bytes, and the longest name.
inline constexpr std::size_t kMaxOptionValueBytes = 32767;
inline constexpr std::size_t kMaxOptionNameBytes = 255;

/// The options whose names begin so are the pane's: a queue option may not have such a name.
inline constexpr std::string_view kPaneOptionPrefix = "com.norvalen.nb.rtz.printsettings.";
/// The pane's own memory among them, the records and their count, which no filter reads. They are what a
/// job that is too big goes without.
inline constexpr std::string_view kPaneRecordKey = "com.norvalen.nb.rtz.printsettings.NPIFCommandTicket";

/// The bytes of the options as the server writes them for the filter: "name=value", a blank between two, and
/// each blank, tab, line end, backslash, apostrophe and quotation mark of a value with a backslash before it.
std::size_t escaped_bytes(const JobOptions& options);

/// The settings as options, in their order: a text as it is, an array as its texts with commas between them
/// (an empty array is an empty text). HostError (input), with the key as its place, for
/// - a key that is empty, too long, begins with "job-" (in any case), or holds anything but printable ASCII,
///   or a blank, "=", a comma, a quotation mark, an apostrophe, a backslash or a brace; one that another key
///   equals but for case;
/// - a value that is "true" or "false" in any case (a server makes a switch of it), begins with "{" (a
///   collection), holds a control character (a server cuts there), is no UTF-8 or too long; a text of an
///   array that is empty or holds a comma;
/// - whatever else libcups would not send as that one text, such as a key by which it knows an option of its
///   own.
JobOptions options_of_settings(const platform::PrintSettings& settings);

/// Options of the queue (media, sides, copies, choices of the PPD), each "NAME=VALUE" as it was typed; of one
/// that is given twice, the last stands. HostError (usage) for another form, for a name that the rules above
/// forbid (but "job-" is allowed: job-sheets, job-priority), for a value with a control character, for the
/// value "true" or one that begins with "{" nothing is said, and for a name that begins as the pane's do.
JobOptions queue_options(const std::vector<std::string>& assignments);

/// A document's name as a job can carry it: control characters are "?", and so is everything beyond ASCII
/// when it is no UTF-8; at most kMaxOptionNameBytes long, cut between characters; "document" for an empty
/// one.
std::string job_title(std::string name);

/// The options of one job.
struct CheckedOptions {
    JobOptions options;          ///< the settings', then the queue's
    std::size_t bytes = 0;       ///< escaped
    std::size_t recordsLeft = 0; ///< how many of the pane's own keys were left out, as the job was too big
    std::size_t bytesLeft = 0;   ///< and the bytes that they would have taken, escaped
};

/// Settings and queue options together. When they are more than kMaxJobOptionBytes, the pane's own records
/// are left out. HostError: as options_of_settings; usage for a queue option that has the name of a setting
/// (in any case); refused, with the numbers, when it is still too much.
CheckedOptions job_options(const platform::PrintSettings& settings, const JobOptions& queueOptions);

} // namespace specialpages::host

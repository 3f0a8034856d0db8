// A job in words: the covers, inserts and exception pages that somebody wants, as the dialogs of the pane
// would be filled in. Reading it knows the shape of the file and nothing of the printer; whether a paper
// exists there, and is allowed, is told when the job is entered.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::cli {

/// Largest job file that is read, and how deep it may nest.
inline constexpr std::size_t kMaxJobBytes = std::size_t{4} * 1024 * 1024;
inline constexpr int kMaxJobDepth = 16;

/// Where an entry stands in the file, as in "inserts[2].paper".
using JobPlace = std::string;

struct JobPaper {
    enum class Kind : std::uint8_t { parts, interposer, noChange };
    Kind kind = Kind::parts;
    /// Choice keywords of the PPD; a part that is left out stays as the dialog offers it.
    std::optional<std::string> size;
    std::optional<std::string> color;
    std::optional<std::string> type;
    /// With the size "Custom" only, both or none.
    std::optional<std::string> width;
    std::optional<std::string> length;
    bool inches = false;
    JobPlace place;
};

struct JobCoverSide {
    std::optional<std::int32_t> print; ///< position in the printing list
    std::optional<JobPaper> paper;
    JobPlace place;
};

struct JobCovers {
    std::int32_t option = 0; ///< position in the option list
    std::optional<JobCoverSide> front;
    std::optional<JobCoverSide> back;
};

struct JobInsert {
    std::optional<std::string> after; ///< a page list; none: before page one
    std::optional<std::int32_t> sheets;
    std::optional<JobPaper> paper;
    JobPlace place;
};

struct JobException {
    std::string pages;
    std::optional<std::int32_t> sides; ///< position in the two-side list
    std::optional<JobPaper> paper;
    JobPlace place;
};

struct Job {
    std::optional<JobCovers> covers;
    std::vector<JobInsert> inserts;
    std::vector<JobException> exceptions;
};

/// Reads a job. HostError (input) naming the file and the entry for a text that is no JSON, a member that is
/// missing, unknown, given twice or of another kind, a word that is none of those that stand for it, a side
/// that the cover option leaves out, and a width or length without the other or without the size "Custom".
Job parse_job(std::string_view text, const std::string& file);

} // namespace specialpages::cli

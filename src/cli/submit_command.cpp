#include "cli/InterruptKey.h"
#include "cli/JobProgress.h"
#include "cli/commands.h"
#include "cli/left_out_note.h"
#include "cli/print_pane.h"
#include "host/HostError.h"
#include "host/cups_job.h"
#include "host/queue_ppd.h"
#include "host/settings_file.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <ostream>
#include <sstream>
#include <string_view>
#include <utility>

namespace specialpages::cli {

namespace {

using host::ErrorCode;
using host::HostError;

constexpr std::size_t kMaxInputDocument = std::size_t{256} * 1024 * 1024; // of standard input, kept in memory

struct Document {
    std::unique_ptr<std::istream> bytes;
    std::string name;
    std::uintmax_t length = 0;
};

/// HostError unless the stream, which stays at its beginning, holds a PDF: its mark stands in the first
/// block.
void check_pdf(std::istream& bytes, const std::string& name) {
    constexpr std::size_t kMarkWithin = 1024;
    std::array<char, kMarkWithin> head{};
    bytes.read(head.data(), head.size());
    const std::string_view found(head.data(), static_cast<std::size_t>(bytes.gcount()));
    if (found.find("%PDF-") == std::string_view::npos) {
        throw HostError(ErrorCode::input, name, "expected a PDF document");
    }
    bytes.clear();
    bytes.seekg(0);
}

Document open_document(const std::string& file, std::istream& in) {
    Document document;
    if (file == kStandardStream) {
        std::string bytes = read_all(in, kMaxInputDocument);
        document.length = bytes.size();
        document.name = "standard input";
        document.bytes = std::make_unique<std::istringstream>(std::move(bytes));
    } else {
        std::error_code failure;
        document.length = std::filesystem::file_size(file, failure);
        document.name = std::filesystem::path(file).filename().string();
        document.bytes = std::make_unique<std::ifstream>(file, std::ios::binary);
        if (failure || !*document.bytes) {
            throw HostError(ErrorCode::input, file,
                            "expected a PDF document: " +
                                (failure ? failure.message() : std::string("it cannot be opened")));
        }
    }
    check_pdf(*document.bytes, file == kStandardStream ? document.name : file);
    return document;
}

/// HostError (usage) when more than one of the files is standard input, or a job and settings are given.
void check_usage(const SubmitOptions& options) {
    const std::array<const std::optional<std::string>*, 2> files{&options.settings, &options.job};
    const auto fromInput =
        std::count_if(files.begin(), files.end(), [](const auto* file) { return *file == kStandardStream; });
    if (fromInput + (options.document == kStandardStream ? 1 : 0) > 1) {
        throw HostError(ErrorCode::usage, "-", "expected one file at most to be standard input");
    }
}

/// The settings that the pane of the queue makes of the job, the queue's options being marked.
platform::PrintSettings settings_of_job(const SubmitOptions& options, const host::JobOptions& queueOptions,
                                        std::istream& in) {
    const NamedJob job = read_job(*options.job, false, in);
    host::PpdFile ppd = host::queue_ppd(options.queue, InterruptKey::pressed);
    ppd.mark_job_options(queueOptions);
    const auto host = open_pane(std::move(ppd), {}, options.queue, options.language);
    print_pane(*host, job);
    return host->settings();
}

platform::PrintSettings settings_of(const SubmitOptions& options, const host::JobOptions& queueOptions,
                                    std::istream& in) {
    if (options.job) {
        return settings_of_job(options, queueOptions, in);
    }
    return options.settings ? read_settings(*options.settings, in) : platform::PrintSettings();
}

void write_out(const SubmitOptions& options, const platform::PrintSettings& settings) {
    if (options.out) {
        host::write_settings_file(*options.out, settings);
    }
}

/// What is left to say of a job that is watched no more; HostError when it was not printed.
void conclude(const host::CupsJob& job, const host::JobStatus& status, Streams streams) {
    const auto failed = [&](const std::string& detail) {
        const std::string said = status.message.empty() ? "" : ": " + status.message;
        return HostError(ErrorCode::printer, job.name(), detail + said);
    };
    switch (status.state) {
    case host::JobState::completed:
        return;
    case host::JobState::forgotten:
        streams.err << "special-pages: " << job.name()
                    << ": the print server keeps no history, so that it is not known how the job ended\n";
        return;
    case host::JobState::held:
        if (status.reasons.find("authentication") != std::string::npos) {
            throw failed("the job is held until somebody gives a password");
        }
        streams.err << "special-pages: " << job.name() << ": the job is held until somebody releases it\n";
        return;
    case host::JobState::aborted:
        throw failed("the print system gave the job up");
    case host::JobState::canceled:
        throw failed("somebody canceled the job");
    case host::JobState::stopped:
        throw failed("the print system stopped the job");
    case host::JobState::pending:
    case host::JobState::processing:
        throw failed("the queue was stopped; the job waits in it");
    }
}

void write_json(const host::CupsJob& job, const std::string& queue, const host::JobStatus& status,
                const host::CheckedOptions& checked, std::ostream& out) {
    const nlohmann::ordered_json result{{"job", job.number()},
                                        {"name", job.name()},
                                        {"queue", queue},
                                        {"state", host::job_state_name(status.state)},
                                        {"sheets", status.sheets},
                                        {"optionBytes", checked.bytes},
                                        {"leftOut", checked.recordsLeft}};
    out << result.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace) << '\n';
}

/// Waits for the job; Ctrl+C cancels it.
host::JobStatus watch(host::CupsJob& job, JobProgress& progress) {
    try {
        const host::JobStatus status =
            job.wait([&](const host::JobStatus& now) { progress.status(job.name(), now); });
        progress.clear();
        return status;
    } catch (const host::PrintInterrupted&) {
        progress.clear();
        job.cancel();
        throw HostError(ErrorCode::other, job.name(), "interrupted, and the job is canceled");
    }
}

host::CupsJob send(const SubmitOptions& options, const host::CheckedOptions& checked,
                   const Document& document, JobProgress& progress) {
    try {
        return host::CupsJob::submit(options.queue, checked.options, {*document.bytes, document.name},
                                     InterruptKey::pressed,
                                     [&](std::uintmax_t bytes) { progress.sent(bytes); });
    } catch (...) {
        progress.clear();
        throw;
    }
}

void submit(const SubmitOptions& options, const Document& document, Streams streams) {
    const host::JobOptions queueOptions = host::queue_options(options.options);
    const platform::PrintSettings settings = settings_of(options, queueOptions, streams.in);
    write_out(options, settings);
    const host::CheckedOptions checked = host::job_options(settings, queueOptions);
    note_left_out(checked, streams.err);
    JobProgress progress(streams, document.length);
    host::CupsJob job = send(options, checked, document, progress);
    if (!options.json) {
        progress.clear();
        streams.out << job.name() << std::endl; // at once: whoever reads it may want to watch the job
    }
    const host::JobStatus status = options.noWait ? job.status() : watch(job, progress);
    if (options.json) {
        write_json(job, options.queue, status, checked, streams.out);
    }
    if (!options.noWait) {
        conclude(job, status, streams);
    }
}

} // namespace

void submit_command(const SubmitOptions& options, Streams streams) {
    check_usage(options);
    const Document document = open_document(options.document, streams.in);
    const InterruptKey key;
    try {
        submit(options, document, streams);
    } catch (const host::PrintInterrupted&) {
        throw HostError(ErrorCode::other, options.queue, "interrupted; nothing was printed");
    }
}

} // namespace specialpages::cli

#include "host/print_document.h"

#include "host/HostError.h"

#include <array>
#include <cerrno>
#include <fstream>
#include <string_view>
#include <system_error>
#include <utility>

namespace specialpages::host {

namespace {

/// HostError unless the file, which stays at its beginning, holds a PDF: its mark stands in the first block.
std::ifstream open_pdf(const std::filesystem::path& file) {
    constexpr std::size_t kMarkWithin = 1024;
    errno = 0;
    std::ifstream bytes(file, std::ios::binary);
    if (!bytes) {
        throw HostError(ErrorCode::input, file.string(),
                        "expected a PDF document: " + std::generic_category().message(errno));
    }
    std::array<char, kMarkWithin> head{};
    bytes.read(head.data(), head.size());
    if (std::string_view(head.data(), static_cast<std::size_t>(bytes.gcount())).find("%PDF-") ==
        std::string_view::npos) {
        throw HostError(ErrorCode::input, file.string(), "expected a PDF document");
    }
    bytes.clear();
    bytes.seekg(0);
    return bytes;
}

} // namespace

SubmittedJob print_document(const DocumentJob& job, Interrupted interrupted) {
    CheckedOptions checked = job_options(job.settings, job.queueOptions);
    std::ifstream bytes = open_pdf(job.document);
    CupsJob taken = CupsJob::submit(job.queue, checked.options, {bytes, job.document.filename().string()},
                                    std::move(interrupted));
    return {std::move(taken), std::move(checked)};
}

} // namespace specialpages::host

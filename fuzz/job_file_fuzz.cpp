// Reads any bytes as a job in words: a job, or one sentence about what is wrong. A job holds only what can be
// entered.
#include "cli/job_file.h"
#include "host/HostError.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace specialpages::cli;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

void check(const std::optional<JobPaper>& paper) {
    if (paper) {
        require(!paper->place.empty());
        require(paper->width.has_value() == paper->length.has_value());
        require(!paper->width || paper->size == "Custom");
        require(paper->kind == JobPaper::Kind::parts || !(paper->size || paper->color || paper->type));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    Job job;
    try {
        job = parse_job(text, "job");
    } catch (const specialpages::host::HostError& error) {
        require(error.code() == specialpages::host::ErrorCode::input);
        require(std::string_view(error.what()).starts_with("job"));
        require(std::string_view(error.what()).find('\n') == std::string_view::npos);
        return 0;
    }
    if (job.covers) {
        require(job.covers->option >= 0 && job.covers->option <= 4);
        require(!job.covers->front || job.covers->option != 2);
        require(!job.covers->back || job.covers->option == 2 || job.covers->option == 4);
        for (const auto& side : {job.covers->front, job.covers->back}) {
            if (side) {
                require(!side->print || (*side->print >= 0 && *side->print <= 3));
                check(side->paper);
            }
        }
    }
    for (const JobInsert& insert : job.inserts) {
        require(!insert.sheets || *insert.sheets >= 0);
        check(insert.paper);
    }
    for (const JobException& exception : job.exceptions) {
        require(!exception.sides || (*exception.sides >= 0 && *exception.sides <= 3));
        check(exception.paper);
    }
    return 0;
}

// A CUPS filter that says what a back-end would do for the special pages of a job, and hands the document on
// as it is:
//
//     special-pages-filter JOB USER TITLE COPIES OPTIONS [FILE]
//
// The job's special pages as `special-pages show` tells them go to the file that the environment variable
// SPECIAL_PAGES_FILTER_LOG names, which is replaced, or without it to standard error as INFO lines. What
// would be done follows there as INFO lines. A job whose special pages are malformed is refused with an ERROR
// line a problem and exit code 1, before anything of the document is written: better no print than a wrong
// one.

#include "decoded_view.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

namespace {

/// All of `in` to standard output.
bool copy_document(std::FILE* in) {
    std::array<char, 65536> block{};
    std::size_t length = 0;
    while ((length = std::fread(block.data(), 1, block.size(), in)) > 0) {
        if (std::fwrite(block.data(), 1, length, stdout) != length) {
            return false;
        }
    }
    return std::ferror(in) == 0 && std::fflush(stdout) == 0;
}

bool write_file(const char* name, const std::string& text) {
    std::FILE* const file = std::fopen(name, "w");
    if (file == nullptr) {
        return false;
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written;
}

void log_lines(const std::string& text) {
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = text.find('\n', start);
        std::fprintf(stderr, "INFO: %s\n", text.substr(start, end - start).c_str());
        start = end + 1;
    }
}

bool log_view(const npif::Reader& job) {
    const char* const name = std::getenv("SPECIAL_PAGES_FILTER_LOG");
    const std::string view = has_decoded_view(job) ? decoded_view(job) : "";
    if (name == nullptr || *name == '\0') {
        log_lines(view);
    } else if (!write_file(name, view)) {
        std::fprintf(stderr, "ERROR: %s: cannot be written\n", name);
        return false;
    }
    return true;
}

void log_plan(const npif::Reader& job) {
    for (const npif_kind kind : {NPIF_COVER, NPIF_INSERTION, NPIF_EXCEPTION}) {
        for (const npif_command& command : job.commands(kind)) {
            log_lines("would make: " + plan_of(command) + "\n");
        }
    }
}

int run(int count, char** arguments) {
    if (count != 6 && count != 7) {
        std::fputs("ERROR: expected job, user, title, copies, options and at most one file\n", stderr);
        return 1;
    }
    const npif::Reader job{std::string_view(arguments[5])};
    if (!log_view(job)) {
        return 1;
    }
    for (const npif_problem& problem : job.problems()) {
        std::fprintf(stderr, "ERROR: %s\n", problem.sentence.bytes);
    }
    if (!job.ok()) {
        return 1;
    }
    log_plan(job);
    std::FILE* const document = count == 7 ? std::fopen(arguments[6], "rb") : stdin;
    if (document == nullptr || !copy_document(document)) {
        std::fputs("ERROR: the document cannot be copied\n", stderr);
        return 1;
    }
    return 0;
}

} // namespace

int main(int count, char** arguments) {
    try {
        return run(count, arguments);
    } catch (const std::exception&) {
        std::fputs("ERROR: there is not enough memory\n", stderr);
        return 1;
    }
}

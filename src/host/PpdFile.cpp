#include "host/PpdFile.h"

#include "host/HostError.h"
#include "host/no_language.h"

#include <cups/cups.h>
#include <cups/ppd.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <span>
#include <strings.h>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

#if defined(__SANITIZE_ADDRESS__)
#define SPECIALPAGES_LEAK_CHECK
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SPECIALPAGES_LEAK_CHECK
#endif
#endif
#ifdef SPECIALPAGES_LEAK_CHECK
#include <sanitizer/lsan_interface.h>
#endif

namespace specialpages::host {

namespace {

// Null when libcups refuses it; errno then says what the system had to say, if anything.
ppd_file_t* open_ppd(const char* file) {
    const NoLanguage noLanguage;
    errno = 0;
    return ppdOpenFile(file);
}

// In English whatever the locale is.
std::string system_reason(int code) {
    const char* const reason = strerrordesc_np(code);
    return reason == nullptr ? "unknown error" : reason;
}

[[noreturn]] void refuse_file(const std::string& name, int systemError) {
    const NoLanguage noLanguage;
    int line = 0;
    const ppd_status_t status = ppdLastError(&line);
    std::string detail = "expected a PPD file: ";
    detail += ppdErrorString(status);
    if (status == PPD_FILE_OPEN_ERROR && systemError != 0) {
        detail += " (" + system_reason(systemError) + ")";
    }
    throw HostError(ErrorCode::input, place_of_line(name, line), detail);
}

// A file descriptor of the text, at its beginning; libcups closes it.
int memory_file(std::string_view bytes) {
    const int file = memfd_create("ppd", MFD_CLOEXEC);
    while (file >= 0 && !bytes.empty()) {
        const ssize_t written = write(file, bytes.data(), bytes.size());
        if (written < 0) {
            break;
        }
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    if (file < 0 || !bytes.empty() || lseek(file, 0, SEEK_SET) != 0) {
        throw HostError(ErrorCode::other, "", "no memory for the PPD file");
    }
    return file;
}

struct Unit {
    std::string_view name;
    double points;
};
constexpr std::array<Unit, 7> kUnits{{{"", 1.0},
                                      {"pt", 1.0},
                                      {"in", 72.0},
                                      {"ft", 864.0},
                                      {"mm", 72.0 / 25.4},
                                      {"cm", 72.0 / 2.54},
                                      {"m", 72.0 / 0.0254}}};

// The measures behind "Custom."; empty optional when the text has another form.
std::optional<SheetSize> custom_measures(std::string_view text) {
    SheetSize size;
    const char* const end = text.data() + text.size();
    const auto width = std::from_chars(text.data(), end, size.width, std::chars_format::fixed);
    if (width.ec != std::errc() || width.ptr == end || *width.ptr != 'x') {
        return std::nullopt;
    }
    const auto length = std::from_chars(width.ptr + 1, end, size.length, std::chars_format::fixed);
    if (length.ec != std::errc()) {
        return std::nullopt;
    }
    const std::string_view unitName(length.ptr, static_cast<std::size_t>(end - length.ptr));
    for (const Unit& unit : kUnits) {
        if (unit.name == unitName) {
            return SheetSize{size.width * unit.points, size.length * unit.points};
        }
    }
    return std::nullopt;
}

std::string points_text(double points) {
    std::array<char, 64> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), points, std::chars_format::general, 6);
    return std::string(digits.data(), end.ptr);
}

// Why a size of one's own cannot be marked; empty when it can.
std::string custom_size_fault(const ppd_file_t& ppd, std::string_view measures) {
    const auto size = custom_measures(measures);
    if (!size) {
        return "expected Custom.WIDTHxLENGTH with an optional unit pt, mm, cm, m, in or ft";
    }
    // A measure given in millimetres is rounded; half a point is less than anyone can cut.
    constexpr double kTolerance = 0.5;
    const auto within = [](double value, float least, float most) {
        return std::isfinite(value) && value >= static_cast<double>(least) - kTolerance &&
               value <= static_cast<double>(most) + kTolerance;
    };
    if (within(size->width, ppd.custom_min[0], ppd.custom_max[0]) &&
        within(size->length, ppd.custom_min[1], ppd.custom_max[1])) {
        return "";
    }
    const auto range = [](float least, float most) {
        return points_text(static_cast<double>(least)) + " to " + points_text(static_cast<double>(most));
    };
    return "expected a width of " + range(ppd.custom_min[0], ppd.custom_max[0]) + " and a length of " +
           range(ppd.custom_min[1], ppd.custom_max[1]) + " points";
}

std::string choice_list(const ppd_option_t& option) {
    std::string list;
    for (const ppd_choice_t& choice :
         std::span(option.choices, static_cast<std::size_t>(option.num_choices))) {
        list += (list.empty() ? "" : ", ") + std::string(choice.choice);
    }
    return list;
}

/// libcups 2.4.2 keeps the four texts by which it knows two-sided printing when the PPD is closed. They are
/// no leak of ours, and the leak checker of a sanitized build is told so.
void mark_options(ppd_file_t& ppd, int count, cups_option_t* options) {
#ifdef SPECIALPAGES_LEAK_CHECK
    const __lsan::ScopedDisabler libcupsOwn;
#endif
    cupsMarkOptions(&ppd, count, options);
}

bool is_page_size(const std::string& option) {
    return strcasecmp(option.c_str(), "PageSize") == 0 || strcasecmp(option.c_str(), "PageRegion") == 0;
}

} // namespace

void PpdFile::Close::operator()(ppd_file_s* ppd) const {
    ppdClose(ppd);
}

PpdFile::PpdFile(ppd_file_s* ppd, std::string name) : ppd_(ppd), name_(std::move(name)) {
    if (ppd_ == nullptr) {
        refuse_file(name_, errno);
    }
    ppdMarkDefaults(ppd_.get());
}

PpdFile::PpdFile(const std::filesystem::path& file) : PpdFile(open_ppd(file.c_str()), file.string()) {}

PpdFile PpdFile::parse(std::string_view bytes, const std::string& name) {
    const int file = memory_file(bytes);
    const NoLanguage noLanguage;
    errno = 0;
    return {ppdOpenFd(file), name};
}

void PpdFile::mark(const std::string& option, const std::string& choice) {
    ppd_option_t* const found = ppdFindOption(ppd_.get(), option.c_str());
    if (found == nullptr) {
        throw HostError(ErrorCode::usage, option,
                        "expected an option of " + name_ + ", which has none so named");
    }
    constexpr std::string_view kCustom = "Custom.";
    const bool custom = strncasecmp(choice.c_str(), kCustom.data(), kCustom.size()) == 0;
    if (choice.empty() || ppdFindChoice(found, choice.c_str()) == nullptr) {
        throw HostError(ErrorCode::usage, option + "=" + choice,
                        "expected a choice of this option: " + choice_list(*found));
    }
    std::string marked = choice;
    if (custom && is_page_size(option)) {
        const std::string fault = custom_size_fault(*ppd_, std::string_view(choice).substr(kCustom.size()));
        if (!fault.empty()) {
            throw HostError(ErrorCode::usage, option + "=" + choice, fault);
        }
        // libcups finds the choice in any case, but reads the measures after this spelling only.
        marked.replace(0, kCustom.size(), kCustom);
    }
    ppdMarkOption(ppd_.get(), found->keyword, marked.c_str());
}

void PpdFile::mark(const std::string& assignment) {
    const std::size_t equals = assignment.find('=');
    if (equals == std::string::npos || equals == 0 || equals + 1 == assignment.size()) {
        throw HostError(ErrorCode::usage, assignment, "expected OPTION=CHOICE");
    }
    mark(assignment.substr(0, equals), assignment.substr(equals + 1));
}

void PpdFile::mark_job_options(const JobOptions& options) {
    cups_option_t* list = nullptr;
    int count = 0;
    for (const JobOption& option : options) {
        count = cupsAddOption(option.name.c_str(), option.value.c_str(), count, &list);
    }
    mark_options(*ppd_, count, list);
    cupsFreeOptions(count, list);
}

std::optional<SheetSize> PpdFile::page_size() const {
    const ppd_size_t* const size = ppdPageSize(ppd_.get(), nullptr);
    if (size == nullptr) {
        return std::nullopt;
    }
    return SheetSize{static_cast<double>(size->width), static_cast<double>(size->length)};
}

std::string PpdFile::model_name() const {
    return ppd_->modelname == nullptr ? "" : ppd_->modelname;
}

bool PpdFile::has_attribute(std::string_view prefix) const {
    for (const ppd_attr_t* attribute : std::span(ppd_->attrs, static_cast<std::size_t>(ppd_->num_attrs))) {
        if (std::string_view(attribute->name).starts_with(prefix)) {
            return true;
        }
    }
    return false;
}

} // namespace specialpages::host

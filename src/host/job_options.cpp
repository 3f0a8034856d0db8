#include "host/job_options.h"

#include "host/HostError.h"
#include "host/option_encoding.h"
#include "platform/foundation/text.h"

#include <algorithm>
#include <map>
#include <numeric>
#include <set>
#include <utility>

namespace specialpages::host {

namespace {

char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

std::string lower_case(std::string_view text) {
    std::string lowered(text);
    std::transform(lowered.begin(), lowered.end(), lowered.begin(), lower);
    return lowered;
}

bool is_control(char c) {
    return static_cast<unsigned char>(c) < 0x20 || static_cast<unsigned char>(c) == 0x7F;
}

bool fits_a_name(char c) {
    constexpr std::string_view kForbidden = " =,'\"\\{}";
    return c > 0x20 && c < 0x7F && kForbidden.find(c) == std::string_view::npos;
}

/// What is wrong with a name; empty when nothing is.
std::string name_fault(std::string_view name) {
    if (name.empty() || name.size() > kMaxOptionNameBytes) {
        return "expected a name of 1 to " + std::to_string(kMaxOptionNameBytes) + " bytes";
    }
    if (!std::all_of(name.begin(), name.end(), fits_a_name)) {
        return "expected a name of printable ASCII without blanks, commas, \"=\", quotes, backslashes and "
               "braces; a print job carries no other";
    }
    return "";
}

/// What is wrong with any value; empty when nothing is.
std::string value_fault(std::string_view value) {
    if (value.size() > kMaxOptionValueBytes) {
        return "expected at most " + std::to_string(kMaxOptionValueBytes) +
               " bytes, which is what one "
               "option of a print job can hold; there are " +
               std::to_string(value.size());
    }
    if (std::any_of(value.begin(), value.end(), is_control)) {
        return "expected a text without control characters, at which the print system would cut it";
    }
    if (!platform::is_valid_utf8(value)) {
        return "expected UTF-8, the one encoding of a print job's options";
    }
    return "";
}

/// What is wrong with a setting as an option; empty when nothing is.
std::string setting_fault(const JobOption& option) {
    if (std::string fault = name_fault(option.name); !fault.empty()) {
        return fault;
    }
    if (lower_case(option.name).starts_with("job-")) {
        return "expected a key that does not begin with \"job-\"; the print system keeps such options to "
               "itself";
    }
    if (std::string fault = value_fault(option.value); !fault.empty()) {
        return fault;
    }
    const std::string lowered = lower_case(option.value);
    if (lowered == "true" || lowered == "false") {
        return "expected another text than \"" + option.value +
               "\", of which the print system would make a switch";
    }
    if (option.value.starts_with('{')) {
        return "expected a text that does not begin with \"{\", of which the print system would make a "
               "collection";
    }
    if (!arrives_as_text(option.name, option.value)) {
        return "expected a key that is not the name of one of the print system's own options";
    }
    return "";
}

std::string joined(const platform::PrintSettings::Entry& entry) {
    if (const auto* const text = std::get_if<std::string>(&entry.value)) {
        return *text;
    }
    std::string list;
    for (const std::string& text : std::get<std::vector<std::string>>(entry.value)) {
        if (text.empty() || text.find(',') != std::string::npos) {
            throw HostError(ErrorCode::input, entry.key,
                            "expected texts without commas, none of them empty; a print job carries the "
                            "array as a comma list");
        }
        list += (list.empty() ? "" : ",") + text;
    }
    return list;
}

std::size_t escaped_bytes_of(const JobOption& option) {
    constexpr std::string_view kEscaped = " \t\n\\'\"";
    const auto escapes = std::count_if(option.value.begin(), option.value.end(),
                                       [&](char c) { return kEscaped.find(c) != std::string_view::npos; });
    return option.name.size() + 1 + option.value.size() + static_cast<std::size_t>(escapes);
}

/// Whether the option is one of the pane's records, or their count.
bool is_record(const JobOption& option) {
    const std::string_view name = option.name;
    if (!name.starts_with(kPaneRecordKey)) {
        return false;
    }
    const std::string_view rest = name.substr(kPaneRecordKey.size());
    return rest == "Count" ||
           (rest.size() > 1 && rest[0] == '_' && rest.find_first_not_of("0123456789", 1) == rest.npos);
}

/// Takes the pane's records out of the settings' options.
void leave_records_out(JobOptions& settings, CheckedOptions& checked) {
    const auto records = std::stable_partition(settings.begin(), settings.end(),
                                               [](const JobOption& option) { return !is_record(option); });
    const JobOptions left(records, settings.end());
    settings.erase(records, settings.end());
    checked.recordsLeft = left.size();
    checked.bytesLeft = escaped_bytes(left);
}

JobOptions both(const JobOptions& settings, const JobOptions& queueOptions) {
    JobOptions all = settings;
    all.insert(all.end(), queueOptions.begin(), queueOptions.end());
    return all;
}

} // namespace

std::size_t escaped_bytes(const JobOptions& options) {
    const std::size_t blanks = options.empty() ? 0 : options.size() - 1;
    return std::accumulate(
        options.begin(), options.end(), blanks,
        [](std::size_t sum, const JobOption& option) { return sum + escaped_bytes_of(option); });
}

JobOptions options_of_settings(const platform::PrintSettings& settings) {
    JobOptions options;
    std::map<std::string, std::string> names; // in lower case, to the key
    for (const platform::PrintSettings::Entry& entry : settings.entries()) {
        JobOption option{entry.key, joined(entry)};
        if (const std::string fault = setting_fault(option); !fault.empty()) {
            throw HostError(ErrorCode::input, entry.key, fault);
        }
        const auto [same, isNew] = names.emplace(lower_case(entry.key), entry.key);
        if (!isNew) {
            throw HostError(ErrorCode::input, entry.key,
                            "expected a key that differs from " + same->second +
                                " in more than case; a print job does not tell them apart");
        }
        options.push_back(std::move(option));
    }
    return options;
}

JobOptions queue_options(const std::vector<std::string>& assignments) {
    JobOptions options;
    for (const std::string& assignment : assignments) {
        const std::size_t equals = assignment.find('=');
        if (equals == std::string::npos) {
            throw HostError(ErrorCode::usage, assignment, "expected NAME=VALUE");
        }
        JobOption option{assignment.substr(0, equals), assignment.substr(equals + 1)};
        const std::string lowered = lower_case(option.name);
        std::string fault = name_fault(option.name);
        if (fault.empty()) {
            fault = value_fault(option.value);
        }
        if (fault.empty() && lowered.starts_with(kPaneOptionPrefix)) {
            fault = "expected an option of the queue; special pages come from the settings";
        }
        if (!fault.empty()) {
            throw HostError(ErrorCode::usage, option.name, fault);
        }
        std::erase_if(options, [&](const JobOption& other) { return lower_case(other.name) == lowered; });
        options.push_back(std::move(option));
    }
    return options;
}

std::string job_title(std::string name) {
    const bool isText = platform::is_valid_utf8(name);
    std::replace_if(
        name.begin(), name.end(),
        [&](char c) { return is_control(c) || (!isText && static_cast<unsigned char>(c) > 0x7F); }, '?');
    const auto continues = [&](std::size_t at) {
        constexpr unsigned kTopTwoBits = 0xC0;
        return (static_cast<unsigned char>(name[at]) & kTopTwoBits) == 0x80;
    };
    std::size_t end = std::min(name.size(), kMaxOptionNameBytes);
    while (end < name.size() && end > 0 && continues(end)) {
        --end;
    }
    name.resize(end);
    return name.empty() ? "document" : name;
}

CheckedOptions job_options(const platform::PrintSettings& settings, const JobOptions& queueOptions) {
    JobOptions ours = options_of_settings(settings);
    std::set<std::string> names;
    for (const JobOption& option : ours) {
        names.insert(lower_case(option.name));
    }
    for (const JobOption& option : queueOptions) {
        if (names.contains(lower_case(option.name))) {
            throw HostError(ErrorCode::usage, option.name,
                            "expected an option that the settings do not have; they have this one");
        }
    }
    CheckedOptions checked;
    checked.bytes = escaped_bytes(both(ours, queueOptions));
    const std::size_t whole = checked.bytes;
    if (checked.bytes > kMaxJobOptionBytes) {
        leave_records_out(ours, checked);
        checked.bytes = escaped_bytes(both(ours, queueOptions));
    }
    if (checked.bytes > kMaxJobOptionBytes) {
        throw HostError(ErrorCode::refused, "",
                        "the job's options take " + std::to_string(whole) + " bytes, and " +
                            std::to_string(checked.bytes) +
                            " without the pane's own records, but a print job carries at most " +
                            std::to_string(kMaxJobOptionBytes) +
                            ": split the document into jobs with fewer special pages each");
    }
    checked.options = both(ours, queueOptions);
    return checked;
}

} // namespace specialpages::host

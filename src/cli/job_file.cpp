#include "cli/job_file.h"

#include "host/HostError.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <functional>
#include <initializer_list>
#include <limits>
#include <span>
#include <utility>

namespace specialpages::cli {

namespace {

using host::ErrorCode;
using host::HostError;
using nlohmann::ordered_json;

constexpr std::array<std::string_view, 5> kCoverOptions{"none", "front", "back", "front-and-back-same",
                                                        "front-and-back-different"};
constexpr std::int32_t kFrontOnly = 1;
constexpr std::int32_t kBackOnly = 2;
constexpr std::int32_t kSame = 3;
constexpr std::int32_t kDifferent = 4;
constexpr std::array<std::string_view, 4> kPrint{"blank", "side-one", "side-two", "both-sides"};
constexpr std::array<std::string_view, 4> kSides{"no-change", "one-sided", "two-sided-long-edge",
                                                 "two-sided-short-edge"};
constexpr std::array<std::string_view, 2> kUnits{"mm", "in"};

std::string words(std::span<const std::string_view> all) {
    std::string text;
    for (const std::string_view word : all) {
        text += (text.empty() ? "" : ", ") + std::string(word);
    }
    return text;
}

/// Refuses members that are given twice, of which the library would keep one in silence, and nesting without
/// a bound.
class StrictParsing {
  public:
    explicit StrictParsing(std::string file) : file_(std::move(file)) {}

    bool operator()(int depth, ordered_json::parse_event_t event, const ordered_json& parsed) {
        using Event = ordered_json::parse_event_t;
        if (depth > kMaxJobDepth) {
            throw error("expected a job that nests at most " + std::to_string(kMaxJobDepth) + " deep");
        }
        if (event == Event::object_start) {
            known_.emplace_back();
        } else if (event == Event::object_end) {
            known_.pop_back();
        } else if (event == Event::key) {
            const auto& name = parsed.get_ref<const std::string&>();
            auto& known = known_.back();
            if (std::find(known.begin(), known.end(), name) != known.end()) {
                throw error("\"" + name + "\" is given twice");
            }
            known.push_back(name);
        }
        return true;
    }

  private:
    HostError error(const std::string& detail) const { return {ErrorCode::input, file_, detail}; }

    std::string file_;
    std::vector<std::vector<std::string>> known_; ///< names so far of each open object
};

/// An object of the file with its place.
class Entry {
  public:
    Entry(const ordered_json& value, std::string file, JobPlace place)
        : value_(&value), file_(std::move(file)), place_(std::move(place)) {
        if (!value.is_object()) {
            throw error("", "expected an object");
        }
    }

    const JobPlace& place() const { return place_; }
    /// HostError when a member is none of these.
    void expectOnly(std::initializer_list<std::string_view> names) const {
        for (const auto& [name, value] : value_->items()) {
            if (std::find(names.begin(), names.end(), name) == names.end()) {
                throw error(name, "unknown; expected " + words({names.begin(), names.size()}));
            }
        }
    }
    const ordered_json* find(const char* name) const {
        const auto found = value_->find(name);
        return found == value_->end() ? nullptr : &*found;
    }
    std::optional<std::string> text(const char* name) const {
        const ordered_json* value = find(name);
        if (value == nullptr) {
            return std::nullopt;
        }
        if (!value->is_string() || value->get_ref<const std::string&>().find('\0') != std::string::npos) {
            throw error(name, "expected a text");
        }
        return value->get<std::string>();
    }
    std::string neededText(const char* name) const {
        auto found = text(name);
        if (!found) {
            throw error(name, "missing; expected a text");
        }
        return std::move(*found);
    }
    /// Position of the member's word; empty optional without the member.
    std::optional<std::int32_t> word(const char* name, std::span<const std::string_view> all) const {
        const auto given = text(name);
        if (!given) {
            return std::nullopt;
        }
        const auto found = std::find(all.begin(), all.end(), *given);
        if (found == all.end()) {
            throw error(name, "expected one of " + words(all) + ", found \"" + *given + "\"");
        }
        return static_cast<std::int32_t>(found - all.begin());
    }
    std::optional<std::int32_t> wholeNumber(const char* name) const {
        const ordered_json* value = find(name);
        if (value == nullptr) {
            return std::nullopt;
        }
        if (!value->is_number_unsigned() || value->get<std::uint64_t>() > std::numeric_limits<int>::max()) {
            throw error(name, "expected a whole number");
        }
        return value->get<std::int32_t>();
    }
    /// The entry of that name; the member is there.
    Entry entry(const char* name) const { return {*find(name), file_, placeOf(name)}; }
    /// The elements of an array; none without the member.
    std::vector<Entry> entries(const char* name) const {
        std::vector<Entry> all;
        if (const ordered_json* array = find(name)) {
            if (!array->is_array()) {
                throw error(name, "expected an array");
            }
            for (const ordered_json& element : *array) {
                all.emplace_back(element, file_, placeOf(name) + "[" + std::to_string(all.size()) + "]");
            }
        }
        return all;
    }
    JobPlace placeOf(const std::string& name) const { return place_.empty() ? name : place_ + "." + name; }
    HostError error(const std::string& name, const std::string& detail) const {
        const JobPlace at = name.empty() ? place_ : placeOf(name);
        return {ErrorCode::input, at.empty() ? file_ : file_ + ", " + at, detail};
    }

  private:
    const ordered_json* value_;
    std::string file_;
    JobPlace place_;
};

JobPaper custom_size_checked(JobPaper paper, const Entry& entry) {
    if (paper.width.has_value() != paper.length.has_value()) {
        throw entry.error(paper.width ? "length" : "width", "missing; a width goes with a length");
    }
    const bool custom = paper.size == "Custom";
    if (!custom && paper.width) {
        throw entry.error("width", "expected only with the size Custom");
    }
    if (entry.find("unit") != nullptr && !paper.width) {
        throw entry.error("unit", "expected only with a width and length");
    }
    return paper;
}

std::optional<JobPaper> read_paper(const Entry& parent) {
    const ordered_json* value = parent.find("paper");
    if (value == nullptr) {
        return std::nullopt;
    }
    JobPaper paper;
    paper.place = parent.placeOf("paper");
    if (value->is_string()) {
        if (*value == "interposer") {
            paper.kind = JobPaper::Kind::interposer;
        } else if (*value == "no-change") {
            paper.kind = JobPaper::Kind::noChange;
        } else {
            throw parent.error("paper", "expected \"interposer\", \"no-change\" or an object");
        }
        return paper;
    }
    if (!value->is_object()) {
        throw parent.error("paper", "expected \"interposer\", \"no-change\" or an object");
    }
    const Entry entry = parent.entry("paper");
    entry.expectOnly({"size", "color", "type", "width", "length", "unit"});
    paper.size = entry.text("size");
    paper.color = entry.text("color");
    paper.type = entry.text("type");
    paper.width = entry.text("width");
    paper.length = entry.text("length");
    paper.inches = entry.word("unit", kUnits).value_or(0) == 1;
    return custom_size_checked(std::move(paper), entry);
}

std::optional<JobCoverSide> read_cover_side(const Entry& covers, const char* name, bool wanted) {
    if (covers.find(name) == nullptr) {
        return std::nullopt;
    }
    if (!wanted) {
        throw covers.error(name, "the option has no such cover of its own");
    }
    const Entry entry = covers.entry(name);
    entry.expectOnly({"print", "paper"});
    return JobCoverSide{entry.word("print", kPrint), read_paper(entry), entry.place()};
}

JobCovers read_covers(const Entry& entry) {
    entry.expectOnly({"option", "front", "back"});
    const auto option = entry.word("option", kCoverOptions);
    if (!option) {
        throw entry.error("option", "missing; expected one of " + words(kCoverOptions));
    }
    const bool front = *option == kFrontOnly || *option == kSame || *option == kDifferent;
    const bool back = *option == kBackOnly || *option == kDifferent;
    return {*option, read_cover_side(entry, "front", front), read_cover_side(entry, "back", back)};
}

JobInsert read_insert(const Entry& entry) {
    entry.expectOnly({"after", "before-page-one", "sheets", "paper"});
    const ordered_json* before = entry.find("before-page-one");
    if (before != nullptr && !before->is_boolean()) {
        throw entry.error("before-page-one", "expected true or false");
    }
    const bool beforePageOne = before != nullptr && before->get<bool>();
    JobInsert insert{entry.text("after"), entry.wholeNumber("sheets"), read_paper(entry), entry.place()};
    if (beforePageOne == insert.after.has_value()) {
        throw entry.error("", "expected either \"after\" or \"before-page-one\": true");
    }
    return insert;
}

JobException read_exception(const Entry& entry) {
    entry.expectOnly({"pages", "sides", "paper"});
    return {entry.neededText("pages"), entry.word("sides", kSides), read_paper(entry), entry.place()};
}

} // namespace

Job parse_job(std::string_view text, const std::string& file) {
    ordered_json value;
    try {
        StrictParsing strict(file);
        value = ordered_json::parse(text, std::ref(strict));
    } catch (const ordered_json::exception& error) {
        throw HostError(ErrorCode::input, file, std::string("expected JSON: ") + error.what());
    }
    const Entry root(value, file, "");
    root.expectOnly({"covers", "inserts", "exceptions"});
    Job job;
    if (root.find("covers") != nullptr) {
        job.covers = read_covers(root.entry("covers"));
    }
    for (const Entry& entry : root.entries("inserts")) {
        job.inserts.push_back(read_insert(entry));
    }
    for (const Entry& entry : root.entries("exceptions")) {
        job.exceptions.push_back(read_exception(entry));
    }
    return job;
}

} // namespace specialpages::cli

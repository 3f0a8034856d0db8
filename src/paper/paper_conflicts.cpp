#include "paper/paper_conflicts.h"

#include "ppd/ppd_keywords.h"

#include <algorithm>
#include <cstring>

namespace specialpages {

namespace {

template <typename Item>
std::span<const Item> span_of(const Item* items, int count) {
    return items == nullptr || count <= 0 ? std::span<const Item>()
                                          : std::span(items, static_cast<std::size_t>(count));
}

/// Equality with a fixed field of the PPD, without looking for the field's end first.
template <std::size_t Size>
bool is_text(const char (&field)[Size], std::string_view text) {
    return text.size() <= Size && std::memcmp(field, text.data(), text.size()) == 0 &&
           (text.size() == Size || field[text.size()] == '\0');
}

bool is_tested_with_its_selection(std::string_view option, const PaperOptionKeys& keys) {
    return option == keys.size || option == keys.type || option == kNXRegionalPaperSetting ||
           option == kSwitchPaperSize;
}

/// The part of the paper whose option that is; empty for any other option.
std::optional<PaperPart> part_of(std::string_view option, const PaperOptionKeys& keys) {
    for (const PaperPart part : {PaperPart::size, PaperPart::type, PaperPart::color}) {
        if (option == keys.of(part)) {
            return part;
        }
    }
    return std::nullopt;
}

std::int32_t index_of(const SelectedPaper& record, PaperPart part) {
    return part == PaperPart::size ? record.size : part == PaperPart::color ? record.color : record.type;
}

/// The numbers that come for the first time, out of those below a bound.
class FirstTimes {
  public:
    explicit FirstTimes(std::size_t bound) : seen_(bound, false) {}
    bool take(std::int32_t number) {
        if (number < 0 || static_cast<std::size_t>(number) >= seen_.size() ||
            seen_[static_cast<std::size_t>(number)]) {
            return false;
        }
        seen_[static_cast<std::size_t>(number)] = true;
        return true;
    }

  private:
    std::vector<bool> seen_;
};

} // namespace

std::vector<SelectedPaper> selected_papers(const RecordList& records) {
    std::vector<SelectedPaper> papers;
    papers.reserve(records.size());
    for (const SpecialPageRecord& record : records) {
        papers.push_back({record.integer(RecordKey::pagesize), record.integer(RecordKey::pagecolor),
                          record.integer(RecordKey::pagetype), record.integer(RecordKey::twoSidePrint)});
    }
    return papers;
}

PaperConflicts::PaperConflicts(const PaperSituation& situation, bool isNoChangeChoice)
    : ppd_(situation.ppd), index_(situation.index) {
    if (ppd_ == nullptr || index_ == nullptr || index_->empty()) {
        index_ = nullptr;
        return;
    }
    number_choices(*ppd_);
    const std::size_t count = std::min(situation.optionKeys.size(), situation.selections.size());
    for (std::size_t i = 0; i < count; ++i) {
        const std::string& option = situation.optionKeys[i];
        const std::string& selection = situation.selections[i];
        if (selection != kNullChoice) {
            if (is_tested_with_its_selection(option, situation.keys)) {
                test(option, selection);
            }
        } else if (!isNoChangeChoice) {
            test_records(situation, option);
        }
    }
    test_sidedness(situation, isNoChangeChoice);
}

void PaperConflicts::number_choices(const ppd_file_t& ppd) {
    std::size_t options = 0;
    for (const ppd_group_t& group : span_of(ppd.groups, ppd.num_groups)) {
        options += span_of(group.options, group.num_options).size();
    }
    firstOptions_.reserve(span_of(ppd.groups, ppd.num_groups).size() + 1);
    firstChoices_.reserve(options + 1);
    options_.reserve(options);
    std::uint32_t choices = 0;
    for (const ppd_group_t& group : span_of(ppd.groups, ppd.num_groups)) {
        firstOptions_.push_back(static_cast<std::uint32_t>(options_.size()));
        for (const ppd_option_t& option : span_of(group.options, group.num_options)) {
            options_.push_back(&option);
            firstChoices_.push_back(choices);
            choices += static_cast<std::uint32_t>(span_of(option.choices, option.num_choices).size());
        }
    }
    firstOptions_.push_back(static_cast<std::uint32_t>(options_.size()));
    firstChoices_.push_back(choices);
    ranks_.assign(choices, kUntested);
}

void PaperConflicts::test(std::string_view option, std::string_view choice) {
    const Rank rank = next_++;
    for (std::size_t number = 0; number < options_.size(); ++number) {
        if (choice.empty() || !is_text(options_[number]->keyword, option)) {
            continue;
        }
        Rank* ranked = ranks_.data() + firstChoices_[number];
        for (const ppd_choice_t& each : span_of(options_[number]->choices, options_[number]->num_choices)) {
            if (*ranked == kUntested && is_text(each.choice, choice)) {
                *ranked = rank;
            }
            ++ranked;
        }
    }
}

void PaperConflicts::test_records(const PaperSituation& situation, std::string_view option) {
    const auto part = part_of(option, situation.keys);
    if (!part) {
        // Of an option that is no paper a record says nothing: the selection itself is tested.
        if (!situation.records.empty()) {
            test(option, kNullChoice);
        }
        return;
    }
    const auto& choices = situation.menuChoices[part_index(*part)];
    FirstTimes fresh(choices.size());
    for (const SelectedPaper& record : situation.records) {
        const std::int32_t index = index_of(record, *part);
        if (fresh.take(index)) {
            test(option, choices[static_cast<std::size_t>(index)]);
        }
    }
}

void PaperConflicts::test_sidedness(const PaperSituation& situation, bool isNoChangeChoice) {
    if (!situation.sidedness || !situation.sidedness->current || situation.sidedness->current->empty()) {
        return;
    }
    const DuplexChoices current = *situation.sidedness->current;
    if (std::string_view(current.front()) != kNullChoice) {
        for (const char* choice : current) {
            test(kPPDDuplex, choice);
        }
        return;
    }
    if (isNoChangeChoice) {
        return;
    }
    FirstTimes fresh(situation.sidedness->byRecord.size());
    for (const SelectedPaper& record : situation.records) {
        if (fresh.take(record.twoSidePrint)) {
            const auto side = static_cast<std::size_t>(record.twoSidePrint);
            for (const char* choice : situation.sidedness->byRecord[side]) {
                test(kPPDDuplex, choice);
            }
        }
    }
}

PaperConflicts::Rank PaperConflicts::rank_at(x_constraints place) const {
    if (place.groupIndex + std::size_t{1} >= firstOptions_.size()) {
        return kUntested;
    }
    const std::size_t option = std::size_t{firstOptions_[place.groupIndex]} + place.optionIndex;
    if (option >= firstOptions_[place.groupIndex + std::size_t{1}]) {
        return kUntested;
    }
    const std::size_t choice = std::size_t{firstChoices_[option]} + place.choiceIndex;
    return choice < firstChoices_[option + 1] ? ranks_[choice] : kUntested;
}

ConflictingChoice PaperConflicts::reason(std::string_view key) const {
    if (index_ == nullptr) {
        return {};
    }
    Rank first = kUntested;
    x_constraints place;
    for (const x_constraints each : index_->equal_range(key)) {
        const Rank rank = rank_at(each);
        if (rank < first) {
            first = rank;
            place = each;
        }
    }
    return first == kUntested ? ConflictingChoice{} : choice_at(*ppd_, place);
}

} // namespace specialpages

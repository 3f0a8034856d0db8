// The compiling half of constraint_index.h: one algorithm for the four forms, reached one constraint at a
// time or for a whole PPD.
#include "platform/foundation/log.h"
#include "ppd/constraint_index.h"
#include "ppd/name_lookup.h"

#include <limits>
#include <optional>

namespace specialpages {

namespace {

constexpr std::uint32_t kNone = std::numeric_limits<std::uint32_t>::max();

template <typename Item>
std::span<const Item> span_of(const Item* items, int count) {
    return items == nullptr || count <= 0 ? std::span<const Item>()
                                          : std::span(items, static_cast<std::size_t>(count));
}

bool does_something(std::size_t position, const ppd_choice_t& choice) {
    const std::string_view name = field_text(choice.choice);
    return position != 0 && !equal_ignoring_case(name, "None") && !equal_ignoring_case(name, "Off") &&
           !equal_ignoring_case(name, "False");
}

/// One option of the PPD with what has been asked about its choices so far.
class CompiledOption {
  public:
    CompiledOption(const ppd_option_t& option, std::size_t group, std::size_t position)
        : option_(&option), group_(group), position_(position) {}

    std::string_view keyword() const { return field_text(option_->keyword); }
    std::span<const ppd_choice_t> choices() const { return span_of(option_->choices, option_->num_choices); }

    /// The first choice of that name, in any case.
    std::optional<NameTable::Found> find_choice(const Name& name) {
        if (!names_) {
            names_.emplace(NameCase::Ignored, choices().size());
            std::uint32_t position = 0;
            for (const ppd_choice_t& choice : choices()) {
                names_->add(Name(choice.choice), position++);
            }
        }
        return names_->find(name);
    }

    /// Positions of the choices that do something.
    const std::vector<std::uint32_t>& active_choices() {
        if (!active_) {
            active_.emplace();
            std::uint32_t position = 0;
            for (const ppd_choice_t& choice : choices()) {
                if (does_something(position, choice)) {
                    active_->push_back(position);
                }
                ++position;
            }
        }
        return *active_;
    }

    /// Empty when a position does not fit its 16 bits.
    std::optional<x_constraints> place(std::uint32_t choice) const {
        constexpr std::size_t kLast = std::numeric_limits<std::uint16_t>::max();
        if (group_ > kLast || position_ > kLast || choice > kLast) {
            return std::nullopt;
        }
        return x_constraints{static_cast<std::uint16_t>(group_), static_cast<std::uint16_t>(position_),
                             static_cast<std::uint16_t>(choice)};
    }

    /// Inserts an entry whose key is the choice in the PPD's own spelling.
    void insert_into(ConstraintIndex& index, std::uint32_t choice, x_constraints value) {
        if (keys_.empty()) {
            keys_.resize(choices().size(), ConstraintIndex::kNoKey);
        }
        ConstraintIndex::KeyId& key = keys_[choice];
        if (key == ConstraintIndex::kNoKey) {
            key = index.insert(ChoiceKey(keyword(), field_text(choices()[choice].choice)).text(), value);
        } else {
            index.insert(key, value);
        }
    }

    std::uint32_t next_of_same_keyword = kNone;
    std::uint32_t last_of_same_keyword = kNone; ///< kept at the first one only

  private:
    const ppd_option_t* option_;
    std::size_t group_;
    std::size_t position_;
    std::optional<NameTable> names_;
    std::optional<std::vector<std::uint32_t>> active_;
    std::vector<ConstraintIndex::KeyId> keys_; ///< by choice, once an entry was inserted for it
};

/// A run over constraints of one PPD into one index.
class ConstraintCompiler {
  public:
    ConstraintCompiler(const ppd_file_t& ppd, ConstraintIndex& index,
                       std::span<const std::string> keywordList);

    /// Adds a constraint if one of its options stands in the keyword list, by the form that its choices call
    /// for.
    void add_if_listed(const ppd_const_t& constraint);
    void add(const ppd_const_t& constraint, bool choice1_named, bool choice2_named);

  private:
    /// What an option keyword of a constraint, as it is spelled there, stands for.
    struct Keyword {
        bool listed = false;
        bool as_spelled = false; ///< the first option spells itself so
        std::uint32_t first_option = kNone;
    };
    /// The keyword that was asked for last: constraints come in rows of one option.
    struct LastKeyword {
        Name spelled;
        std::uint32_t number = kNone;
    };
    /// A constraint with what its keywords stand for.
    struct Resolved {
        const ppd_const_t& text;
        Keyword first;
        Keyword second;
    };
    struct KeySource {
        CompiledOption* option;
        std::uint32_t choice;
    };

    void add_options(std::span<const ppd_option_t> options, std::size_t group);
    std::uint32_t keyword_number(const Name& spelled);
    Keyword keyword(const Name& spelled, LastKeyword& last);
    Resolved resolve(const ppd_const_t& constraint);
    CompiledOption* first_option(const Keyword& keyword) { return option_at(keyword.first_option); }
    CompiledOption* next_option(const CompiledOption& option) {
        return option_at(option.next_of_same_keyword);
    }
    CompiledOption* option_at(std::uint32_t number) { return number == kNone ? nullptr : &options_[number]; }

    /// Calls `visit(option)` for the first option of the keyword, or for every one.
    template <typename Visit>
    void visit_options(const Keyword& keyword, bool every, Visit visit);

    void collect_named_value(const Resolved& constraint);
    void collect_active_values(const Resolved& constraint, bool every_option);
    void collect_active_keys(const Resolved& constraint, bool every_option);
    void add(const Resolved& constraint, bool choice1_named, bool choice2_named);
    void add_value(const CompiledOption& option, std::uint32_t choice);
    void insert_under_named_key(const Resolved& constraint);
    void insert_under_active_keys(const Resolved& constraint, bool every_option);

    ConstraintIndex& index_;
    std::vector<CompiledOption> options_;
    NameTable first_options_{NameCase::Ignored}; ///< keyword -> the first option of that keyword
    NameTable spellings_;                        ///< keyword as spelled -> keywords_
    std::vector<Keyword> keywords_;              ///< of the list, and of the constraints so far
    LastKeyword last_first_;
    LastKeyword last_second_;
    std::vector<x_constraints> values_; ///< of the constraint at hand
    std::vector<KeySource> keys_;       ///< of the constraint at hand
    bool told_of_far_choice_ = false;
};

ConstraintCompiler::ConstraintCompiler(const ppd_file_t& ppd, ConstraintIndex& index,
                                       std::span<const std::string> keywordList)
    : index_(index), spellings_(NameCase::Exact, keywordList.size()) {
    std::size_t position = 0;
    for (const ppd_group_t& group : span_of(ppd.groups, ppd.num_groups)) {
        add_options(span_of(group.options, group.num_options), position++);
    }
    for (const std::string& listed : keywordList) {
        keyword_number(Name(listed));
    }
    for (Keyword& each : keywords_) {
        each.listed = true;
    }
}

void ConstraintCompiler::add_options(std::span<const ppd_option_t> options, std::size_t group) {
    std::size_t position = 0;
    for (const ppd_option_t& option : options) {
        const auto number = static_cast<std::uint32_t>(options_.size());
        options_.emplace_back(option, group, position++);
        const std::uint32_t first = first_options_.add(Name(options_.back().keyword()), number);
        if (first != number) {
            options_[options_[first].last_of_same_keyword].next_of_same_keyword = number;
        }
        options_[first].last_of_same_keyword = number;
    }
}

std::uint32_t ConstraintCompiler::keyword_number(const Name& spelled) {
    const std::uint32_t number = spellings_.add(spelled, static_cast<std::uint32_t>(keywords_.size()));
    if (number == keywords_.size()) {
        const auto option = first_options_.find(spelled);
        keywords_.push_back(option ? Keyword{false, option->as_spelled, option->number} : Keyword{});
    }
    return number;
}

ConstraintCompiler::Keyword ConstraintCompiler::keyword(const Name& spelled, LastKeyword& last) {
    if (last.number == kNone || !(spelled == last.spelled)) {
        last = {spelled, keyword_number(spelled)};
    }
    return keywords_[last.number];
}

template <typename Visit>
void ConstraintCompiler::visit_options(const Keyword& keyword, bool every, Visit visit) {
    for (CompiledOption* option = first_option(keyword); option != nullptr;
         option = every ? next_option(*option) : nullptr) {
        visit(*option);
    }
}

void ConstraintCompiler::add_value(const CompiledOption& option, std::uint32_t choice) {
    if (const auto place = option.place(choice)) {
        values_.push_back(*place);
    } else if (!told_of_far_choice_) {
        told_of_far_choice_ = true;
        platform::NSLog("SpecialPagesPDE : a constrained choice beyond position 65535 is not indexed");
    }
}

void ConstraintCompiler::collect_named_value(const Resolved& constraint) {
    for (CompiledOption* option = first_option(constraint.first); option != nullptr;
         option = next_option(*option)) {
        if (const auto choice = option->find_choice(Name(constraint.text.choice1))) {
            add_value(*option, choice->number);
            return;
        }
    }
}

void ConstraintCompiler::collect_active_values(const Resolved& constraint, bool every_option) {
    visit_options(constraint.first, every_option, [this](CompiledOption& option) {
        for (const std::uint32_t choice : option.active_choices()) {
            add_value(option, choice);
        }
    });
}

void ConstraintCompiler::collect_active_keys(const Resolved& constraint, bool every_option) {
    keys_.clear();
    visit_options(constraint.second, every_option, [this](CompiledOption& option) {
        for (const std::uint32_t choice : option.active_choices()) {
            keys_.push_back({&option, choice});
        }
    });
}

void ConstraintCompiler::insert_under_named_key(const Resolved& constraint) {
    // Spelled as in the PPD, which is usual, the key is that of a choice and known by its number.
    CompiledOption* option = constraint.second.as_spelled ? first_option(constraint.second) : nullptr;
    const auto choice = option != nullptr ? option->find_choice(Name(constraint.text.choice2)) : std::nullopt;
    if (choice && choice->as_spelled) {
        for (const x_constraints value : values_) {
            option->insert_into(index_, choice->number, value);
        }
        return;
    }
    const ChoiceKey key(field_text(constraint.text.option2), field_text(constraint.text.choice2));
    for (const x_constraints value : values_) {
        index_.insert(key.text(), value);
    }
}

void ConstraintCompiler::insert_under_active_keys(const Resolved& constraint, bool every_option) {
    collect_active_keys(constraint, every_option);
    for (const x_constraints value : values_) {
        for (const auto& [option, choice] : keys_) {
            option->insert_into(index_, choice, value);
        }
    }
}

ConstraintCompiler::Resolved ConstraintCompiler::resolve(const ppd_const_t& constraint) {
    return {constraint, keyword(Name(constraint.option1), last_first_),
            keyword(Name(constraint.option2), last_second_)};
}

void ConstraintCompiler::add_if_listed(const ppd_const_t& constraint) {
    const Resolved resolved = resolve(constraint);
    if (resolved.first.listed || resolved.second.listed) {
        add(resolved, constraint.choice1[0] != '\0', constraint.choice2[0] != '\0');
    }
}

void ConstraintCompiler::add(const ppd_const_t& constraint, bool choice1_named, bool choice2_named) {
    add(resolve(constraint), choice1_named, choice2_named);
}

void ConstraintCompiler::add(const Resolved& constraint, bool choice1_named, bool choice2_named) {
    // Only a constraint without any choice looks past the first option of a keyword.
    const bool every_option = !choice1_named && !choice2_named;
    values_.clear();
    if (choice1_named) {
        collect_named_value(constraint);
    } else {
        collect_active_values(constraint, every_option);
    }
    if (values_.empty()) {
        return;
    }
    if (choice2_named) {
        insert_under_named_key(constraint);
    } else {
        insert_under_active_keys(constraint, every_option);
    }
}

void add_constraint(const ppd_file_t* ppd, ConstraintIndex* index, std::int32_t number, bool choice1_named,
                    bool choice2_named) {
    if (ppd == nullptr || index == nullptr) {
        return;
    }
    const std::span<const ppd_const_t> constraints = span_of(ppd->consts, ppd->num_consts);
    if (number >= 0 && static_cast<std::size_t>(number) < constraints.size()) {
        ConstraintCompiler(*ppd, *index, {})
            .add(constraints[static_cast<std::size_t>(number)], choice1_named, choice2_named);
    }
}

} // namespace

void xConst2Hash_O1O2(const ppd_file_t* ppd, ConstraintIndex* index, std::int32_t constraintNumber) {
    add_constraint(ppd, index, constraintNumber, false, false);
}

void xConst2Hash_O1C1O2(const ppd_file_t* ppd, ConstraintIndex* index, std::int32_t constraintNumber) {
    add_constraint(ppd, index, constraintNumber, true, false);
}

void xConst2Hash_O1O2C2(const ppd_file_t* ppd, ConstraintIndex* index, std::int32_t constraintNumber) {
    add_constraint(ppd, index, constraintNumber, false, true);
}

void xConst2Hash_O1C1O2C2(const ppd_file_t* ppd, ConstraintIndex* index, std::int32_t constraintNumber) {
    add_constraint(ppd, index, constraintNumber, true, true);
}

void compile_constraints(const ppd_file_t* ppd, ConstraintIndex* index,
                         std::span<const std::string> keywordList) {
    if (ppd == nullptr || index == nullptr) {
        return;
    }
    const std::span<const ppd_const_t> constraints = span_of(ppd->consts, ppd->num_consts);
    index->reserve(index->size() + constraints.size());
    ConstraintCompiler compiler(*ppd, *index, keywordList);
    for (const ppd_const_t& constraint : constraints) {
        compiler.add_if_listed(constraint);
    }
    index->trim();
}

} // namespace specialpages

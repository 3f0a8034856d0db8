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

    /// Position of the first choice of that name.
    std::optional<std::uint32_t> find_choice(std::string_view name) {
        if (!names_) {
            names_.emplace(choices().size());
            std::uint32_t position = 0;
            for (const ppd_choice_t& choice : choices()) {
                names_->add(Name::folded(field_text(choice.choice)), position++);
            }
        }
        return names_->find(Name::folded(name));
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
    /// `keywordList` is what concerns() asks for. PPD and list outlive the run.
    ConstraintCompiler(const ppd_file_t& ppd, ConstraintIndex& index,
                       std::span<const std::string> keywordList);

    /// Whether one of the constraint's options stands in the keyword list.
    bool concerns(const ppd_const_t& constraint) {
        return keyword(field_text(constraint.option1)).listed ||
               keyword(field_text(constraint.option2)).listed;
    }
    void add(const ppd_const_t& constraint, bool choice1_named, bool choice2_named);

  private:
    /// What an option keyword of a constraint, as it is spelled there, stands for.
    struct Keyword {
        bool listed = false;
        std::uint32_t first_option = kNone;
    };
    struct KeySource {
        CompiledOption* option;
        std::uint32_t choice;
    };

    void add_options(std::span<const ppd_option_t> options, std::size_t group);
    const Keyword& keyword(std::string_view spelled);
    CompiledOption* first_option(std::string_view spelled) {
        return option_at(keyword(spelled).first_option);
    }
    CompiledOption* next_option(const CompiledOption& option) {
        return option_at(option.next_of_same_keyword);
    }
    CompiledOption* option_at(std::uint32_t number) { return number == kNone ? nullptr : &options_[number]; }

    /// Calls `visit(option)` for the first option of the keyword, or for every one.
    template <typename Visit>
    void visit_options(std::string_view spelled, bool every, Visit visit);

    void collect_named_value(const ppd_const_t& constraint);
    void collect_active_values(const ppd_const_t& constraint, bool every_option);
    void collect_active_keys(const ppd_const_t& constraint, bool every_option);
    void add_value(const CompiledOption& option, std::uint32_t choice);

    ConstraintIndex& index_;
    std::vector<CompiledOption> options_;
    NameTable first_options_;       ///< folded keyword -> the first option of that keyword
    NameTable spellings_;           ///< keyword as spelled -> keywords_
    std::vector<Keyword> keywords_; ///< of the list, and of the constraints so far
    std::string_view last_spelling_;
    std::uint32_t last_keyword_ = 0;
    std::vector<x_constraints> values_; ///< of the constraint at hand
    std::vector<KeySource> keys_;       ///< of the constraint at hand
    bool told_of_far_choice_ = false;
};

ConstraintCompiler::ConstraintCompiler(const ppd_file_t& ppd, ConstraintIndex& index,
                                       std::span<const std::string> keywordList)
    : index_(index), spellings_(keywordList.size()) {
    std::size_t position = 0;
    for (const ppd_group_t& group : span_of(ppd.groups, ppd.num_groups)) {
        add_options(span_of(group.options, group.num_options), position++);
    }
    for (const std::string& listed : keywordList) {
        keyword(listed);
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
        const std::uint32_t first = first_options_.add(Name::folded(options_.back().keyword()), number);
        if (first != number) {
            options_[options_[first].last_of_same_keyword].next_of_same_keyword = number;
        }
        options_[first].last_of_same_keyword = number;
    }
}

const ConstraintCompiler::Keyword& ConstraintCompiler::keyword(std::string_view spelled) {
    // The same keyword is asked for again and again in a row.
    if (spelled != last_spelling_ || keywords_.empty()) {
        last_spelling_ = spelled;
        last_keyword_ = spellings_.add(Name::exact(spelled), static_cast<std::uint32_t>(keywords_.size()));
        if (last_keyword_ == keywords_.size()) {
            keywords_.push_back({false, first_options_.find(Name::folded(spelled)).value_or(kNone)});
        }
    }
    return keywords_[last_keyword_];
}

template <typename Visit>
void ConstraintCompiler::visit_options(std::string_view spelled, bool every, Visit visit) {
    for (CompiledOption* option = first_option(spelled); option != nullptr;
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

void ConstraintCompiler::collect_named_value(const ppd_const_t& constraint) {
    for (CompiledOption* option = first_option(field_text(constraint.option1)); option != nullptr;
         option = next_option(*option)) {
        if (const auto choice = option->find_choice(field_text(constraint.choice1))) {
            add_value(*option, *choice);
            return;
        }
    }
}

void ConstraintCompiler::collect_active_values(const ppd_const_t& constraint, bool every_option) {
    visit_options(field_text(constraint.option1), every_option, [this](CompiledOption& option) {
        for (const std::uint32_t choice : option.active_choices()) {
            add_value(option, choice);
        }
    });
}

void ConstraintCompiler::collect_active_keys(const ppd_const_t& constraint, bool every_option) {
    keys_.clear();
    visit_options(field_text(constraint.option2), every_option, [this](CompiledOption& option) {
        for (const std::uint32_t choice : option.active_choices()) {
            keys_.push_back({&option, choice});
        }
    });
}

void ConstraintCompiler::add(const ppd_const_t& constraint, bool choice1_named, bool choice2_named) {
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
        const ChoiceKey key(field_text(constraint.option2), field_text(constraint.choice2));
        for (const x_constraints value : values_) {
            index_.insert(key.text(), value);
        }
        return;
    }
    collect_active_keys(constraint, every_option);
    for (const x_constraints value : values_) {
        for (const auto& [option, choice] : keys_) {
            option->insert_into(index_, choice, value);
        }
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
        if (compiler.concerns(constraint)) {
            compiler.add(constraint, constraint.choice1[0] != '\0', constraint.choice2[0] != '\0');
        }
    }
    index->trim();
}

} // namespace specialpages

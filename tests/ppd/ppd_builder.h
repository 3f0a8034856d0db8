// Builds a ppd_file_s by hand, for what libcups never hands out: other encodings, sub-groups, missing or odd
// values. The builder owns everything that file() points to; describe the PPD first, then ask for the file.
//
//     PpdBuilder ppd;
//     ppd.group("General")
//         .option("Duplex", "None").choices({"None", "DuplexNoTumble", "DuplexTumble"})
//         .option("MediaType", "Plain", "Media").choice("Plain", "Plain paper").choice("Heavy")
//         .constraint("Duplex", "DuplexTumble", "MediaType", "Heavy")
//         .attribute("Manufacturer", "", "NV")
//         .mark("Duplex", "DuplexTumble");
//     GetChoiceIndex(ppd.file(), "MediaType", "Heavy");
#pragma once

#include <cups/array.h>
#include <cups/ppd.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <deque>
#include <initializer_list>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages::test {

/// Throws std::length_error for a text that does not fit its field, and std::logic_error for calls out of
/// order: a test with such a mistake must not pass.
class PpdBuilder {
  public:
    PpdBuilder() = default;
    PpdBuilder(const PpdBuilder&) = delete;
    PpdBuilder& operator=(const PpdBuilder&) = delete;
    ~PpdBuilder() { cupsArrayDelete(file_.marked); }

    /// Opens a top-level group; its text is its name unless given.
    PpdBuilder& group(std::string_view name, std::optional<std::string_view> text = std::nullopt) {
        groups_.push_back(make_group(name, text));
        open_ = &groups_.back();
        return *this;
    }
    /// Opens a sub-group of the last top-level group.
    PpdBuilder& subgroup(std::string_view name, std::optional<std::string_view> text = std::nullopt) {
        need(!groups_.empty(), "a sub-group needs a group");
        groups_.back().subgroups.push_back(make_group(name, text));
        open_ = &groups_.back().subgroups.back();
        return *this;
    }
    /// Adds an option to the open group; without a group, "General" is opened. The text is the keyword unless
    /// given, the default choice is empty unless given (it need not be one of the choices).
    PpdBuilder& option(std::string_view keyword, std::string_view defaultChoice = "",
                       std::optional<std::string_view> text = std::nullopt) {
        if (open_ == nullptr) {
            group("General");
        }
        need_open();
        Option added;
        put(added.record.keyword, keyword);
        put(added.record.defchoice, defaultChoice);
        put(added.record.text, text.value_or(keyword));
        open_->options.push_back(added);
        return *this;
    }
    /// Adds a choice to the last option. The text is the keyword unless given.
    PpdBuilder& choice(std::string_view keyword, std::optional<std::string_view> text = std::nullopt) {
        need_open();
        need(open_ != nullptr && !open_->options.empty(), "a choice needs an option");
        ppd_choice_t added{};
        put(added.choice, keyword);
        put(added.text, text.value_or(keyword));
        open_->options.back().choices.push_back(added);
        return *this;
    }
    PpdBuilder& choices(std::initializer_list<std::string_view> keywords) {
        for (const std::string_view keyword : keywords) {
            choice(keyword);
        }
        return *this;
    }
    /// A constraint as libcups keeps it: keywords without "*", a missing choice as "".
    PpdBuilder& constraint(std::string_view option1, std::string_view choice1, std::string_view option2,
                           std::string_view choice2) {
        need_open();
        ppd_const_t added{};
        put(added.option1, option1);
        put(added.choice1, choice1);
        put(added.option2, option2);
        put(added.choice2, choice2);
        constraints_.push_back(added);
        return *this;
    }
    /// An attribute; its value is a null pointer when `value` is empty optional.
    PpdBuilder& attribute(std::string_view name, std::string_view spec,
                          std::optional<std::string_view> value) {
        need_open();
        ppd_attr_t added{};
        put(added.name, name);
        put(added.spec, spec);
        added.value = value ? keep(*value) : nullptr;
        attributes_.push_back(added);
        return *this;
    }
    /// The encoding's name; null until it is given. libcups itself always says "UTF-8".
    PpdBuilder& lang_encoding(std::string_view name) {
        file_.lang_encoding = keep(name);
        return *this;
    }
    /// Marks a choice, in place of the one that was marked in that option. Allowed at any time.
    PpdBuilder& mark(std::string_view keyword, std::string_view choiceKeyword) {
        unmark(keyword);
        ppd_option_t& marked = find(keyword);
        for (int i = 0; i < marked.num_choices; ++i) {
            if (marked.choices[i].choice == choiceKeyword) {
                marked.choices[i].marked = 1;
                cupsArrayAdd(file_.marked, &marked.choices[i]);
                return *this;
            }
        }
        throw std::logic_error("no choice " + std::string(choiceKeyword) + " to mark");
    }
    /// Leaves the option without a marked choice. Allowed at any time.
    PpdBuilder& unmark(std::string_view keyword) {
        file();
        ppd_option_t& option = find(keyword);
        for (int i = 0; i < option.num_choices; ++i) {
            if (option.choices[i].marked != 0) {
                option.choices[i].marked = 0;
                cupsArrayRemove(file_.marked, &option.choices[i]);
            }
        }
        return *this;
    }

    /// The file, owned by the builder. From the first call on only marks and the encoding may change, so that
    /// every pointer into it stays good.
    ppd_file_t* file() {
        if (!built_) {
            built_ = true;
            build();
        }
        return &file_;
    }
    /// The option with exactly that keyword, in a group or sub-group. Throws std::logic_error when there is
    /// none.
    ppd_option_t& find(std::string_view keyword) {
        file();
        for (auto& options : optionRecords_) {
            for (ppd_option_t& option : options) {
                if (option.keyword == keyword) {
                    return option;
                }
            }
        }
        throw std::logic_error("no option " + std::string(keyword));
    }

  private:
    struct Option {
        ppd_option_t record{};
        std::vector<ppd_choice_t> choices;
    };
    struct Group {
        ppd_group_t record{};
        std::deque<Option> options;
        std::deque<Group> subgroups;
    };

    static void need(bool holds, const char* what) {
        if (!holds) {
            throw std::logic_error(what);
        }
    }
    void need_open() const { need(!built_, "the file is built already"); }

    template <std::size_t Size>
    static void put(char (&field)[Size], std::string_view text) {
        if (text.size() >= Size) {
            throw std::length_error("too long for its field: " + std::string(text));
        }
        std::fill(std::copy(text.begin(), text.end(), field), field + Size, '\0');
    }
    char* keep(std::string_view text) {
        texts_.emplace_back(text);
        return texts_.back().data();
    }
    Group make_group(std::string_view name, std::optional<std::string_view> text) const {
        need_open();
        Group made;
        put(made.record.name, name);
        put(made.record.text, text.value_or(name));
        return made;
    }

    template <typename Record>
    static void point_to(int& count, Record*& first, std::vector<Record>& records) {
        count = static_cast<int>(records.size());
        first = records.empty() ? nullptr : records.data();
    }
    void build_options(Group& group) {
        auto& records = optionRecords_.emplace_back();
        records.reserve(group.options.size());
        for (Option& option : group.options) {
            point_to(option.record.num_choices, option.record.choices, option.choices);
            records.push_back(option.record);
        }
        for (ppd_option_t& record : records) {
            for (int i = 0; i < record.num_choices; ++i) {
                record.choices[i].option = &record;
            }
        }
        point_to(group.record.num_options, group.record.options, records);
    }
    ppd_group_t build_group(Group& group) {
        build_options(group);
        if (!group.subgroups.empty()) {
            std::vector<ppd_group_t> built;
            built.reserve(group.subgroups.size());
            for (Group& inner : group.subgroups) {
                built.push_back(build_group(inner));
            }
            auto& records = groupRecords_.emplace_back(std::move(built));
            point_to(group.record.num_subgroups, group.record.subgroups, records);
        }
        return group.record;
    }
    void build() {
        std::vector<ppd_group_t> built;
        built.reserve(groups_.size());
        for (Group& each : groups_) {
            built.push_back(build_group(each));
        }
        auto& records = groupRecords_.emplace_back(std::move(built));
        point_to(file_.num_groups, file_.groups, records);
        point_to(file_.num_consts, file_.consts, constraints_);
        attributePointers_.reserve(attributes_.size());
        for (ppd_attr_t& each : attributes_) {
            attributePointers_.push_back(&each);
        }
        point_to(file_.num_attrs, file_.attrs, attributePointers_);
        file_.marked = cupsArrayNew(by_option, nullptr);
    }
    /// The order that libcups keeps its marked choices in, so that its lookup finds them.
    static int by_option(void* left, void* right, void* /*unused*/) {
        return std::strcmp(static_cast<ppd_choice_t*>(left)->option->keyword,
                           static_cast<ppd_choice_t*>(right)->option->keyword);
    }

    ppd_file_t file_{};
    bool built_ = false;
    std::deque<Group> groups_;
    Group* open_ = nullptr;
    std::vector<ppd_const_t> constraints_;
    std::deque<ppd_attr_t> attributes_;
    std::vector<ppd_attr_t*> attributePointers_;
    std::deque<std::vector<ppd_option_t>> optionRecords_;
    std::deque<std::vector<ppd_group_t>> groupRecords_;
    std::deque<std::string> texts_;
};

} // namespace specialpages::test

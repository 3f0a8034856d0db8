// The index beside libcups' own conflict test, on random PPDs. libcups reads a constraint without direction,
// by the marks as they would be after the choice is marked, and knows names in any case. Where the two
// differ, one of the rules below must say so; each rule is stated in terms of the constraint, not of the
// index.
#include "open_ppd.h"
#include "ppd/choice_conflict.h"
#include "ppd/constraint_index.h"
#include "ppd/name_lookup.h"
#include "ppd/ppd_access.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {
namespace {

struct Option {
    std::string name;
    std::vector<std::string> choices;
    std::optional<std::size_t> marked;
};

struct Half {
    std::string option; ///< as the constraint spells it
    std::string choice; ///< empty for any that does something
};

struct Constraint {
    Half first;
    Half second;
};

struct Printer {
    std::vector<Option> options;
    std::size_t second_group = 0; ///< the option that opens the second group
    std::vector<Constraint> constraints;
    std::vector<std::string> keywords;
};

class Generator {
  public:
    explicit Generator(unsigned seed) : random_(seed) {}

    Printer printer() {
        Printer made;
        const std::size_t options = 2 + below(5);
        for (std::size_t i = 0; i < options; ++i) {
            made.options.push_back(option(i));
            if (below(8) != 0) {
                made.keywords.push_back(made.options.back().name);
            }
        }
        made.second_group = 1 + below(options - 1);
        const std::size_t constraints = 1 + below(12);
        for (std::size_t i = 0; i < constraints; ++i) {
            made.constraints.push_back({half(made), half(made)});
        }
        return made;
    }

  private:
    std::size_t below(std::size_t bound) { return random_() % bound; }

    Option option(std::size_t number) {
        std::vector<std::string> pool = {"None",  "off",  "FALSE", "True",    "Red",
                                         "Green", "Blue", "On",    "Nonesuch"};
        Option made{"NVItem" + std::string(1, static_cast<char>('a' + number)), {}, std::nullopt};
        const std::size_t choices = 1 + below(5);
        for (std::size_t i = 0; i < choices; ++i) {
            const std::size_t taken = below(pool.size());
            made.choices.push_back(pool[taken]);
            pool.erase(pool.begin() + static_cast<std::ptrdiff_t>(taken));
        }
        if (below(5) != 0) {
            made.marked = below(choices);
        }
        return made;
    }
    std::string any_case(std::string text) {
        if (below(4) == 0) {
            for (char& c : text) {
                const bool upper = c >= 'A' && c <= 'Z';
                const bool lower = c >= 'a' && c <= 'z';
                if ((upper || lower) && below(2) == 0) {
                    c = static_cast<char>(c ^ 0x20);
                }
            }
        }
        return text;
    }
    Half half(const Printer& printer) {
        if (below(20) == 0) {
            return {"NVMissing", below(2) == 0 ? "Red" : ""};
        }
        const Option& option = printer.options[below(printer.options.size())];
        if (below(3) == 0) {
            return {any_case(option.name), ""};
        }
        const std::string choice = below(15) == 0 ? "Missing" : option.choices[below(option.choices.size())];
        return {any_case(option.name), any_case(choice)};
    }

    std::mt19937 random_;
};

std::string half_text(const Half& half) {
    return " *" + half.option + (half.choice.empty() ? "" : " " + half.choice);
}

std::string ppd_text(const Printer& printer) {
    std::string text =
        "*PPD-Adobe: \"4.3\"\n*FormatVersion: \"4.3\"\n*FileVersion: \"1.0\"\n"
        "*LanguageVersion: English\n*LanguageEncoding: ISOLatin1\n*PCFileName: \"RANDOM.PPD\"\n"
        "*Manufacturer: \"NV\"\n*Product: \"(Random)\"\n*ModelName: \"Random\"\n"
        "*ShortNickName: \"Random\"\n*NickName: \"Random\"\n*PSVersion: \"(3010.000) 0\"\n"
        "*OpenGroup: First/First\n";
    for (std::size_t i = 0; i < printer.options.size(); ++i) {
        const Option& option = printer.options[i];
        if (i == printer.second_group) {
            text += "*CloseGroup: First\n*OpenGroup: Second/Second\n";
        }
        text += "*OpenUI *" + option.name + "/Item: PickOne\n*Default" + option.name + ": " +
                option.choices.front() + "\n";
        for (const std::string& choice : option.choices) {
            text += "*" + option.name + " " + choice + "/Choice: \"\"\n";
        }
        text += "*CloseUI: *" + option.name + "\n";
    }
    text += "*CloseGroup: Second\n";
    bool for_the_user = true;
    for (const Constraint& each : printer.constraints) {
        text += for_the_user ? "*UIConstraints:" : "*NonUIConstraints:";
        text += half_text(each.first) + half_text(each.second) + "\n";
        for_the_user = !for_the_user;
    }
    return text;
}

// The readings.

bool same(std::string_view left, std::string_view right) {
    return equal_ignoring_case(left, right);
}

bool is_off(std::string_view choice) {
    return same(choice, "None") || same(choice, "Off") || same(choice, "False");
}

const Option* find(const Printer& printer, std::string_view name) {
    const auto found = std::find_if(printer.options.begin(), printer.options.end(),
                                    [name](const Option& option) { return same(option.name, name); });
    return found == printer.options.end() ? nullptr : &*found;
}

bool exists(const Printer& printer, const Half& half) {
    const Option* option = find(printer, half.option);
    return option != nullptr &&
           (half.choice.empty() ||
            std::any_of(option->choices.begin(), option->choices.end(),
                        [&half](const std::string& each) { return same(each, half.choice); }));
}

/// One question: is this choice forbidden?
struct Question {
    const Option* option;
    std::size_t choice;
};

std::optional<std::size_t> marked_after(const Option& option, const Question& question) {
    return &option == question.option ? std::optional(question.choice) : option.marked;
}

/// libcups' reading of half a constraint: the marked choice is the named one, or one that is not off.
bool is_on(const Option& option, const Half& half, std::optional<std::size_t> marked) {
    return marked && (half.choice.empty() ? !is_off(option.choices[*marked])
                                          : same(option.choices[*marked], half.choice));
}

/// Whether libcups finds this constraint broken once the choice is marked, and its option concerned.
bool broken_for_libcups(const Printer& printer, const Constraint& constraint, const Question& question) {
    if (!exists(printer, constraint.first) || !exists(printer, constraint.second)) {
        return false;
    }
    const Option& first = *find(printer, constraint.first.option);
    const Option& second = *find(printer, constraint.second.option);
    return (&first == question.option || &second == question.option) &&
           is_on(first, constraint.first, marked_after(first, question)) &&
           is_on(second, constraint.second, marked_after(second, question));
}

// The rules by which the index may say no where libcups says yes, ...

bool listed(const Printer& printer, const Half& half) {
    return std::find(printer.keywords.begin(), printer.keywords.end(), half.option) != printer.keywords.end();
}
bool none_of_its_options_is_listed(const Printer& printer, const Constraint& constraint,
                                   const Question& /*unused*/) {
    return !listed(printer, constraint.first) && !listed(printer, constraint.second);
}
bool the_choice_is_not_its_second_half(const Printer& printer, const Constraint& constraint,
                                       const Question& question) {
    const Half& second = constraint.second;
    const std::string& choice = question.option->choices[question.choice];
    return find(printer, second.option) != question.option ||
           (!second.choice.empty() && !same(second.choice, choice));
}
bool its_second_half_is_spelled_otherwise(const Printer& /*unused*/, const Constraint& constraint,
                                          const Question& question) {
    const Half& second = constraint.second;
    return !second.choice.empty() && same(second.option, question.option->name) &&
           same(second.choice, question.option->choices[question.choice]) &&
           (second.option != question.option->name ||
            second.choice != question.option->choices[question.choice]);
}
bool the_choice_is_a_first_one_that_it_does_not_name(const Printer& /*unused*/, const Constraint& constraint,
                                                     const Question& question) {
    return constraint.second.choice.empty() && question.choice == 0;
}
bool the_mark_is_a_first_choice_that_it_does_not_name(const Printer& printer, const Constraint& constraint,
                                                      const Question& /*unused*/) {
    const Option* first = find(printer, constraint.first.option);
    return constraint.first.choice.empty() && first != nullptr && first->marked == 0U;
}
/// Both halves are of the option asked about: libcups looks after the new mark is set, the index before.
bool its_first_half_is_of_the_same_option(const Printer& printer, const Constraint& constraint,
                                          const Question& question) {
    return find(printer, constraint.first.option) == question.option;
}
/// A half without a choice never means one that is off, whichever option is asked about.
bool the_choice_is_off(const Printer& /*unused*/, const Constraint& constraint, const Question& question) {
    return constraint.second.choice.empty() && is_off(question.option->choices[question.choice]);
}

using Rule = bool (*)(const Printer&, const Constraint&, const Question&);

const std::map<std::string, Rule> kNoInsteadOfYes = {
    {"not listed", none_of_its_options_is_listed},
    {"direction", the_choice_is_not_its_second_half},
    {"spelling", its_second_half_is_spelled_otherwise},
    {"first choice asked", the_choice_is_a_first_one_that_it_does_not_name},
    {"first choice marked", the_mark_is_a_first_choice_that_it_does_not_name},
    {"same option", its_first_half_is_of_the_same_option},
};

/// What the index must answer: the constraint's first half stands marked and no rule speaks against it.
bool forbids(const Printer& printer, const Constraint& constraint, const Question& question) {
    const Option* first = find(printer, constraint.first.option);
    return first != nullptr && is_on(*first, constraint.first, first->marked) &&
           !none_of_its_options_is_listed(printer, constraint, question) &&
           !the_choice_is_not_its_second_half(printer, constraint, question) &&
           !its_second_half_is_spelled_otherwise(printer, constraint, question) &&
           !the_choice_is_a_first_one_that_it_does_not_name(printer, constraint, question) &&
           !the_mark_is_a_first_choice_that_it_does_not_name(printer, constraint, question) &&
           !the_choice_is_off(printer, constraint, question);
}

/// Both programs on one PPD; counts which rules were needed.
class Comparison {
  public:
    Comparison(const Printer& printer, const std::filesystem::path& file) : printer_(printer), file_(file) {
        const test::OpenPpd ppd = marked_ppd();
        compile_constraints(ppd.get(), &index_, printer_.keywords);
    }

    void run(std::map<std::string, int>& used) {
        for (const Option& option : printer_.options) {
            const std::vector<bool> index = ask_index(option);
            const std::vector<bool> libcups = ask_libcups(option);
            for (std::size_t choice = 0; choice < option.choices.size(); ++choice) {
                check({&option, choice}, index[choice], libcups[choice], used);
            }
        }
    }

  private:
    test::OpenPpd marked_ppd() const {
        test::OpenPpd ppd = test::open_ppd(file_);
        for (const Option& option : printer_.options) {
            if (option.marked) {
                test::mark_option(ppd.get(), option.name.c_str(), option.choices[*option.marked].c_str());
            }
        }
        return ppd;
    }
    std::vector<bool> ask_index(const Option& option) const {
        const test::OpenPpd ppd = marked_ppd();
        std::vector<bool> answers;
        for (const std::string& choice : option.choices) {
            answers.push_back(IsPPDChoiceConflicted(ppd.get(), &index_, option.name, choice));
        }
        return answers;
    }
    std::vector<bool> ask_libcups(const Option& option) const {
        const test::OpenPpd ppd = marked_ppd();
        std::vector<bool> answers;
        for (const std::string& choice : option.choices) {
            test::mark_option(ppd.get(), option.name.c_str(), choice.c_str());
            answers.push_back(test::is_flagged(ppd.get(), option.name.c_str()));
        }
        return answers;
    }

    void check(const Question& question, bool index, bool libcups, std::map<std::string, int>& used) const {
        const auto any = [&](auto reading) {
            return std::any_of(printer_.constraints.begin(), printer_.constraints.end(),
                               [&](const Constraint& each) { return reading(printer_, each, question); });
        };
        const std::string name = question.option->name + ":" + question.option->choices[question.choice];
        ASSERT_EQ(libcups, any(broken_for_libcups)) << "libcups is read wrongly at " << name;
        ASSERT_EQ(index, any(forbids)) << "the index answers " << name << " against its rules";
        for (const Constraint& constraint : printer_.constraints) {
            const bool broken = broken_for_libcups(printer_, constraint, question);
            const bool forbidden = forbids(printer_, constraint, question);
            if (broken && !forbidden) {
                explain_no(constraint, question, used);
            } else if (forbidden && !broken) {
                ASSERT_TRUE(its_first_half_is_of_the_same_option(printer_, constraint, question)) << name;
                ++used["same option, yes"];
            } else if (forbidden) {
                ++used["both"];
            }
        }
    }
    void explain_no(const Constraint& constraint, const Question& question,
                    std::map<std::string, int>& used) const {
        bool explained = false;
        for (const auto& [rule, holds] : kNoInsteadOfYes) {
            if (holds(printer_, constraint, question)) {
                explained = true;
                ++used[rule];
            }
        }
        ASSERT_TRUE(explained) << "no rule keeps" << half_text(constraint.first)
                               << half_text(constraint.second) << " from forbidding "
                               << question.option->choices[question.choice];
    }

    const Printer& printer_;
    std::filesystem::path file_;
    ConstraintIndex index_;
};

TEST(ConstraintsBesideLibcups, DifferOnlyWhereARuleSaysSo) {
    constexpr unsigned kPrinters = 400;
    const test::TemporaryFolder folder;
    std::map<std::string, int> used;
    for (unsigned seed = 0; seed < kPrinters; ++seed) {
        const Printer printer = Generator(seed).printer();
        const std::string text = ppd_text(printer);
        const auto file = folder.write("random.ppd", text);
        ASSERT_NO_FATAL_FAILURE(Comparison(printer, file).run(used)) << "seed " << seed << "\n" << text;
    }
    // Each rule was needed, and the two agree on conflicts too.
    for (const auto& [rule, holds] : kNoInsteadOfYes) {
        EXPECT_GT(used[rule], 0) << rule;
    }
    EXPECT_GT(used["same option, yes"], 0);
    EXPECT_GT(used["both"], 100);
}

} // namespace
} // namespace specialpages

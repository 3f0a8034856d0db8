// The conflict of an item beside a slow re-statement that walks option by option, record by record, and asks
// the index anew each time, on random PPDs and random situations.
#include "paper/paper_conflicts.h"
#include "paper/paper_ppd.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>

namespace specialpages::test {
namespace {

using rc::gen::inRange;

/// Options of the random printer; the last one stands in a second group and has a name that is there already.
const std::vector<std::string> kOptions{
    "PageSize",          "NVMediaColor", "MediaType", "NVRegionalPaperSetting",
    "NVSwitchPaperSize", "Duplex",       "NVFold",    "MediaType"};
const std::vector<std::string> kChoices{"A", "B", "C", "NULL", "None", "DuplexTumble", "DuplexNoTumble"};

struct Random {
    PpdBuilder ppd;
    std::unique_ptr<CompiledPpd> compiled;
    std::vector<std::string> optionKeys{"PageSize", "NVMediaColor", "MediaType"};
    std::vector<std::string> selections;
    std::vector<SelectedPaper> records;
    PaperSituation situation;
};

const std::string& one_of(const std::vector<std::string>& texts) {
    return texts[*inRange<std::size_t>(0, texts.size())];
}

void describe_random_ppd(Random& random) {
    for (std::size_t i = 0; i < kOptions.size(); ++i) {
        if (i + 1 == kOptions.size()) {
            random.ppd.group("Second");
        }
        random.ppd.option(kOptions[i]);
        for (const std::string& choice : kChoices) {
            if (*inRange(0, 4) != 0) {
                random.ppd.choice(choice);
            }
        }
    }
    const int constraints = *inRange(20, 80);
    for (int i = 0; i < constraints; ++i) {
        random.ppd.constraint(one_of(kOptions), *inRange(0, 6) == 0 ? "" : one_of(kChoices), one_of(kOptions),
                              *inRange(0, 6) == 0 ? "" : one_of(kChoices));
    }
    random.compiled = std::make_unique<CompiledPpd>(random.ppd);
}

void describe_random_situation(Random& random) {
    for (const char* option : {"NVFold", "NVSwitchPaperSize", "NVRegionalPaperSetting", "MediaType"}) {
        if (*inRange(0, 3) != 0) {
            random.optionKeys.emplace_back(option);
        }
    }
    const std::size_t count = random.optionKeys.size() - *inRange<std::size_t>(0, 2);
    for (std::size_t i = 0; i < count; ++i) {
        const int kind = *inRange(0, 5);
        random.selections.push_back(kind < 2 ? "NULL" : kind == 2 ? "" : one_of(kChoices));
    }
    for (auto& choices : random.situation.menuChoices) {
        const std::size_t items = *inRange<std::size_t>(0, 5);
        for (std::size_t i = 0; i < items; ++i) {
            choices.emplace_back(one_of(kChoices));
        }
    }
    const int records = *inRange(0, 6);
    for (int i = 0; i < records; ++i) {
        random.records.push_back({*inRange(-1, 6), *inRange(-1, 6), *inRange(-1, 6), *inRange(-1, 6)});
    }
    const int sidedness = *inRange(0, 4);
    if (sidedness > 0) {
        const DuplexChoiceTable table = sidedness == 1
                                            ? DuplexChoiceTable(twoSidePrintGetDuplexChoiceArray)
                                            : DuplexChoiceTable(printingOptionGetDuplexChoiceArray);
        random.situation.sidedness =
            Sidedness{sidedness == 3 ? std::nullopt : duplex_choices_at(table, *inRange(-1, 5)), table};
    }
    random.situation.ppd = random.ppd.file();
    random.situation.index = random.compiled->index.get();
    random.situation.keys = paper_keys();
    random.situation.optionKeys = random.optionKeys;
    random.situation.selections = random.selections;
    random.situation.records = random.records;
}

/// The re-statement. It knows nothing of ranks and remembers nothing.
class Slow {
  public:
    Slow(const PaperSituation& situation, std::string_view key, bool isNoChangeChoice)
        : s(situation), key_(key), noChange_(isNoChangeChoice) {}

    std::string reason() {
        for (std::size_t i = 0; i < s.optionKeys.size() && i < s.selections.size(); ++i) {
            std::string found = at_position(s.optionKeys[i], s.selections[i]);
            if (!found.empty()) {
                return found;
            }
        }
        return sidedness();
    }

  private:
    std::string test(std::string_view option, std::string_view choice) {
        return isChoiceConflicted(s.ppd, s.index, key_, option, choice)
                   ? std::string(ChoiceKey(option, choice).text())
                   : std::string();
    }
    std::string at_position(const std::string& option, const std::string& selected) {
        if (selected != "NULL") {
            const bool gated = option == "PageSize" || option == "MediaType" ||
                               option == "NVRegionalPaperSetting" || option == "NVSwitchPaperSize";
            return gated ? test(option, selected) : std::string();
        }
        if (noChange_) {
            return {};
        }
        std::string choice = selected;
        for (const SelectedPaper& record : s.records) {
            bool there = true;
            const auto look_up = [&](std::size_t menu, std::int32_t index) {
                there = index >= 0 && index < static_cast<std::int32_t>(s.menuChoices[menu].size());
                choice = there ? s.menuChoices[menu][static_cast<std::size_t>(index)] : std::string_view();
            };
            if (option == "PageSize") {
                look_up(0, record.size);
            } else if (option == "MediaType") {
                look_up(2, record.type);
            } else if (option == "NVMediaColor") {
                look_up(1, record.color);
            }
            if (there && !test(option, choice).empty()) {
                return test(option, choice);
            }
        }
        return {};
    }
    std::string first_of(DuplexChoices choices) {
        for (const char* choice : choices) {
            if (!test("Duplex", choice).empty()) {
                return test("Duplex", choice);
            }
        }
        return {};
    }
    std::string sidedness() {
        if (!s.sidedness || !s.sidedness->current || s.sidedness->current->empty()) {
            return {};
        }
        if (std::string(s.sidedness->current->front()) != "NULL") {
            return first_of(*s.sidedness->current);
        }
        for (const SelectedPaper& record : s.records) {
            const bool there = record.twoSidePrint >= 0 &&
                               record.twoSidePrint < static_cast<int>(s.sidedness->byRecord.size());
            if (!noChange_ && there) {
                std::string found =
                    first_of(s.sidedness->byRecord[static_cast<std::size_t>(record.twoSidePrint)]);
                if (!found.empty()) {
                    return found;
                }
            }
        }
        return {};
    }

    const PaperSituation& s;
    std::string_view key_;
    bool noChange_;
};

RC_GTEST_PROP(PaperConflictsProperty, EveryItemHasTheReasonThatTheSlowWalkFinds, ()) {
    Random random;
    describe_random_ppd(random);
    describe_random_situation(random);
    int conflicts = 0;
    for (const bool noChange : {false, true}) {
        const PaperConflicts fast(random.situation, noChange);
        for (const std::string& option : {std::string("PageSize"), std::string("NVMediaColor"),
                                          std::string("MediaType"), std::string("Missing")}) {
            for (const std::string& choice : kChoices) {
                const std::string slow =
                    Slow(random.situation, ChoiceKey(option, choice).text(), noChange).reason();
                RC_ASSERT(named(fast.reason(option, choice)) == slow);
                conflicts += slow.empty() ? 0 : 1;
            }
        }
    }
    RC_CLASSIFY(conflicts > 0, "with conflicts");
    RC_CLASSIFY(!random.records.empty(), "with records");
}

} // namespace
} // namespace specialpages::test

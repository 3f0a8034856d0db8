// Asking whether an item conflicts allocates nothing, however many items are asked.
#include "paper/allocations.h"
#include "paper/current_selections.h"
#include "paper/paper_conflicts.h"
#include "paper/paper_ppd.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <new>
#include <string>
#include <vector>

namespace specialpages::test {
namespace {

/// How many allocations the call makes.
template <typename Call>
std::size_t allocations_of(Call call) {
    const std::size_t before = allocations();
    call();
    return allocations() - before;
}

/// A printer with the longest names that a PPD may have, and paper chosen that forbids some of its items.
class ItemConflictAllocations : public ::testing::Test {
  protected:
    ItemConflictAllocations() {
        describe_paper(ppd)
            .option(longOption, "None")
            .choices({"None", longChoice})
            .constraint("PageSize", "A3", "MediaType", "Thick")
            .constraint("Duplex", "DuplexTumble", "MediaType", "Transparency")
            .constraint("NVMediaColor", "Blue", "PageSize", "Letter")
            .constraint("PageSize", "A3", longOption, longChoice);
        compiled = std::make_unique<CompiledPpd>(ppd);
        optionKeys = current_selection_keys(ppd.file(), paper_keys(), nxPPDKeywordList());
        selections =
            current_selections(ppd.file(), paper_keys(), nxPPDKeywordList(), {"A3", "NULL", "Stationary"});
        situation.ppd = ppd.file();
        situation.index = compiled->index.get();
        situation.keys = paper_keys();
        situation.optionKeys = optionKeys;
        situation.selections = selections;
        situation.menuChoices = {{{"A3", "A4", "Letter", "Custom"},
                                  {"White", "Blue"},
                                  {"Stationary", "Thick", "TabbedPaper1", "Transparency", "TabbedPaper2"}}};
        situation.records = records;
    }

    const std::string longOption = std::string(38, 'O');
    const std::string longChoice = std::string(40, 'C');
    PpdBuilder ppd;
    std::unique_ptr<CompiledPpd> compiled;
    std::vector<std::string> optionKeys;
    std::vector<std::string> selections;
    std::vector<SelectedPaper> records{{0, 0, 0, 0}, {0, 1, 0, 0}};
    PaperSituation situation;
};

TEST_F(ItemConflictAllocations, AllocationsAreCounted) {
    EXPECT_EQ(allocations_of([] { ::operator delete(::operator new(64)); }), 1U);
    EXPECT_GT(allocations_of([this] { const PaperConflicts whole(situation); }), 0U)
        << "the rest is put together once";
}

TEST_F(ItemConflictAllocations, NoItemAllocates) {
    const PaperConflicts conflicts(situation);
    const std::size_t before = allocations();
    int forbidden = 0;
    int asked = 0;
    for (int i = 0; i < ppd.file()->num_groups; ++i) {
        const ppd_group_t& group = ppd.file()->groups[i];
        for (int j = 0; j < group.num_options; ++j) {
            const ppd_option_t& option = group.options[j];
            for (int k = 0; k < option.num_choices; ++k) {
                const ConflictingChoice reason = conflicts.reason(option.keyword, option.choices[k].choice);
                forbidden += reason.choice != nullptr ? 1 : 0;
                ++asked;
            }
        }
    }
    EXPECT_EQ(allocations() - before, 0U);
    EXPECT_EQ(asked, 17);
    EXPECT_EQ(forbidden, 3) << "thick paper and the long choice beside A3, Letter beside a blue record";
}

} // namespace
} // namespace specialpages::test

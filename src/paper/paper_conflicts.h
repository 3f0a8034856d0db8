// Whether an item of a paper menu conflicts with the rest of what is chosen, and which choice forbids it. The
// rest is: the paper of the same menu, two settings that the PPD has marked, the sidedness of the page, and,
// where one of these says "No Change", the records that the change would touch.
//
// The rest is put together once for a whole menu; each item then costs one look into the constraint index and
// allocates nothing.
#pragma once

#include "paper/duplex_choices.h"
#include "paper/paper_choice.h"
#include "ppd/choice_conflict.h"
#include "ppd/constraint_index.h"
#include "records/SpecialPageRecord.h"

#include <cups/ppd.h>

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace specialpages {

/// What counts of a record that a change would touch: its paper's indexes and its position in the sidedness
/// list.
struct SelectedPaper {
    std::int32_t size = kNoChange;
    std::int32_t color = kNoChange;
    std::int32_t type = kNoChange;
    std::int32_t twoSidePrint = 0;
};

/// The same of each record.
std::vector<SelectedPaper> selected_papers(const RecordList& records);

/// The keywords behind a menu's items, by the index with which an item is looked up (position - 1).
using PaperMenuChoices = std::array<std::vector<std::string_view>, 3>;

/// The sidedness that stands beside a paper menu.
struct Sidedness {
    std::optional<DuplexChoices> current; ///< of the selected item; empty: nothing to test
    DuplexChoiceTable byRecord;           ///< by a record's twoSidePrint
};

/// Everything that an item is tested against. All of it is borrowed; PPD and index may be null, and then
/// nothing conflicts.
struct PaperSituation {
    const ppd_file_t* ppd = nullptr;
    const ConstraintIndex* index = nullptr;
    PaperOptionKeys keys;                    ///< how the list names size, color and type
    std::span<const std::string> optionKeys; ///< parallel to `selections`; the shorter one counts
    std::span<const std::string> selections; ///< kNullChoice for "No Change"; an empty text forbids nothing
    PaperMenuChoices menuChoices;            ///< by which records' indexes are read
    std::span<const SelectedPaper> records;
    std::optional<Sidedness> sidedness;
};

/// The answers for one situation. Marks and index must not change while it lives.
///
/// The walk that decides which choice is the reason: option keys in order, each with its selection, or for
/// "No Change" with the records in order; then the sidedness. Only size, type, "NVRegionalPaperSetting" and
/// "NVSwitchPaperSize" are tested with their selection: a color forbids no size or type, unless it is a
/// record's.
class PaperConflicts {
  public:
    /// With `isNoChangeChoice` (the item itself means "No Change") records are not asked.
    explicit PaperConflicts(const PaperSituation& situation, bool isNoChangeChoice = false);

    /// The choice that forbids "option:choice", the first one of the walk; both pointers are null when the
    /// item is allowed.
    ConflictingChoice reason(std::string_view option, std::string_view choice) const {
        return reason(ChoiceKey(option, choice).text());
    }
    ConflictingChoice reason(std::string_view key) const;

  private:
    using Rank = std::uint32_t;
    static constexpr Rank kUntested = 0xFFFFFFFF;

    void number_choices(const ppd_file_t& ppd);
    void test_records(const PaperSituation& situation, std::string_view option);
    void test_sidedness(const PaperSituation& situation, bool isNoChangeChoice);
    /// The choices of that name take the next rank, unless they have one.
    void test(std::string_view option, std::string_view choice);
    Rank rank_at(x_constraints place) const;

    const ppd_file_t* ppd_;
    const ConstraintIndex* index_;
    Rank next_ = 0;
    std::vector<std::uint32_t>
        firstOptions_; ///< by group: its first option; at the end the number of options
    std::vector<std::uint32_t>
        firstChoices_; ///< by option: its first choice; at the end the number of choices
    std::vector<const ppd_option_t*> options_;
    std::vector<Rank> ranks_; ///< by choice: when the walk tests it
};

} // namespace specialpages

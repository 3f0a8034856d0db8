// The half of SPSubMenuListCtrlEMF that shows which of its items are allowed.
#include "controls/ControlPanel.h"
#include "paper/SPSubMenuListCtrlEMF.h"
#include "paper/SidednessList.h"
#include "paper/conflict_tips.h"
#include "paper/current_selections.h"
#include "paper/interposer_tray.h"
#include "platform/foundation/numbers.h"
#include "platform/toolkit/PopUpButton.h"
#include "ppd/cups_ppd.h"
#include "ppd/ppd_access.h"
#include "records/SPSummaryScrollViewCtrl.h"

#include <memory>

namespace specialpages {

namespace {

/// The keyword behind an item, borrowed from it; empty when it has none.
std::string_view choice_of(const platform::MenuItem& item) {
    const std::optional<std::string>& object = item.representedObject();
    return object ? std::string_view(*object) : std::string_view();
}

} // namespace

/// What one re-check asks for all items, with what it borrows.
struct SPSubMenuListCtrlEMF::Surroundings {
    ppd_file_s* ppd = nullptr;
    std::vector<SelectedPaper> records;
    std::shared_ptr<ConstraintIndex> index;
    PaperSituation situation;
    std::unique_ptr<PaperConflicts> conflicts; ///< for items that are a choice
};

void SPSubMenuListCtrlEMF::updateSelectionArray() {
    std::array<std::string, 3> choices;
    for (const PaperPart part : kPaperParts) {
        const std::int32_t index = paper.of(part);
        choices[part_index(part)] =
            index < 0
                ? kNullChoice
                : getSelectedMenuItemChoice(static_cast<std::int64_t>(part), index).value_or(std::string());
    }
    currentSelectionArray = current_selections(currentPPD(), keys, nxPPDKeywordList(), choices);
}

std::int32_t SPSubMenuListCtrlEMF::UpdateConflictsPanelControlFromPPD(ppd_file_s* ppd) {
    UpdateSelfConflictsFromPPD(ppd);
    return 0;
}

SidednessList* SPSubMenuListCtrlEMF::sidednessList() const {
    return !duplexControlIDPtr || ctrlParentPanelPtr == nullptr
               ? nullptr
               : dynamic_cast<SidednessList*>(ctrlParentPanelPtr->GetPanelControl(*duplexControlIDPtr));
}

PaperMenuChoices SPSubMenuListCtrlEMF::menuChoices() const {
    PaperMenuChoices all;
    for (const PaperPart part : kPaperParts) {
        const platform::Menu* menu = getSubMenuRef(static_cast<std::int64_t>(part));
        for (std::size_t i = 1; menu != nullptr && i < menu->numberOfItems(); ++i) {
            all[part_index(part)].push_back(choice_of(*menu->itemAtIndex(static_cast<std::int64_t>(i))));
        }
    }
    return all;
}

SPSubMenuListCtrlEMF::Surroundings SPSubMenuListCtrlEMF::surroundings(ppd_file_s* ppd) const {
    Surroundings around;
    around.ppd = ppd;
    SPSummaryScrollViewCtrl* list = summary();
    const auto selected = list == nullptr ? std::nullopt : list->getArrayOfCurrentSelectedRecords();
    if (selected) {
        around.records = selected_papers(*selected);
    }
    around.index = ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->Getxppd();
    PaperSituation& situation = around.situation;
    situation.ppd = ppd;
    situation.index = around.index.get();
    situation.keys = keys;
    situation.optionKeys = ppdKeyArray;
    situation.selections = currentSelectionArray;
    situation.records = around.records;
    if (!around.records.empty()) {
        situation.menuChoices = menuChoices();
    }
    if (const SidednessList* sidedness = sidednessList()) {
        situation.sidedness = Sidedness{sidedness->getCurrentDuplexArray(), sidedness->duplexChoiceTable()};
    }
    around.conflicts = std::make_unique<PaperConflicts>(situation);
    return around;
}

bool SPSubMenuListCtrlEMF::isMenuItemConflicted(std::string_view key, ppd_file_s* withPPD,
                                                bool isNoChangeChoice) {
    const Surroundings around = surroundings(withPPD);
    return PaperConflicts(around.situation, isNoChangeChoice).reason(key).choice != nullptr;
}

void SPSubMenuListCtrlEMF::UpdateSelfConflictsFromPPD(ppd_file_s* ppd) {
    const Surroundings around = surroundings(ppd);
    ConflictTips tips(ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPDEBundleRef());
    for (const PaperPart part : kPaperParts) {
        updateSubMenuConflicts(part, around, tips);
    }
    const ConflictingChoice barring = interposer_conflict(currentPPD());
    platform::MenuItem* interposer = topItem(kInterposerPosition);
    if (barring.choice != nullptr && interposer != nullptr) {
        tips.show(*interposer, barring);
    }
}

void SPSubMenuListCtrlEMF::updateSubMenuConflicts(PaperPart part, const Surroundings& around,
                                                  ConflictTips& tips) {
    const platform::Menu* menu = getSubMenuRef(static_cast<std::int64_t>(part));
    const auto count = menu == nullptr ? 0 : static_cast<std::int64_t>(menu->numberOfItems());
    for (std::int64_t position = 1; position < count; ++position) {
        platform::MenuItem& item = *menu->itemAtIndex(position);
        const std::string_view choice = choice_of(item);
        if (choice == kNoChangeKey) {
            tips.show(item, noChangeConflict(part, around));
        } else if (part == PaperPart::size && position == count - 1) {
            // Tab stock alone decides over the custom size; constraints have no say.
            tips.show(item, !doTabStockSetCheckByIndex(paper.type), tabStockReason(around.ppd));
        } else {
            tips.show(item, around.conflicts->reason(keys.of(part), choice));
        }
    }
}

ConflictingChoice SPSubMenuListCtrlEMF::noChangeConflict(PaperPart part, const Surroundings& around) const {
    const platform::Menu* menu = getSubMenuRef(static_cast<std::int64_t>(part));
    const PaperConflicts conflicts(around.situation, true);
    for (const std::string& entry : selectionArrays[part_index(part)]) {
        // The entry is taken for a position here, not for an index.
        const platform::MenuItem* item = menu->itemAtIndex(platform::int_value(entry));
        const ConflictingChoice found =
            item == nullptr ? ConflictingChoice{} : conflicts.reason(keys.of(part), choice_of(*item));
        if (found.choice != nullptr) {
            return found;
        }
    }
    return {};
}

ConflictingChoice SPSubMenuListCtrlEMF::tabStockReason(ppd_file_s* ppd) const {
    const ppd_option_t* types = cups_find_option(ppd, keys.type.c_str());
    const bool there = types != nullptr && paper.type >= 0 && paper.type < types->num_choices;
    return there ? ConflictingChoice{types, types->choices + paper.type} : ConflictingChoice{};
}

void SPSubMenuListCtrlEMF::doTransparencyConstraint(std::int32_t typeIndex, std::int64_t eventFrom) {
    if (transparencyIndexes.transparency < 0 || transparencyIndexes.transparency != typeIndex ||
        eventFrom != static_cast<std::int64_t>(PaperPart::type)) {
        return;
    }
    if (transparencyIndexes.clear >= 0) {
        choose(PaperPart::color, transparencyIndexes.clear);
    }
}

} // namespace specialpages

// The list of special pages on a pane of its own: a hand-made table and buttons, stand-ins for the dialogs,
// and the localised texts of the built bundle.
#pragma once

#include "controls/BasePrintPanelEMFSpecialPages.h"
#include "platform/foundation/Bundle.h"
#include "platform/print/PrintSettings.h"
#include "platform/toolkit/Button.h"
#include "platform/toolkit/TableView.h"
#include "platform/toolkit/View.h"
#include "records/RecordDialog.h"
#include "records/SPSummaryScrollViewCtrl.h"
#include "records/list_buttons.h"
#include "records/record_builder.h"
#include "records/record_tables.h"
#include "records/summary_tables.h"
#include "testing/EmptyHub.h"
#include "testing/paths.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>

namespace specialpages::test {

/// Paper that is called after its numbers: the size of index 12 is "size 12".
class NumberedTitles : public PaperTitles {
  public:
    std::optional<std::string> getSelectedMenuItemTitle(std::int64_t kind,
                                                        std::int64_t index) const override {
        static constexpr std::array<const char*, 5> kWords{"", "", "size", "color", "type"};
        return std::string(kWords.at(static_cast<std::size_t>(kind))) + " " + std::to_string(index);
    }
    std::optional<std::string> getSelectedMenuItemChoice(std::int64_t kind,
                                                         std::int64_t index) const override {
        return getSelectedMenuItemTitle(kind, index);
    }
};

/// A dialog that hands out what the test gives it and counts its openings.
class GivenDialog : public RecordDialog {
  public:
    const RecordList* recordsForList() override { return given ? &*given : nullptr; }
    bool doTabStockSetCheckByIndex(std::int32_t pagetype) override { return pagetype == tabStock; }
    const PaperTitles* paperTitles() override { return paper ? &*paper : nullptr; }
    void openForRecords() override { ++openings; }

    std::optional<RecordList> given;
    std::int32_t tabStock = -1;
    std::optional<NumberedTitles> paper;
    int openings = 0;
};

/// The pane that the list is registered with.
class ListPane : public BasePrintPanelEMFSpecialPages, public EmptyHub {
  public:
    SpecialPagesHub* hub() override { return this; }
    platform::View* getSpecialPagesViewPtr() override { return &view; }
    platform::View* getSpecialPagesView() override { return &view; }
    SPSummaryScrollViewCtrl* getSPSummaryScrollViewCtrlPtr() override { return list; }
    SPUndoButCtrlEMF* getSPUndoButtonPtr() override { return undo; }
    RecordDialog* recordDialog(std::int32_t type) override {
        return haveDialogs && type >= 0 && type < 3 ? &dialogs[static_cast<std::size_t>(type)] : nullptr;
    }
    void toMakeChange() override {
        ++changes;
        if (undo != nullptr) {
            undo->undoEnable();
        }
    }
    bool sureToMakeChange(std::int32_t kind) override {
        asked = kind;
        if (agrees) {
            toMakeChange();
        }
        return agrees;
    }
    void setBundle(platform::Bundle* bundle) { pdeBundleRef = bundle; }

    platform::View view;
    SPSummaryScrollViewCtrl* list = nullptr;
    SPUndoButCtrlEMF* undo = nullptr;
    std::array<GivenDialog, 3> dialogs;
    bool haveDialogs = true;
    bool agrees = true;
    std::optional<std::int32_t> asked;
    int changes = 0;
};

class ListTest : public ::testing::Test {
  protected:
    ListTest() {
        bundle = platform::Bundle::load(paths::bundle_dir());
        if (!bundle) {
            throw std::runtime_error("no bundle was built");
        }
        pane.setBundle(bundle.get());
        table.setTag(specialPagesSPSummaryViewID);
        table.setTableColumns({{"page", ""}, {"type", ""}, {"setup", ""}});
        list.CreateControl(&table, tableColumnsTitleResourceString, &summaryScrllViewCnstrnInfoPtr,
                           &coverOptionLCtrlAccessInfo, {});
        pane.RunTimeAddNewControl(&list);
        pane.list = &list;
        pane.SetCurrentPMPrintSettings(&settings);
        list.setTargetandAction();
    }

    /// Puts records into the list as a restore does.
    void fill(const RecordList& records) {
        for (std::size_t type = 0; type < 3; ++type) {
            pane.dialogs[type].given.reset();
        }
        const RowSet none;
        list.undoRequest(&records, &none);
    }
    /// The records without their marks.
    RecordList stored() const {
        RecordList records;
        for (const SpecialPageRecord& record : list.records()) {
            SpecialPageRecord copy;
            for (std::size_t i = 0; i < kRecordKeyCount; ++i) {
                const auto key = static_cast<RecordKey>(i);
                if (key != RecordKey::selected && record.find(key) != nullptr) {
                    copy = copy.with(key, record.text(key));
                }
            }
            records.push_back(copy);
        }
        return records;
    }
    RowSet marked() const {
        RowSet rows;
        for (std::size_t i = 0; i < list.records().size(); ++i) {
            if (list.records()[i].is_true(RecordKey::selected)) {
                rows.insert(i);
            }
        }
        return rows;
    }

    std::shared_ptr<platform::Bundle> bundle;
    platform::PrintSettings settings;
    ListPane pane;
    platform::TableView table;
    SPSummaryScrollViewCtrl list;
};

} // namespace specialpages::test

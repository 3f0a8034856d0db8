#include "records/SPSummaryScrollViewCtrl.h"

#include "controls/ControlPanel.h"
#include "controls/SpecialPagesHub.h"
#include "platform/foundation/Bundle.h"
#include "platform/foundation/numbers.h"
#include "platform/foundation/text.h"
#include "platform/print/PrintSettings.h"
#include "ppd/cups_ppd.h"
#include "ppd/ppd_access.h"
#include "ppd/ppd_keywords.h"
#include "records/RecordDialog.h"
#include "records/list_moves.h"
#include "records/record_order.h"
#include "records/record_tables.h"
#include "records/record_ticket.h"
#include "records/ticket_keys.h"
#include "support/identifiers.h"
#include "support/settings_access.h"

#include <utility>

namespace specialpages {

namespace {

std::optional<std::string> interposer_text(ppd_file_t* ppd) {
    const ppd_option_t* option = cups_find_option(ppd, KPPDUncollateSeparator);
    if (option == nullptr) {
        return std::nullopt;
    }
    const std::string_view key = kInterposerKey;
    const std::string_view keyword = key.substr(key.rfind('-') + 1);
    for (int i = 0; i < option->num_choices; ++i) {
        if (keyword == option->choices[i].choice) {
            return platform::utf8_from_encoding(option->choices[i].text,
                                                converter_name(GetCFStringEncodingFromPPD(ppd)));
        }
    }
    return std::nullopt;
}

/// Sets a flag for as long as it lives.
class Flagged {
  public:
    explicit Flagged(bool& flag) : flag_(flag) { flag_ = true; }
    ~Flagged() { flag_ = false; }
    Flagged(const Flagged&) = delete;
    Flagged& operator=(const Flagged&) = delete;

  private:
    bool& flag_;
};

} // namespace

std::optional<std::string>& UncollateSeparatorSTR() {
    static std::optional<std::string> text;
    return text;
}

const std::string* SummaryRow::find(std::string_view identifier) const {
    if (identifier == "page") {
        return &page;
    }
    if (identifier == "type") {
        return &type;
    }
    return identifier == "setup" ? &setup : nullptr;
}

void SPSummaryScrollViewCtrl::CreateControl(platform::View* view,
                                            std::span<const std::string_view> tableColumnsTitleArray,
                                            const ConstraintRecord* constrainArray,
                                            const AccessInfo* accessInfo, std::string_view usernamein) {
    CreateControl(view);
    summaryScrollViewStatus = kSummaryIdle;
    tableColumnsTitleArrayPtr = tableColumnsTitleArray;
    ctrlConstrainControlArray = constrainArray;
    ctrlDataAccessInfoPtr = accessInfo;
    m_dataRecords.clear();
    m_viewRecords.clear();
    userNameinPreference = usernamein;
    hasExceptionRecord = false;
    hasTabStockRecord = false;
    if (platform::TableView* view_ = table()) {
        view_->setDataSource(this);
        view_->setDelegate(this);
    }
}

bool SPSummaryScrollViewCtrl::InitializeCtrl(platform::Bundle* bundle, ppd_file_s* withPPD) {
    if (!BaseControlEMFSpecialPages::InitializeCtrl(bundle, withPPD)) {
        return false;
    }
    if (CheckPPDKeyIsExist(withPPD, KPPDUncollateSeparator)) {
        UncollateSeparatorSTR() = interposer_text(withPPD);
    }
    InitializeColumnsTitle(bundle);
    return true;
}

bool SPSummaryScrollViewCtrl::InitializeColumnsTitle(platform::Bundle* bundle) {
    platform::TableView* view = table();
    if (bundle == nullptr || view == nullptr) {
        return false;
    }
    for (std::size_t i = 0; i < view->tableColumns().size() && i < tableColumnsTitleArrayPtr.size(); ++i) {
        view->setHeaderTitle(i, localized(*bundle, tableColumnsTitleArrayPtr[i], kNotFound));
    }
    return true;
}

void SPSummaryScrollViewCtrl::setTargetandAction() {
    BaseControlEMFSpecialPages::setTargetandAction();
    if (platform::TableView* view = table()) {
        view->setDoubleAction(this, [this](platform::View&) { RequestControlDoubleAction(); });
    }
}

bool SPSummaryScrollViewCtrl::SetControlValueToUI() {
    upDateView();
    return true;
}

bool SPSummaryScrollViewCtrl::SetControlValueToDefault() {
    deleteAllItem();
    return true;
}

bool SPSummaryScrollViewCtrl::UIEventHandler() {
    doSelectCoverItem();
    BaseControlEMFSpecialPages::UIEventHandler();
    return true;
}

std::optional<std::string> SPSummaryScrollViewCtrl::makeSummaryScrollViewCtrlTicket(const char* key,
                                                                                    std::int32_t index) {
    if (key == nullptr || index < 0) {
        return std::nullopt;
    }
    return record_ticket_key(key, index);
}

bool SPSummaryScrollViewCtrl::SetValueToTicket(platform::PrintSettings* settings, bool withParam) {
    hasExceptionRecord = false;
    hasTabStockRecord = false;
    if (settings == nullptr || ctrlDataAccessInfoPtr == nullptr ||
        ctrlDataAccessInfoPtr->ticketKey == nullptr) {
        return false;
    }
    const std::string count = platform::decimal_text(static_cast<std::int64_t>(m_dataRecords.size()));
    if (SetValueToSettingsWithTicketKeyAndLock(count, settings, kNPIFCommandTicketCount, withParam) !=
        platform::noErr) {
        return false;
    }
    std::int32_t index = 0;
    for (const SpecialPageRecord& record : m_dataRecords) {
        const auto key = makeSummaryScrollViewCtrlTicket(ctrlDataAccessInfoPtr->ticketKey, index++);
        const auto list = encode_record(record);
        if (!key || !list) {
            continue;
        }
        hasExceptionRecord = hasExceptionRecord || record.is(RecordType::exception);
        if (SetValueToSettingsWithTicketKeyAndLock(*list, settings, *key, withParam) != platform::noErr) {
            return false;
        }
        RecordDialog* menu = dialog(static_cast<RecordType>(record.type()));
        if (menu != nullptr && menu->doTabStockSetCheckByIndex(record.integer(RecordKey::pagetype))) {
            hasTabStockRecord = true;
        }
    }
    return true;
}

bool SPSummaryScrollViewCtrl::GetValueToPreset() {
    platform::PrintSettings* settings =
        ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetCurrentPMPrintSettings();
    if (settings == nullptr || ctrlDataAccessInfoPtr == nullptr ||
        ctrlDataAccessInfoPtr->ticketKey == nullptr) {
        return false;
    }
    platform::SettingsValue value;
    if (platform::PMPrintSettingsGetValue(settings, kNPIFCommandTicketCount, value) != platform::noErr ||
        !std::holds_alternative<std::string>(value)) {
        return false;
    }
    const std::int32_t count = platform::int_value(std::get<std::string>(value));
    m_dataRecords.clear();
    for (std::int32_t index = 0; index < count; ++index) {
        const auto key = makeSummaryScrollViewCtrlTicket(ctrlDataAccessInfoPtr->ticketKey, index);
        if (!key || platform::PMPrintSettingsGetValue(settings, *key, value) != platform::noErr ||
            !std::holds_alternative<std::string>(value)) {
            return false;
        }
        RecordReading reading = decode_record(std::get<std::string>(value));
        switch (reading.outcome) {
        case RecordReading::Outcome::record:
            m_dataRecords.push_back(std::move(reading.record));
            break;
        case RecordReading::Outcome::other_kind:
            break;
        case RecordReading::Outcome::too_few_fields:
            return false;
        }
    }
    return true;
}

std::size_t SPSummaryScrollViewCtrl::numberOfRowsInTableView(platform::TableView&) {
    return m_viewRecords.size();
}

std::optional<std::string> SPSummaryScrollViewCtrl::tableView_objectValueForTableColumn(
    platform::TableView&, const platform::TableColumn& column, std::int64_t row) {
    if (row < 0 || row >= static_cast<std::int64_t>(m_viewRecords.size())) {
        return std::nullopt;
    }
    const std::string* text = m_viewRecords[static_cast<std::size_t>(row)].find(column.identifier);
    return text == nullptr ? std::nullopt : std::optional(*text);
}

void SPSummaryScrollViewCtrl::tableViewSelectionDidChange(platform::TableView&) {
    // Pulling the other cover in changes the selection once more; the marks are set once, by the outer
    // notification.
    if (selectionIsChanging) {
        return;
    }
    const Flagged flagged(selectionIsChanging);
    UIEventHandler();
    markSelectedRecord();
    if (hub() != nullptr && hub()->getSpecialPagesView() != nullptr) {
        hub()->getSpecialPagesView()->display();
    }
}

std::optional<std::string> SPSummaryScrollViewCtrl::tableView_representedObjectForRow(platform::TableView&,
                                                                                      std::int64_t row) {
    const SpecialPageRecord* record = row < 0 ? nullptr : getRecordByIndex(static_cast<std::size_t>(row));
    return record == nullptr ? std::nullopt : encode_record(*record);
}

std::optional<std::string> SPSummaryScrollViewCtrl::tableView_toolTipForCell(platform::TableView&,
                                                                             const platform::TableColumn&,
                                                                             std::int64_t row) {
    return getTipInformationByRow(row);
}

std::optional<std::string> SPSummaryScrollViewCtrl::getTipInformationByRow(std::int64_t row) {
    const SpecialPageRecord* record = row < 0 ? nullptr : getRecordByIndex(static_cast<std::size_t>(row));
    platform::Bundle* texts = bundle();
    if (record == nullptr || texts == nullptr) {
        return std::nullopt;
    }
    const auto setup = setupInfo(*record);
    if (!setup || tableColumnsTitleArrayPtr.empty()) {
        return std::string();
    }
    return localized(*texts, tableColumnsTitleArrayPtr[0], kNotFound) + " " + pageText(*texts, *record) +
           ";  " + typeText(*texts, *record) + ";  " + *setup;
}

std::size_t SPSummaryScrollViewCtrl::selectedItemCount() const {
    return table() == nullptr ? 0 : table()->numberOfSelectedRows();
}

const SpecialPageRecord* SPSummaryScrollViewCtrl::getRecordByIndex(std::size_t index) const {
    return index < m_dataRecords.size() ? &m_dataRecords[index] : nullptr;
}

std::optional<RowSet> SPSummaryScrollViewCtrl::getIndexSetOfCurrentSelectedRecord() const {
    return table() == nullptr ? std::nullopt : std::optional(table()->selectedRowIndexes());
}

std::optional<RecordList> SPSummaryScrollViewCtrl::getArrayOfCurrentSelectedRecords() const {
    const auto rows = getIndexSetOfCurrentSelectedRecord();
    if (!rows) {
        return std::nullopt;
    }
    RecordList selected;
    for (const std::size_t row : *rows) {
        if (const SpecialPageRecord* record = getRecordByIndex(row)) {
            selected.push_back(*record);
        }
    }
    return selected;
}

void SPSummaryScrollViewCtrl::getIndexArrayOfCurrentSelectedRecords(std::vector<std::string>& rows) const {
    for (const std::size_t row : getIndexSetOfCurrentSelectedRecord().value_or(RowSet{})) {
        rows.push_back(platform::decimal_text(static_cast<std::int64_t>(row)));
    }
}

std::optional<RowSet>
SPSummaryScrollViewCtrl::getIndexSetOfCurrentSelectedRecordByType(std::int32_t type) const {
    const auto rows = getIndexSetOfCurrentSelectedRecord();
    if (m_dataRecords.empty() || !rows) {
        return std::nullopt;
    }
    return selected_within_type(m_dataRecords, *rows, static_cast<RecordType>(type));
}

bool SPSummaryScrollViewCtrl::getArrayByType(RecordList* array, std::int32_t insertPageType) const {
    if (array == nullptr) {
        return false;
    }
    for (SpecialPageRecord& record : records_of_type(m_dataRecords, insertPageType)) {
        array->push_back(std::move(record));
    }
    return true;
}

void SPSummaryScrollViewCtrl::updateRequest(std::int32_t type) {
    if (type >= 0 && type <= static_cast<std::int32_t>(RecordType::exception)) {
        deleteAllItemByType(type);
        addItemByType(type);
    }
    upDateView();
}

bool SPSummaryScrollViewCtrl::addItemByType(std::int32_t type) {
    switch (type) {
    case static_cast<std::int32_t>(RecordType::cover):
        addCoverWndRecord();
        break;
    case static_cast<std::int32_t>(RecordType::insert):
        addInsertWndRecord();
        break;
    case static_cast<std::int32_t>(RecordType::exception):
        addExceptionWndRecord();
        break;
    default:
        break;
    }
    return true;
}

void SPSummaryScrollViewCtrl::deleteAllItemByType(std::int32_t type) {
    m_dataRecords = without_type(std::move(m_dataRecords), static_cast<RecordType>(type));
}

void SPSummaryScrollViewCtrl::mergeFromDialog(RecordType type,
                                              RecordList (*merge)(RecordList, const RecordList&)) {
    RecordDialog* source = dialog(type);
    const RecordList* added = source == nullptr ? nullptr : source->recordsForList();
    if (added != nullptr && !added->empty()) {
        m_dataRecords = merge(std::move(m_dataRecords), *added);
    }
}

void SPSummaryScrollViewCtrl::addCoverWndRecord() {
    mergeFromDialog(RecordType::cover, merge_covers);
}

void SPSummaryScrollViewCtrl::addInsertWndRecord() {
    mergeFromDialog(RecordType::insert, merge_inserts);
}

void SPSummaryScrollViewCtrl::addExceptionWndRecord() {
    mergeFromDialog(RecordType::exception, merge_exceptions);
}

bool SPSummaryScrollViewCtrl::upDateView() {
    platform::Bundle* texts = bundle();
    if (texts == nullptr) {
        return false;
    }
    m_viewRecords.clear();
    for (const SpecialPageRecord& record : m_dataRecords) {
        m_viewRecords.push_back(
            {pageText(*texts, record), typeText(*texts, record), setupInfo(record).value_or(std::string())});
    }
    if (platform::TableView* view = table()) {
        view->reloadData();
    }
    selectMarkedRecord();
    UIEventHandler();
    return true;
}

std::string SPSummaryScrollViewCtrl::typeText(platform::Bundle& bundle,
                                              const SpecialPageRecord& record) const {
    return localized(bundle, record_table_entry(gInsertPageTypeResourceString, record.type()), kNotFound);
}

std::string SPSummaryScrollViewCtrl::pageText(platform::Bundle& bundle,
                                              const SpecialPageRecord& record) const {
    if (record.is(RecordType::cover)) {
        return localized(bundle,
                         record_table_entry(gInsertPageNumResourceString, record.integer(RecordKey::page)),
                         kNotFound);
    }
    if (record.is(RecordType::insert) && record.integer(RecordKey::insertoption) == 1) {
        return localized(bundle, record_table_entry(insertOptionListIniMenu, 1), kNotFound);
    }
    return record.text(RecordKey::page);
}

std::optional<std::string> SPSummaryScrollViewCtrl::setupInfo(const SpecialPageRecord& record) {
    switch (record.type()) {
    case static_cast<std::int32_t>(RecordType::cover):
        return getCoverWndSetupInfo(record);
    case static_cast<std::int32_t>(RecordType::insert):
        return getInsertWndSetupInfo(record);
    case static_cast<std::int32_t>(RecordType::exception):
        return getExceptionWndSetupInfo(record);
    default:
        return std::nullopt;
    }
}

/// The texts as the list finds them: its localised table, and the PPD of the pane.
class SPSummaryScrollViewCtrl::Words : public SetupWords {
  public:
    Words(const SPSummaryScrollViewCtrl& list, platform::Bundle& bundle) : list_(list), bundle_(bundle) {}

    std::string localizedText(std::string_view key) const override {
        return list_.localized(bundle_, key, kNotFound);
    }
    std::string defaultTableText(std::string_view key) const override {
        return bundle_.localizedStringForKey(key, kNotFound, {});
    }
    std::optional<std::string> interposerText() const override { return UncollateSeparatorSTR(); }
    std::string sizeKeyword(std::int32_t index) const override {
        std::string keyword;
        GetValueFromPPDByIndex(list_.ctrlParentPanelPtr->GetCurrentPPD(), kPPDPageSizeKey, keyword, index);
        return keyword;
    }

  private:
    const SPSummaryScrollViewCtrl& list_;
    platform::Bundle& bundle_;
};

std::optional<std::string> SPSummaryScrollViewCtrl::setupInfoBy(RecordType type, ComposeSetup compose,
                                                                const SpecialPageRecord& record) {
    RecordDialog* source = dialog(type);
    const PaperTitles* paper = source == nullptr ? nullptr : source->paperTitles();
    platform::Bundle* texts = bundle();
    if (paper == nullptr || texts == nullptr) {
        return std::nullopt;
    }
    return compose(record, *paper, Words(*this, *texts));
}

std::optional<std::string> SPSummaryScrollViewCtrl::getCoverWndSetupInfo(const SpecialPageRecord& record) {
    return setupInfoBy(RecordType::cover, cover_setup_text, record);
}

std::optional<std::string> SPSummaryScrollViewCtrl::getInsertWndSetupInfo(const SpecialPageRecord& record) {
    return setupInfoBy(RecordType::insert, insert_setup_text, record);
}

std::optional<std::string>
SPSummaryScrollViewCtrl::getExceptionWndSetupInfo(const SpecialPageRecord& record) {
    return setupInfoBy(RecordType::exception, exception_setup_text, record);
}

platform::TableView* SPSummaryScrollViewCtrl::table() const {
    return dynamic_cast<platform::TableView*>(ControlPtr);
}

SpecialPagesHub* SPSummaryScrollViewCtrl::hub() const {
    return ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->hub();
}

RecordDialog* SPSummaryScrollViewCtrl::dialog(RecordType type) const {
    return hub() == nullptr ? nullptr : hub()->recordDialog(static_cast<std::int32_t>(type));
}

platform::Bundle* SPSummaryScrollViewCtrl::bundle() const {
    return ctrlParentPanelPtr == nullptr ? nullptr : ctrlParentPanelPtr->GetPDEBundleRef();
}

} // namespace specialpages

#include "records/setup_text.h"

#include "platform/foundation/numbers.h"
#include "records/record_tables.h"
#include "support/units.h"

namespace specialpages {

namespace {

constexpr std::string_view kCustomChoice = "Custom";
constexpr std::int32_t kInches = 0;

/// A length as it is shown: with a point always.
std::string length_text(const std::string& millimetres, bool inches) {
    std::string text = inches ? TransformMillimetreToInchs(millimetres).value_or("") : millimetres;
    if (text.find('.') == std::string::npos) {
        text += ".0";
    }
    return text;
}

std::string custom_size_text(const SpecialPageRecord& record, const SetupWords& words) {
    const std::int32_t measure = record.integer(RecordKey::longmeasure);
    const bool inches = measure == kInches;
    return length_text(record.text(RecordKey::width), inches) + " x " +
           length_text(record.text(RecordKey::length), inches) + " " +
           words.localizedText(record_table_entry(customSizeLongMeasureString, measure));
}

std::string setup_text(const std::string& head, const SpecialPageRecord& record, const PaperTitles& paper,
                       const SetupWords& words) {
    std::string text;
    addPropertyInfoString(&text, head, {}, kSetupHead, words);
    return text + "; " + paper_setup_text(record, paper, words);
}

} // namespace

void addPropertyInfoString(std::string* string, std::optional<std::string_view> PropertyInfo,
                           std::optional<std::string_view> PropertyChoice, std::int32_t infoType,
                           const SetupWords& words) {
    if (string == nullptr || !PropertyInfo) {
        return;
    }
    const bool labelled = !PropertyChoice || PropertyChoice->find(kCustomChoice) != std::string_view::npos;
    if (labelled && (infoType == kSetupColor || infoType == kSetupType)) {
        *string += words.defaultTableText(infoType == kSetupColor ? "Color String" : "Type String") + ":";
    }
    *string += *PropertyInfo;
}

std::string cover_setup_text(const SpecialPageRecord& record, const PaperTitles& paper,
                             const SetupWords& words) {
    return setup_text(words.localizedText(record_table_entry(printingOptionListIniMenu,
                                                             record.integer(RecordKey::printingoptions))),
                      record, paper, words);
}

std::string insert_setup_text(const SpecialPageRecord& record, const PaperTitles& paper,
                              const SetupWords& words) {
    return setup_text(
        format_number(words.localizedText("Quantity String"), record.integer(RecordKey::insertquantity)),
        record, paper, words);
}

std::string exception_setup_text(const SpecialPageRecord& record, const PaperTitles& paper,
                                 const SetupWords& words) {
    return setup_text(words.localizedText(record_table_entry(exceptionTowSidePrintIniMenu,
                                                             record.integer(RecordKey::twoSidePrint))),
                      record, paper, words);
}

std::string paper_setup_text(const SpecialPageRecord& record, const PaperTitles& paper,
                             const SetupWords& words) {
    std::string text;
    if (record.is_true(RecordKey::interposer)) {
        const auto interposer = words.interposerText();
        addPropertyInfoString(&text, interposer ? *interposer : words.localizedText(kInterposerKey), {},
                              kSetupInterposer, words);
        return text;
    }
    const auto add = [&](std::int32_t kind, RecordKey key) {
        const std::int32_t index = record.integer(key);
        addPropertyInfoString(&text, paper.getSelectedMenuItemTitle(kind, index),
                              paper.getSelectedMenuItemChoice(kind, index), kind, words);
    };
    if (words.sizeKeyword(record.integer(RecordKey::pagesize)) == kCustomChoice) {
        text += custom_size_text(record, words);
    } else {
        add(kSetupSize, RecordKey::pagesize);
    }
    text += ", ";
    add(kSetupColor, RecordKey::pagecolor);
    text += ", ";
    add(kSetupType, RecordKey::pagetype);
    return text;
}

std::string format_number(std::string_view format, std::int32_t number) {
    std::string text(format);
    if (const auto at = text.find("%d"); at != std::string::npos) {
        text.replace(at, 2, platform::decimal_text(number));
    }
    return text;
}

} // namespace specialpages

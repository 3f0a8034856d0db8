#include "dialogs/cover_records.h"

#include "platform/foundation/numbers.h"

namespace specialpages {

namespace {

constexpr std::int32_t kFrontPage = 0;
constexpr std::int32_t kBackPage = 1;

SpecialPageRecord cover_record(std::int32_t page, CoverOption option, const CoverSide& side,
                               const std::string& selected) {
    using platform::decimal_text;
    return {
        {RecordKey::page, decimal_text(page)},
        {RecordKey::type, decimal_text(static_cast<std::int32_t>(RecordType::cover))},
        {RecordKey::printingoptions, decimal_text(side.printing)},
        {RecordKey::pagesize, decimal_text(side.paper.size)},
        {RecordKey::pagecolor, decimal_text(side.paper.color)},
        {RecordKey::pagetype, decimal_text(side.paper.type)},
        {RecordKey::interposer, side.paper.interposer != 0 ? "true" : "false"},
        {RecordKey::coversoption, decimal_text(static_cast<std::int32_t>(option))},
        {RecordKey::width, side.width},
        {RecordKey::length, side.length},
        {RecordKey::longmeasure, decimal_text(side.longMeasure)},
        {RecordKey::selected, selected},
    };
}

} // namespace

RecordList cover_records(CoverOption option, const CoverSide& front, const CoverSide& back) {
    const auto frontCover = [&] {
        return cover_record(kFrontPage, option, front, front.selected);
    };
    const auto backCover = [&](const CoverSide& side) {
        return cover_record(kBackPage, option, side, back.selected);
    };
    switch (option) {
    case CoverOption::none:
        return {};
    case CoverOption::frontOnly:
        return {frontCover()};
    case CoverOption::backOnly:
        return {backCover(back)};
    case CoverOption::same:
        return {backCover(front), frontCover()};
    case CoverOption::different:
        return {backCover(back), frontCover()};
    }
    return {};
}

CoverSelection cover_selection(const RecordList& records) {
    CoverSelection selection;
    for (const SpecialPageRecord& record : records) {
        const std::string* selected = record.find(RecordKey::selected);
        const std::int32_t page = record.integer(RecordKey::page);
        if (selected != nullptr && page == kFrontPage) {
            selection.front = *selected;
        } else if (selected != nullptr && page == kBackPage) {
            selection.back = *selected;
        }
    }
    return selection;
}

} // namespace specialpages

#include "records/record_paper.h"

#include "platform/foundation/numbers.h"

#include <utility>

namespace specialpages {

RecordPaper paper_of(const SpecialPageRecord& record) {
    return {.size = record.integer(RecordKey::pagesize),
            .color = record.integer(RecordKey::pagecolor),
            .type = record.integer(RecordKey::pagetype),
            .interposer = record.is_true(RecordKey::interposer),
            .custom = decided({.width = record.text(RecordKey::width),
                               .length = record.text(RecordKey::length),
                               .longmeasure = record.integer(RecordKey::longmeasure)},
                              CustomSize{})};
}

SpecialPageRecord with_paper_of(const SpecialPageRecord& record, const RecordPaper& paper) {
    return record.with(RecordKey::pagesize, platform::decimal_text(paper.size))
        .with(RecordKey::pagecolor, platform::decimal_text(paper.color))
        .with(RecordKey::pagetype, platform::decimal_text(paper.type))
        .with(RecordKey::interposer, paper.interposer ? "true" : "false")
        .with(RecordKey::width, paper.custom.width)
        .with(RecordKey::length, paper.custom.length)
        .with(RecordKey::longmeasure, platform::decimal_text(paper.custom.longmeasure));
}

bool chooses_paper(const RecordPaper& paper) {
    return paper.interposer || paper.size != kUndecided || paper.color != kUndecided ||
           paper.type != kUndecided;
}

CustomSize decided(CustomSize custom, const CustomSize& otherwise) {
    if (custom.width == kUndecidedText) {
        custom.width = otherwise.width;
    }
    if (custom.length == kUndecidedText) {
        custom.length = otherwise.length;
    }
    if (custom.longmeasure == kUndecided) {
        custom.longmeasure = otherwise.longmeasure;
    }
    return custom;
}

void narrow(CustomSize& running, const CustomSize& record) {
    if (running.longmeasure != kUndecided && running.longmeasure != record.longmeasure) {
        running = {.width = kUndecidedText, .length = kUndecidedText, .longmeasure = kUndecided};
        return;
    }
    if (running.width != record.width) {
        running.width = kUndecidedText;
    }
    if (running.length != record.length) {
        running.length = kUndecidedText;
    }
}

void narrow(std::int32_t& running, std::int32_t record) {
    if (running != record) {
        running = kUndecided;
    }
}

} // namespace specialpages

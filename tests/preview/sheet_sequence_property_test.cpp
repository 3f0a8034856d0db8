// What holds of the sheets of any job, however its records came about.
#include "preview/sheet_sequence.h"
#include "preview/sheet_texts.h"
#include "records/record_builder.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace specialpages::preview {
namespace {

SpecialPageRecord any_record(std::int64_t pages) {
    const int most = static_cast<int>(pages) + 3;
    const int first = *rc::gen::inRange(0, most);
    switch (*rc::gen::inRange(0, 4)) {
    case 0: {
        const int printing = *rc::gen::inRange(0, 4);
        const SpecialPageRecord cover =
            specialpages::test::cover(*rc::gen::element<std::string>("0", "1"), "4")
                .with(RecordKey::printingoptions, std::to_string(printing));
        return *rc::gen::inRange(0, 4) == 0 ? specialpages::test::from_interposer(cover) : cover;
    }
    case 1:
        return specialpages::test::insert_after(first, *rc::gen::inRange(0, 5));
    default: {
        const int last = first + *rc::gen::inRange(-1, 6);
        return specialpages::test::exception(std::to_string(first) + "-" + std::to_string(last))
            .with(RecordKey::twoSidePrint, std::to_string(*rc::gen::inRange(1, 4)));
    }
    }
}

struct Job {
    RecordList records;
    Document document;
};

Job any_job() {
    Job job;
    job.document.pages = *rc::gen::inRange<std::int64_t>(0, 30);
    job.document.sides = *rc::gen::element(Sides::one, Sides::longEdge, Sides::shortEdge);
    const int count = *rc::gen::inRange(0, 12);
    for (int i = 0; i < count; ++i) {
        job.records.push_back(any_record(*job.document.pages));
    }
    return job;
}

/// Every page, sheet by sheet and side by side.
std::vector<std::int64_t> pages_in_order(const SheetSequence& sequence) {
    std::vector<std::int64_t> pages;
    for (const SheetRun& run : sequence.runs) {
        for (std::int64_t place = 0; place < run.sheets; ++place) {
            const SheetFaces faces = sheet_faces(run, place);
            for (const std::int64_t page : {faces.front, faces.back}) {
                if (page != 0) {
                    pages.push_back(page);
                }
            }
        }
    }
    return pages;
}

RC_GTEST_PROP(SheetSequenceProperty, EveryPageIsOnOneSheetInOrder, ()) {
    const Job job = any_job();
    std::vector<std::int64_t> expected;
    for (std::int64_t page = 1; page <= *job.document.pages; ++page) {
        expected.push_back(page);
    }
    RC_ASSERT(pages_in_order(sheet_sequence(job.records, job.document)) == expected);
}

RC_GTEST_PROP(SheetSequenceProperty, EveryInsertHasItsSheetsUnlessItIsNoted, ()) {
    const Job job = any_job();
    const SheetSequence sequence = sheet_sequence(job.records, job.document);
    for (std::size_t row = 0; row < job.records.size(); ++row) {
        if (!job.records[row].is(RecordType::insert)) {
            continue;
        }
        std::int64_t sheets = 0;
        for (const SheetRun& run : sequence.runs) {
            sheets += run.row == row ? run.sheets : 0;
        }
        const bool noted = std::any_of(sequence.notes.begin(), sequence.notes.end(),
                                       [row](const SheetNote& note) { return note.row == row; });
        const bool past = job.records[row].integer(RecordKey::page) > *job.document.pages;
        const std::int32_t asked = job.records[row].integer(RecordKey::insertquantity);
        RC_ASSERT(sheets == (past ? 0 : asked));
        RC_ASSERT(noted == (past || asked == 0));
    }
}

RC_GTEST_PROP(SheetSequenceProperty, EveryRecordIsShownOrNoted, ()) {
    const Job job = any_job();
    const SheetSequence sequence = sheet_sequence(job.records, job.document);
    for (std::size_t row = 0; row < job.records.size(); ++row) {
        const bool shown = !runs_of_rows(sequence, {row}).empty();
        const auto noted = std::count_if(sequence.notes.begin(), sequence.notes.end(),
                                         [row](const SheetNote& note) { return note.row == row; });
        RC_ASSERT(noted <= 1);
        RC_ASSERT(shown || noted == 1);
    }
    RC_ASSERT(std::is_sorted(sequence.notes.begin(), sequence.notes.end(),
                             [](const SheetNote& a, const SheetNote& b) { return a.row < b.row; }));
}

RC_GTEST_PROP(SheetSequenceProperty, RowsAndRunsNameEachOther, ()) {
    const Job job = any_job();
    const SheetSequence sequence = sheet_sequence(job.records, job.document);
    for (std::size_t run = 0; run < sequence.runs.size(); ++run) {
        const auto rows = rows_of_runs(sequence, {run});
        RC_ASSERT(rows.size() <= 1U);
        RC_ASSERT(rows.empty() == (sequence.runs[run].kind == SheetKind::pages));
        RC_ASSERT(rows.empty() || runs_of_rows(sequence, rows).contains(run));
    }
    for (std::size_t row = 0; row < job.records.size(); ++row) {
        const auto runs = runs_of_rows(sequence, {row});
        RC_ASSERT(runs.empty() || rows_of_runs(sequence, runs) == std::set<std::size_t>{row});
    }
}

RC_GTEST_PROP(SheetSequenceProperty, CoversAreOutside, ()) {
    const Job job = any_job();
    const SheetSequence sequence = sheet_sequence(job.records, job.document);
    for (std::size_t i = 0; i < sequence.runs.size(); ++i) {
        RC_ASSERT(sequence.runs[i].sheets >= 1);
        RC_ASSERT((sequence.runs[i].kind != SheetKind::frontCover) || i == 0);
        RC_ASSERT((sequence.runs[i].kind != SheetKind::backCover) || i + 1 == sequence.runs.size());
    }
}

RC_GTEST_PROP(SheetSequenceProperty, AnUnknownLengthNotesOnlyWhatNoLengthCouldShow, ()) {
    Job job = any_job();
    job.document.pages = std::nullopt;
    const SheetSequence sequence = sheet_sequence(job.records, job.document);
    RC_ASSERT(std::count_if(sequence.runs.begin(), sequence.runs.end(),
                            [](const SheetRun& run) { return run.open; }) == 1);
    for (const SheetNote& note : sequence.notes) {
        RC_ASSERT(note.reason != NoteReason::pastEnd);
        RC_ASSERT(note.reason != NoteReason::partlyPastEnd);
    }
}

} // namespace
} // namespace specialpages::preview

// The order rules over any legal list, and what must hold over any list at all, as a hand-made ticket may
// give.
#include "records/record_builder.h"
#include "records/record_order.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace specialpages {
namespace {

/// What the three dialogs deliver, each list in its dialog's order.
struct Delivery {
    RecordList covers;
    RecordList inserts;
    RecordList exceptions;
};

RecordList any_covers() {
    RecordList covers;
    if (*rc::gen::arbitrary<bool>()) {
        covers.push_back(test::cover_front());
    }
    if (*rc::gen::arbitrary<bool>()) {
        covers.push_back(test::cover_back());
    }
    return covers;
}

/// Ascending by page, told apart by the number of sheets; before page one only without a front cover.
RecordList any_sorted_inserts(bool with_front_cover) {
    auto pages = *rc::gen::container<std::vector<int>>(rc::gen::inRange(with_front_cover ? 1 : 0, 12));
    std::sort(pages.begin(), pages.end());
    RecordList inserts;
    int sheets = 0;
    for (const auto page : pages) {
        ++sheets;
        inserts.push_back(page == 0 ? test::insert_before_page_one(sheets)
                                    : test::insert_after(page, sheets));
    }
    return inserts;
}

/// Ascending, no page in two of them.
RecordList any_arranged_exceptions() {
    const auto drawn = *rc::gen::container<std::vector<int>>(rc::gen::inRange(1, 16));
    const std::set<int> pages{drawn.begin(), drawn.end()};
    RecordList exceptions;
    for (auto page = pages.begin(); page != pages.end(); ++page) {
        const auto next = std::next(page);
        if (next != pages.end() && *rc::gen::arbitrary<bool>()) {
            exceptions.push_back(test::exception(std::to_string(*page) + "-" + std::to_string(*next)));
            page = next;
        } else {
            exceptions.push_back(test::exception(std::to_string(*page)));
        }
    }
    return exceptions;
}

Delivery any_delivery() {
    auto covers = any_covers();
    const bool with_front = std::any_of(covers.begin(), covers.end(), is_front_cover);
    return {std::move(covers), any_sorted_inserts(with_front), any_arranged_exceptions()};
}

/// Where a record of a legal list stands: part of the list, page, and the exception before the insert.
std::vector<int> position(const SpecialPageRecord& record) {
    const auto& page = record.text(RecordKey::page);
    switch (static_cast<RecordType>(record.type())) {
    case RecordType::cover:
        return {page == "0" ? 0 : 3};
    case RecordType::insert:
        return record.text(RecordKey::insertoption) == "1" ? std::vector{1}
                                                           : std::vector{2, std::stoi(page), 1};
    case RecordType::exception:
        return {2, std::stoi(page), 0};
    }
    return {};
}

bool is_in_order(const RecordList& list) {
    return std::is_sorted(list.begin(), list.end(),
                          [](const auto& a, const auto& b) { return position(a) < position(b); });
}

RC_GTEST_PROP(RecordOrderProperty, EveryLegalDeliveryEndsUpInOrderWhicheverDialogIsLast, ()) {
    const auto [covers, inserts, exceptions] = any_delivery();

    const std::vector<RecordList> lists{
        merge_exceptions(merge_inserts(merge_covers({}, covers), inserts), exceptions),
        merge_inserts(merge_exceptions(merge_covers({}, covers), exceptions), inserts),
        merge_covers(merge_inserts(merge_exceptions({}, exceptions), inserts), covers),
        merge_covers(merge_exceptions(merge_inserts({}, inserts), exceptions), covers),
    };

    for (const auto& list : lists) {
        RC_ASSERT(is_in_order(list));
        RC_ASSERT(list == lists.front());
        RC_ASSERT(records_of_type(list, 0) == covers);
        RC_ASSERT(records_of_type(list, 1) == inserts);
        RC_ASSERT(records_of_type(list, 2) == exceptions);
        RC_ASSERT(list.size() == covers.size() + inserts.size() + exceptions.size());
    }
}

RC_GTEST_PROP(RecordOrderProperty, RefillingOneKindGivesTheListOfThatDelivery, ()) {
    const auto [covers, inserts, exceptions] = any_delivery();
    const bool with_front = std::any_of(covers.begin(), covers.end(), is_front_cover);
    const auto new_inserts = any_sorted_inserts(with_front);
    const auto new_exceptions = any_arranged_exceptions();
    const auto built = [&covers = covers](const RecordList& between, const RecordList& others) {
        return merge_exceptions(merge_inserts(merge_covers({}, covers), between), others);
    };

    const auto list = built(inserts, exceptions);
    RC_ASSERT(merge_inserts(without_type(list, RecordType::insert), new_inserts) ==
              built(new_inserts, exceptions));
    RC_ASSERT(merge_exceptions(without_type(list, RecordType::exception), new_exceptions) ==
              built(inserts, new_exceptions));
    RC_ASSERT(merge_covers(without_type(list, RecordType::cover), covers) == list);
}

/// Any records at all, each told apart by a number in "insertquantity".
RecordList any_records(int first_number) {
    const auto one_of = [](std::vector<std::string> texts) {
        return *rc::gen::elementOf(std::move(texts));
    };
    const auto count = *rc::gen::inRange(0, 12);
    RecordList records;
    for (int i = 0; i < count; ++i) {
        records.push_back({{RecordKey::type, one_of({"0", "1", "2", "3", "-1", "", "x"})},
                           {RecordKey::page, one_of({"0", "1", "2", "5", "5-7", "9-", "-3", "x", ""})},
                           {RecordKey::insertoption, one_of({"0", "1", "2", ""})},
                           {RecordKey::insertquantity, std::to_string(first_number + i)}});
    }
    return records;
}

RecordList numbered(const RecordList& list, bool below_hundred) {
    RecordList chosen;
    std::copy_if(list.begin(), list.end(), std::back_inserter(chosen), [below_hundred](const auto& record) {
        return (record.integer(RecordKey::insertquantity) < 100) == below_hundred;
    });
    return chosen;
}

RC_GTEST_PROP(RecordOrderProperty, MergingAnyListsKeepsEveryRecordOnceAndBothOrders, ()) {
    const auto store = any_records(0);
    const auto added = any_records(100);
    for (const auto& merged : {merge_inserts(store, added), merge_exceptions(store, added)}) {
        RC_ASSERT(merged.size() == store.size() + added.size());
        RC_ASSERT(numbered(merged, true) == store);
        RC_ASSERT(numbered(merged, false) == added);
    }
}

RC_GTEST_PROP(RecordOrderProperty, MergingAnyCoversKeepsTheStoreAndEveryFrontAndBack, ()) {
    const auto store = any_records(0);
    const auto covers = any_records(100);
    const auto merged = merge_covers(store, covers);
    const auto kept = std::count_if(covers.begin(), covers.end(), [](const auto& cover) {
        return cover.integer(RecordKey::page) == 0 || cover.integer(RecordKey::page) == 1;
    });
    RC_ASSERT(numbered(merged, true) == store);
    RC_ASSERT(merged.size() == store.size() + static_cast<std::size_t>(kept));
}

RC_GTEST_PROP(RecordOrderProperty, KindsTakeAnyListApartWithoutOverlap, ()) {
    const auto list = any_records(0);
    for (const auto type : {RecordType::cover, RecordType::insert, RecordType::exception}) {
        const auto of_type = records_of_type(list, static_cast<std::int32_t>(type));
        RC_ASSERT(of_type.size() + without_type(list, type).size() == list.size());
        RC_ASSERT(without_type(of_type, type).empty());
    }
}

} // namespace
} // namespace specialpages

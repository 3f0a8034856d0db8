// Page lists against a slow reader that knows no stages: it takes a list of page sets that were never text,
// writes it with spaces and commas at random, and expands it page by page.
#include "records/page_list.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

namespace specialpages {
namespace {

constexpr std::int32_t kLast = 65000;

struct WrittenSet {
    std::string text;
    std::vector<std::int32_t> pages;
};

std::string spaces() {
    return std::string(*rc::gen::inRange<std::size_t>(0, 3), ' ');
}
std::string zeros() {
    return std::string(*rc::gen::inRange<std::size_t>(0, 3), '0');
}

std::vector<std::int32_t> every_page(std::int32_t first, std::int32_t last) {
    std::vector<std::int32_t> pages;
    for (auto page = first; page <= last; ++page) {
        pages.push_back(page);
    }
    return pages;
}

WrittenSet any_set(std::int32_t lowest) {
    const auto first = *rc::gen::inRange(lowest, 30);
    const auto last = *rc::gen::inRange(first, 31);
    const auto dash = spaces() + '-' + spaces();
    const auto number = [](std::int32_t page) {
        return zeros() + std::to_string(page);
    };
    switch (*rc::gen::inRange(0, 6)) {
    case 0:
        return {number(first) + dash + number(last), every_page(first, last)};
    case 1:
        return {'-' + spaces() + number(last), every_page(1, last)};
    case 2:
        return {number(kLast - first) + spaces() + '-', every_page(kLast - first, kLast)};
    default:
        return {number(first), {first}};
    }
}

std::string any_separator() {
    const auto separators = std::vector<std::string>{",", " , ", ", ", " ,", ",,", ",,,", "  ,, "};
    return *rc::gen::elementOf(separators);
}

WrittenSet any_list(std::int32_t lowest) {
    WrittenSet list{*rc::gen::element<std::string>("", " ", ",", " ,,"), {}};
    const auto count = *rc::gen::inRange(1, 12);
    for (int i = 0; i < count; ++i) {
        const auto set = any_set(lowest);
        list.text += (i == 0 ? "" : any_separator()) + set.text;
        list.pages.insert(list.pages.end(), set.pages.begin(), set.pages.end());
    }
    list.text += *rc::gen::element<std::string>("", " ", ",", ",,", " ,");
    return list;
}

std::vector<std::string> texts(const std::vector<std::int32_t>& pages) {
    std::vector<std::string> result;
    result.reserve(pages.size());
    for (const auto page : pages) {
        result.push_back(std::to_string(page));
    }
    return result;
}

RC_GTEST_PROP(PageListProperty, InsertsReadEveryPageInTheOrderOfTheText, ()) {
    const auto list = any_list(0);
    InsertPages pages;
    RC_ASSERT(ValidatePageList(list.text, false, {}, pages) == kPageListValid);
    RC_ASSERT(page_texts(pages.m_aSortedPageArray) == texts(list.pages));

    auto without_zero = list.pages;
    std::erase(without_zero, 0);
    RC_ASSERT(ValidatePageList(list.text, true, {}, pages) == kPageListValid);
    RC_ASSERT(page_texts(pages.m_aSortedPageArray) == texts(without_zero));

    const InsertPageLimit limit{.status = 1, .held = *rc::gen::inRange(0, 260)};
    const bool tooMany = static_cast<std::int64_t>(list.pages.size()) + limit.held > 250;
    RC_ASSERT(ValidatePageList(list.text, false, limit, pages) ==
              (tooMany ? kPageListTooMany : kPageListValid));
}

RC_GTEST_PROP(PageListProperty, ExceptionsReadTheSetOfThePages, ()) {
    const auto list = any_list(1);
    const std::set<std::int32_t> model{list.pages.begin(), list.pages.end()};
    ExceptionPages pages;
    RC_ASSERT(ValidatePageList(list.text, true, pages) == kPageListValid);
    RC_ASSERT(page_texts(pages.m_idxNumberSet) == texts({model.begin(), model.end()}));
}

RC_GTEST_PROP(PageListProperty, TheNormalFormReadsAsTheText, ()) {
    const auto list = any_list(1);
    InsertPages pages;
    InsertPages again;
    RC_ASSERT(ValidatePageList(list.text, false, {}, pages) == kPageListValid);
    RC_ASSERT(ValidatePageList(pages.m_strArranged, false, {}, again) == kPageListValid);
    RC_ASSERT(again == pages);
}

RC_GTEST_PROP(PageListProperty, WhatIsRefusedHasACodeAndKeepsTheOldPages, ()) {
    const auto characters =
        *rc::gen::container<std::string>(rc::gen::elementOf(std::string("0123456789,,--  ab")));
    InsertPages pages;
    const auto code = ValidatePageList(characters, false, {}, pages);
    const std::set<std::int32_t> codes{0, -3000, -3001, -3004, -3006, -3007, -3008, -3009};
    RC_ASSERT(codes.contains(code));
    RC_ASSERT(code == kPageListValid || pages == InsertPages{});
    RC_ASSERT((characters.find_first_of("ab") != std::string::npos) == (code == -3004));
    ExceptionPages set;
    const auto exceptionCode = ValidatePageList(characters, true, set);
    RC_ASSERT(exceptionCode == code || exceptionCode == -3008); // page 0 is the only difference
}

} // namespace
} // namespace specialpages

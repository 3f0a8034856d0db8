#include "records/page_ranges.h"

#include "platform/foundation/numbers.h"

#include <algorithm>

namespace specialpages {
namespace {

std::int64_t length_of(const PageRange& range) {
    return std::int64_t{range.last} - range.first + 1;
}

} // namespace

std::int64_t page_count(const PageRanges& ranges) {
    std::int64_t count = 0;
    for (const auto& range : ranges) {
        count += length_of(range);
    }
    return count;
}

std::optional<std::int32_t> page_at(const PageRanges& ranges, std::int64_t place) {
    if (place < 0) {
        return std::nullopt;
    }
    for (const auto& range : ranges) {
        if (place < length_of(range)) {
            return static_cast<std::int32_t>(range.first + place);
        }
        place -= length_of(range);
    }
    return std::nullopt;
}

std::vector<std::string> page_texts(const PageRanges& ranges) {
    std::vector<std::string> texts;
    texts.reserve(static_cast<std::size_t>(page_count(ranges)));
    for (const auto& range : ranges) {
        for (std::int64_t page = range.first; page <= range.last; ++page) {
            texts.push_back(platform::decimal_text(page));
        }
    }
    return texts;
}

PageRanges page_set(PageRanges ranges) {
    std::sort(ranges.begin(), ranges.end(),
              [](const PageRange& a, const PageRange& b) { return a.first < b.first; });
    PageRanges set;
    for (const auto& range : ranges) {
        if (!set.empty() && std::int64_t{range.first} - set.back().last <= 1) {
            set.back().last = std::max(set.back().last, range.last);
        } else {
            set.push_back(range);
        }
    }
    return set;
}

PageRanges pages_without(const PageRanges& from, const PageRanges& what) {
    PageRanges left;
    auto taken = what.begin();
    for (const auto& range : from) {
        std::int64_t first = range.first;
        while (taken != what.end() && taken->last < range.first) {
            ++taken;
        }
        // A range that is taken may reach into the next one too, so it is not passed here.
        for (auto cut = taken; cut != what.end() && cut->first <= range.last; ++cut) {
            if (first < cut->first) {
                left.push_back({static_cast<std::int32_t>(first), cut->first - 1});
            }
            first = std::int64_t{cut->last} + 1;
        }
        if (first <= range.last) {
            left.push_back({static_cast<std::int32_t>(first), range.last});
        }
    }
    return left;
}

std::string page_range_text(const PageRange& range) {
    auto text = platform::decimal_text(range.first);
    if (range.first != range.last) {
        text += '-' + platform::decimal_text(range.last);
    }
    return text;
}

} // namespace specialpages

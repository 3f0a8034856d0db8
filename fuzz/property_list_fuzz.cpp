// Any bytes as a property list. What is accepted must be in bounds, and must come back the same after
// writing.

#include "platform/foundation/property_list.h"
#include "platform/foundation/text.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <variant>

namespace {

using specialpages::platform::PropertyList;

void require(bool holds) {
    if (!holds) {
        std::abort();
    }
}

bool equal(const PropertyList& a, const PropertyList& b);

/// NaN equals NaN here; everything else is as "==" says.
struct Equal {
    bool operator()(double a, double b) const { return a == b || (std::isnan(a) && std::isnan(b)); }
    bool operator()(const PropertyList::Array& a, const PropertyList::Array& b) const {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), equal);
    }
    bool operator()(const PropertyList::Dictionary& a, const PropertyList::Dictionary& b) const {
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](const auto& left, const auto& right) {
            return left.first == right.first && equal(left.second, right.second);
        });
    }
    template <typename T>
    bool operator()(const T& a, const T& b) const {
        return a == b;
    }
    template <typename A, typename B>
    bool operator()(const A& /*a*/, const B& /*b*/) const {
        return false;
    }
};

bool equal(const PropertyList& a, const PropertyList& b) {
    return std::visit(Equal{}, a.value, b.value);
}

/// Depth of containers; every text on the way must be well-formed.
int checked_depth(const PropertyList& list) {
    int depth = 0;
    if (const auto* array = std::get_if<PropertyList::Array>(&list.value)) {
        for (const auto& item : *array) {
            depth = std::max(depth, checked_depth(item));
        }
        return depth + 1;
    }
    if (const auto* dictionary = std::get_if<PropertyList::Dictionary>(&list.value)) {
        for (const auto& [key, item] : *dictionary) {
            require(specialpages::platform::is_valid_utf8(key));
            require(list.find(key) == &item); // no key stands twice
            depth = std::max(depth, checked_depth(item));
        }
        return depth + 1;
    }
    require(list.text() == nullptr || specialpages::platform::is_valid_utf8(*list.text()));
    return depth;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using specialpages::platform::parse_property_list;
    using specialpages::platform::write_property_list;
    std::string error;
    const auto first =
        parse_property_list(std::string_view(reinterpret_cast<const char*>(data), size), &error);
    require(first.has_value() == error.empty());
    if (!first) {
        return 0;
    }
    require(checked_depth(*first) <= specialpages::platform::kMaxPropertyListDepth);
    const std::string written = write_property_list(*first);
    const auto second = parse_property_list(written);
    require(second && equal(*first, *second) && write_property_list(*second) == written);
    return 0;
}

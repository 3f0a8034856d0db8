// A set of rows of the list of special pages, 0-based and ascending.
#pragma once

#include <cstddef>
#include <set>

namespace specialpages {

using RowSet = std::set<std::size_t>;

} // namespace specialpages

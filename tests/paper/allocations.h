// Counts what this test program allocates. Where a sanitizer keeps the allocator its hook counts, elsewhere
// the program's own operator new does.
#pragma once

#include <cstddef>

namespace specialpages::test {

/// How many blocks were allocated since the program began.
std::size_t allocations();

} // namespace specialpages::test

// Counts what is asked of the heap. A program that links this has every call of malloc and its like counted, those of
// other libraries included, and runs a little slower; so it is kept out of programs that measure time.
#pragma once

#include <cstddef>

namespace bench {

struct MemoryUse {
    std::size_t allocations; // calls that gave a block, a block that was resized included
    std::size_t peak;        // the most bytes that were asked for and not given back, at any one time
};

// Counts from here on, relative to what is in use now.
void startMemoryUse();
MemoryUse memoryUse();

} // namespace bench

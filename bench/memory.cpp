#include "bench/memory.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <limits>

// How glibc offers its own operations to programs that replace them.
extern "C" {
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* memory);
}

namespace {

std::size_t allocations = 0;
std::size_t inUse = 0;
std::size_t peak = 0;

// Stands before every block, since the size that was asked for is known nowhere else.
struct Head {
    std::size_t size;
    void* whole; // what glibc gave
};

constexpr std::size_t leastAlignment = 16;
static_assert(sizeof(Head) <= leastAlignment);

Head* headOf(void* block)
{
    return static_cast<Head*>(block) - 1;
}

void* allocate(std::size_t size, std::size_t alignment = leastAlignment)
{
    alignment = std::max(alignment, leastAlignment);
    char* whole = nullptr;
    if (size <= std::numeric_limits<std::size_t>::max() / 2)
        whole = static_cast<char*>(__libc_memalign(alignment, alignment + size));
    if (!whole) {
        errno = ENOMEM;
        return nullptr;
    }
    void* block = whole + alignment;
    *headOf(block) = {size, whole};
    ++allocations;
    inUse += size;
    peak = std::max(peak, inUse);
    return block;
}

void release(void* block)
{
    if (!block)
        return;
    inUse -= headOf(block)->size;
    __libc_free(headOf(block)->whole);
}

} // namespace

extern "C" {

void* malloc(std::size_t size)
{
    return allocate(size);
}

void free(void* block)
{
    release(block);
}

void* calloc(std::size_t n, std::size_t size)
{
    if (size != 0 && n > std::numeric_limits<std::size_t>::max() / size)
        return nullptr;
    void* block = allocate(n * size);
    return block ? std::memset(block, 0, n * size) : nullptr;
}

// Always moves, so that both blocks count while it copies, as they do where the heap can not resize in place.
void* realloc(void* block, std::size_t size)
{
    if (block && size == 0) {
        release(block);
        return nullptr;
    }
    void* other = allocate(size);
    if (block && other) {
        std::memcpy(other, block, std::min(size, headOf(block)->size));
        release(block);
    }
    return other;
}

void* memalign(std::size_t alignment, std::size_t size)
{
    return allocate(size, alignment);
}

void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    return allocate(size, alignment);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size)
{
    void* memory = allocate(size, alignment);
    if (!memory)
        return ENOMEM;
    *block = memory;
    return 0;
}

std::size_t malloc_usable_size(void* block)
{
    return block ? headOf(block)->size : 0;
}

} // extern "C"

namespace bench {

namespace {
std::size_t allocationsBefore;
std::size_t inUseBefore;
} // namespace

void startMemoryUse()
{
    allocationsBefore = allocations;
    inUseBefore = inUse;
    peak = inUse;
}

MemoryUse memoryUse()
{
    return {allocations - allocationsBefore, peak - inUseBefore};
}

} // namespace bench

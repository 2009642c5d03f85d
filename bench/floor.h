// The least that a reader of lines does: copy the text, find the line ends, one allocation a line, free it all.
#pragma once

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

namespace bench {

struct FloorLine {
    FloorLine* next;
    std::size_t size;
    // The bytes of the line stand behind this.
};

inline void* floorMemory(std::size_t size)
{
    void* memory = std::malloc(size);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

inline FloorLine* floorLine(const char* from, std::size_t size)
{
    auto* line = static_cast<FloorLine*>(floorMemory(sizeof(FloorLine) + size));
    line->next = nullptr;
    line->size = size;
    std::memcpy(line + 1, from, size);
    return line;
}

// Gives the number of lines.
inline std::size_t floorRead(const std::string& text)
{
    auto* copy = static_cast<char*>(floorMemory(text.size() + 1));
    std::memcpy(copy, text.data(), text.size());

    FloorLine* first = nullptr;
    FloorLine** last = &first;
    for (const char *at = copy, *end = copy + text.size(); at < end;) {
        const auto* feed = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
        const char* lineEnd = feed ? feed : end;
        const bool returns = lineEnd > at && lineEnd[-1] == '\r';
        *last = floorLine(at, static_cast<std::size_t>(lineEnd - at) - (returns ? 1 : 0));
        last = &(*last)->next;
        at = lineEnd + 1;
    }

    std::size_t n = 0;
    for (FloorLine* line = first; line; ++n) {
        FloorLine* next = line->next;
        std::free(line);
        line = next;
    }
    std::free(copy);
    return n;
}

} // namespace bench

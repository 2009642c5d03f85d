// Texts that are made to cost a reader more than their size.
#pragma once

#include <string>
#include <vector>

namespace bench {

struct Shape {
    const char* name;
    std::string (*make)(std::size_t size); // of about that many bytes
};

const std::vector<Shape>& hostileShapes();

// The size for which memory is told.
constexpr std::size_t hostileMemorySize = 4 << 20;

} // namespace bench

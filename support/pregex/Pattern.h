// A pattern's text, taken apart into steps.
#pragma once

#include <cstdint>
#include <string_view>

#include "support/pregex/SmallArray.h"

namespace ym::pregex {

// A set of bytes.
struct ByteSet {
    std::uint64_t words[4];

    constexpr bool has(unsigned char c) const { return (words[c / 64] >> (c % 64) & 1) != 0; }
};

// One element of a pattern, with its repetition.
struct Step {
    enum Kind : unsigned char {
        Begin,    // ^
        End,      // $
        Open,     // (
        Close,    // )
        Once,     // x
        Optional, // x{0,1}
        Star,     // x*
        Plus,     // x+
    };

    Kind kind;
    unsigned char group; // of Open and Close
    ByteSet set;         // of all others but Begin and End

    bool repeats() const { return kind >= Optional; }
};

// The steps of a pattern, which have to match one behind the other.
struct Pattern {
    SmallArray<Step, 32> steps;
    unsigned int nGroups = 0;
    bool usable = false; // false if the text holds a construct that is not supported

    explicit Pattern(std::string_view text);
    Pattern() = default;
};

} // namespace ym::pregex

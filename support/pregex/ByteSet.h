#pragma once

#include <array>
#include <string_view>

namespace ym::pregex {

// A set of bytes: one entry for each byte, not 0 for the members. It is larger than a set of bits, and asking it takes
// half the time.
using ByteSet = std::array<unsigned char, 256>;

constexpr ByteSet anyOf(std::string_view bytes)
{
    ByteSet set = {};
    for (const char c : bytes)
        set[static_cast<unsigned char>(c)] = 1;
    return set;
}

constexpr ByteSet allBut(const ByteSet& others)
{
    ByteSet set = {};
    for (std::size_t c = 0; c < set.size(); ++c)
        set[c] = !others[c];
    return set;
}

constexpr void addAll(ByteSet& set, const ByteSet& members)
{
    for (std::size_t c = 0; c < set.size(); ++c)
        set[c] |= members[c];
}

constexpr void removeAll(ByteSet& set, const ByteSet& members)
{
    for (std::size_t c = 0; c < set.size(); ++c)
        set[c] = set[c] > members[c];
}

constexpr bool haveCommon(const ByteSet& a, const ByteSet& b)
{
    unsigned int common = 0;
    for (std::size_t c = 0; c < a.size(); ++c)
        common |= a[c] & b[c];
    return common != 0;
}

// The sets that patterns name without brackets.
inline constexpr ByteSet space = anyOf(" \t\n\v\f\r");
inline constexpr ByteSet notSpace = allBut(space);
inline constexpr ByteSet digit = anyOf("0123456789");
inline constexpr ByteSet notNewline = allBut(anyOf("\n"));

} // namespace ym::pregex

#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace ym::pregex {

// A set of bytes.
struct ByteSet {
    std::uint64_t words[4];

    constexpr bool has(unsigned char c) const { return (words[c / 64] >> (c % 64) & 1) != 0; }
    constexpr void add(unsigned char c) { words[c / 64] |= std::uint64_t{1} << (c % 64); }
};

constexpr ByteSet operator|(const ByteSet& a, const ByteSet& b)
{
    return {{a.words[0] | b.words[0], a.words[1] | b.words[1], a.words[2] | b.words[2], a.words[3] | b.words[3]}};
}

constexpr ByteSet operator~(const ByteSet& a)
{
    return {{~a.words[0], ~a.words[1], ~a.words[2], ~a.words[3]}};
}

constexpr bool haveCommon(const ByteSet& a, const ByteSet& b)
{
    return ((a.words[0] & b.words[0]) | (a.words[1] & b.words[1]) | (a.words[2] & b.words[2])
            | (a.words[3] & b.words[3]))
        != 0;
}

constexpr ByteSet anyOf(std::string_view bytes)
{
    ByteSet set = {};
    for (const char c : bytes)
        set.add(static_cast<unsigned char>(c));
    return set;
}

// The sets that patterns name without brackets. They stand ready, so that making a pattern copies none.
constexpr ByteSet noByte = {};
constexpr ByteSet anyByte = ~noByte;
constexpr ByteSet space = anyOf(" \t\n\v\f\r");
constexpr ByteSet notSpace = ~space;
constexpr ByteSet digit = anyOf("0123456789");
constexpr ByteSet notNewline = ~anyOf("\n");

constexpr std::array<ByteSet, 256> eachByteAlone()
{
    std::array<ByteSet, 256> sets = {};
    for (unsigned int c = 0; c < sets.size(); ++c)
        sets[c].add(static_cast<unsigned char>(c));
    return sets;
}

} // namespace ym::pregex

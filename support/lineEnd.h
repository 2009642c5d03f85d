// Where a line of a text ends: at each of "\r\n", "\n" and "\r".
#pragma once

#include <endian.h>

#include <cstdint>
#include <cstring>

namespace ym {

inline bool endsLine(char c)
{
    return c == '\n' || c == '\r';
}

// The first byte up to '\r' in value, or `end`. Eight bytes at a time: hardly any byte of a text is that small, so that
// this finds either kind of line end in one go.
inline const char* findLowByte(const char* begin, const char* end)
{
    constexpr std::uint64_t each = ~std::uint64_t{0} / 255; // 1 in each byte
    for (; end - begin >= 8; begin += 8) {
        std::uint64_t bytes = 0;
        std::memcpy(&bytes, begin, 8);
        bytes = le64toh(bytes);
        const std::uint64_t low = (bytes - each * ('\r' + 1)) & ~bytes & (each * 0x80); // its lowest bit is right
        if (low != 0)
            return begin + __builtin_ctzll(low) / 8;
    }
    while (begin != end && static_cast<unsigned char>(*begin) > '\r')
        ++begin;
    return begin;
}

// The first byte that ends a line, or `end`.
inline const char* findLineEnd(const char* begin, const char* end)
{
    for (;; ++begin) {
        begin = findLowByte(begin, end);
        if (begin == end || endsLine(*begin))
            return begin;
    }
}

// The place behind a line end that stands here. At `end` there is none, and nothing behind it.
inline const char* behindLineEnd(const char* at, const char* end)
{
    if (end - at >= 2 && at[0] == '\r' && at[1] == '\n')
        return at + 2;
    return at == end ? end : at + 1;
}

} // namespace ym

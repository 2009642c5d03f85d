#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

#include <tovik/String.h>

namespace ym {

// All bytes of a string, NUL bytes among them too.
inline std::string_view view(const String& text)
{
    return {text.chars(), text.length()};
}

// What stands behind the first `n` bytes, of which there must be so many.
inline std::string_view behind(std::string_view text, std::size_t n)
{
    text.remove_prefix(n);
    return text;
}

// Writes bytes to a place with room for them, and gives the place behind them.
inline char* copy(char* to, std::string_view bytes)
{
    if (!bytes.empty())
        std::memcpy(to, bytes.data(), bytes.size());
    return to + bytes.size();
}

} // namespace ym

// White space and digits, whatever the locale.
#pragma once

#include <string_view>

namespace ym {

inline bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

inline bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

inline std::string_view withoutSpaceBefore(std::string_view text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    return text;
}

inline std::string_view withoutSpaceBehind(std::string_view text)
{
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

} // namespace ym

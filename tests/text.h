// Strings of the library as those of the standard library, and back, NUL bytes among them.
#pragma once

#include <string>

#include <tovik/String.h>

namespace test {

inline std::string str(const ym::String& text)
{
    return {text.chars(), text.length()};
}

inline ym::String bytes(const std::string& text)
{
    ym::String result;
    result.append(text.data(), static_cast<unsigned int>(text.size()));
    return result;
}

} // namespace test

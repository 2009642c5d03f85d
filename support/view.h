#pragma once

#include <string_view>

#include <tovik/String.h>

namespace ym {

// All bytes of a string, NUL bytes among them too.
inline std::string_view view(const String& text)
{
    return {text.chars(), text.length()};
}

} // namespace ym

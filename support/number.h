#pragma once

#include <charconv>
#include <cstdint>
#include <limits>
#include <string_view>
#include <system_error>

#include "support/ascii.h"

namespace ym {

// The value of a text as a number in `base` (2 to 36), with white space around it or not. 0 for any other text, and the
// largest value of the width for a number that is too large. `*ok`, unless `ok` is null, tells whether it is a number
// that fits.
template <class Width> Width toAnyNumber(std::string_view text, bool* ok, int base)
{
    const std::string_view digits = withoutSpaceBehind(withoutSpaceBefore(text));
    const char* end = digits.data() + digits.size();
    Width number = 0;
    std::from_chars_result result = {digits.data(), std::errc::invalid_argument};
    if (base >= 2 && base <= 36)
        result = std::from_chars(digits.data(), end, number, base);
    const bool whole = result.ec != std::errc::invalid_argument && result.ptr == end;
    const bool fits = whole && result.ec == std::errc();
    if (ok)
        *ok = fits;
    if (fits)
        return number;
    return whole ? std::numeric_limits<Width>::max() : Width(0);
}

// The same with the base 10, without `ok`, and faster.
template <class Width> Width toNumber(std::string_view text)
{
    // What nearly all texts are: few digits and nothing else.
    constexpr std::size_t most = 9;
    std::uint32_t number = 0;
    std::size_t n = 0;
    for (; n < text.size() && n < most && isDigit(text[n]); ++n)
        number = number * 10 + static_cast<std::uint32_t>(text[n] - '0');
    if (n == text.size() && number <= std::numeric_limits<Width>::max())
        return static_cast<Width>(number);
    return toAnyNumber<Width>(text, nullptr, 10);
}

} // namespace ym

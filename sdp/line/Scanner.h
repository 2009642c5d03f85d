#pragma once

#include <algorithm>
#include <string_view>

#include "support/ascii.h"

namespace ym::SDP {

// Takes the value of a line apart, from its beginning on. Each step goes as far as it can and never back, so that a
// value of any kind is read once; it is false where it finds nothing, and what it found is left alone then.
//
//     // 2873397496 2873404696
//     Scanner at(value);
//     if (!at.digits(&start) || !at.space() || !at.digits(&stop) || !at.isEnd())
//         return;
class Scanner {
public:
    explicit Scanner(std::string_view text) : rest_(text) { }

    // One or more bytes that are not white space.
    bool word(std::string_view* found)
    {
        return take(found, [](char c) { return !isSpace(c); });
    }

    // The same, but none of `others`.
    bool wordWithout(std::string_view others, std::string_view* found)
    {
        return take(found, [others](char c) {
            return !isSpace(c) && std::find(others.begin(), others.end(), c) == others.end();
        });
    }

    // One or more digits.
    bool digits(std::string_view* found) { return take(found, isDigit); }

    // White space, as much as there is.
    bool space()
    {
        std::string_view found;
        return take(&found, isSpace);
    }

    // One byte.
    bool byte(char c)
    {
        if (isEnd() || rest_.front() != c)
            return false;
        rest_.remove_prefix(1);
        return true;
    }

    // A word that reaches to the end, or nothing, which is empty, if nothing is left.
    bool lastWord(std::string_view* found)
    {
        *found = {};
        return isEnd() || (word(found) && isEnd());
    }

    bool isEnd() const { return rest_.empty(); }
    std::string_view rest() const { return rest_; }

private:
    template <class Allowed> bool take(std::string_view* found, Allowed allowed)
    {
        std::size_t n = 0;
        while (n < rest_.size() && allowed(rest_[n]))
            ++n;
        if (n == 0)
            return false;
        *found = rest_.substr(0, n);
        rest_.remove_prefix(n);
        return true;
    }

    std::string_view rest_;
};

} // namespace ym::SDP

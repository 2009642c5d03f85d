#include "text.h"

#include <algorithm>
#include <cctype>

namespace ymsdp {

namespace {

bool isContinuation(unsigned char byte)
{
    return (byte & 0xC0U) == 0x80U;
}

// The bounds of a character's second byte: they keep out the control characters from U+0080 on, longer forms than
// needed, surrogates, and what is above U+10FFFF.
bool isSecondOf(unsigned char first, unsigned char second)
{
    const unsigned char least = first == 0xC2 || first == 0xE0 ? 0xA0 : first == 0xF0 ? 0x90 : 0x80;
    const unsigned char most = first == 0xED ? 0x9F : first == 0xF4 ? 0x8F : 0xBF;
    return second >= least && second <= most;
}

std::size_t lengthFrom(unsigned char first)
{
    if (first < 0x80)
        return 1;
    if (first < 0xC2 || first > 0xF4)
        return 0;
    return first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

// The number of bytes of the printable character that the text begins with; 0 if it begins with none.
std::size_t printableLength(std::string_view text)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const std::size_t length = lengthFrom(byte(0));
    if (length == 1)
        return byte(0) >= 0x20 && byte(0) != 0x7F ? 1 : 0;
    if (length > text.size() || length == 0 || !isSecondOf(byte(0), byte(1)))
        return 0;
    for (std::size_t i = 2; i < length; ++i) {
        if (!isContinuation(byte(i)))
            return 0;
    }
    return length;
}

std::string escape(char c)
{
    static constexpr char digits[] = "0123456789abcdef";
    const auto byte = static_cast<unsigned char>(c);
    return {'\\', 'x', digits[byte >> 4U], digits[byte & 0xFU]};
}

} // namespace

std::string_view view(const ym::String& text)
{
    return {text.chars(), text.length()};
}

ym::String stringOf(std::string_view text)
{
    ym::String result;
    result.assign(text);
    return result;
}

std::string printable(std::string_view text)
{
    std::string out;
    while (!text.empty()) {
        const std::size_t length = printableLength(text);
        if (length == 0)
            out += escape(text[0]);
        else
            out += text.substr(0, length);
        text.remove_prefix(length == 0 ? 1 : length);
    }
    return out;
}

std::string quote(std::string_view line)
{
    constexpr std::size_t longest = 100;
    std::size_t n = std::min(longest, line.size());
    while (n > 0 && n < line.size() && isContinuation(static_cast<unsigned char>(line[n])))
        --n;
    return '"' + printable(line.substr(0, n)) + (n < line.size() ? "..." : "") + '"';
}

std::vector<std::string_view> words(std::string_view text)
{
    std::vector<std::string_view> result;
    for (std::size_t begin = 0; (begin = text.find_first_not_of(" \t", begin)) != none;) {
        const std::size_t end = std::min(text.find_first_of(" \t", begin), text.size());
        result.push_back(text.substr(begin, end - begin));
        begin = end;
    }
    return result;
}

bool beginsWith(std::string_view text, std::string_view beginning)
{
    const auto lower = [](char c) { return std::tolower(static_cast<unsigned char>(c)); };
    return text.size() >= beginning.size()
        && std::equal(beginning.begin(), beginning.end(), text.begin(),
                      [&](char a, char b) { return lower(a) == lower(b); });
}

} // namespace ymsdp

// The form of a line, "x=value", taken apart and put together. No other file knows it.
#pragma once

#include <charconv>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string_view>

#include <tovik/String.h>

#include "support/view.h"

namespace ym::SDP {

// Taken apart: one line, without its line end

inline char typeOf(const String& line)
{
    return line.chars()[0];
}

// A bit for each lower-case letter, which the type of a line is.
constexpr std::uint32_t bitOf(char type)
{
    return std::uint32_t{1} << (type - 'a');
}

constexpr std::uint32_t bitsOf(std::string_view types)
{
    std::uint32_t bits = 0;
    for (const char type : types)
        bits |= bitOf(type);
    return bits;
}

// Whether a text is a line of a description: of a type that there is, and with a value, empty or not.
inline bool isLine(std::string_view text)
{
    constexpr std::uint32_t types = bitsOf("vosiuepcbzktram");
    return text.size() >= 2 && text[1] == '=' && text[0] >= 'a' && text[0] <= 'z' && (types & bitOf(text[0])) != 0;
}

// Whether the line has a place for a value, empty or not.
inline bool hasValue(std::string_view line)
{
    return line.size() >= 2;
}

inline std::string_view valueOf(std::string_view line)
{
    return behind(line, 2);
}

// What the interface gives as a text that ends at the first NUL.
inline std::string_view untilNul(std::string_view text)
{
    const void* const nul = text.empty() ? nullptr : std::memchr(text.data(), '\0', text.size());
    return nul ? text.substr(0, static_cast<std::size_t>(static_cast<const char*>(nul) - text.data())) : text;
}

// A name, and its value behind a separator, if it has one.
struct NameValue {
    std::string_view name;
    std::string_view separator;
    std::string_view value;
};

// The value of an attribute line: "name:value", or "name".
inline NameValue cut(std::string_view value)
{
    const std::size_t colon = value.find(':');
    if (colon == std::string_view::npos)
        return {value, {}, {}};
    return {value.substr(0, colon), ":", behind(value, colon + 1)};
}

// Whether a text reads as the word up to its first NUL. Most texts differ in their first character.
inline bool isText(std::string_view text, std::string_view word)
{
    if (text.size() < word.size() || (!word.empty() && text.front() != word.front()))
        return false;
    return text.substr(0, word.size()) == word && (text.size() == word.size() || text[word.size()] == '\0');
}

inline bool isEmpty(const String& text)
{
    return *text.chars() == '\0';
}

// Put together: pieces of text, one behind the other, at the end of a String or a Writer

inline NameValue nameValue(std::string_view name, std::string_view separator, std::string_view value)
{
    return {untilNul(name), separator, untilNul(value)};
}

// The decimal digits of a number.
struct Digits {
    char digits[20];
    std::size_t length;
};

inline Digits number(unsigned long n)
{
    Digits text;
    text.length = static_cast<std::size_t>(std::to_chars(text.digits, std::end(text.digits), n).ptr - text.digits);
    return text;
}

// A piece as the bytes that it adds.
inline std::string_view bytesOf(std::string_view text)
{
    return text;
}

inline std::string_view bytesOf(const char* text)
{
    return text;
}

inline std::string_view bytesOf(const String& text)
{
    return text.chars();
}

inline std::string_view bytesOf(const Digits& number)
{
    return {number.digits, number.length};
}

inline NameValue bytesOf(const NameValue& pair)
{
    return pair.value.empty() ? NameValue{pair.name, {}, {}} : pair;
}

inline std::size_t lengthOf(std::string_view bytes)
{
    return bytes.size();
}

inline std::size_t lengthOf(const NameValue& pair)
{
    return pair.name.size() + pair.separator.size() + pair.value.size();
}

using ym::copy;

inline char* copy(char* to, const NameValue& pair)
{
    return copy(copy(copy(to, pair.name), pair.separator), pair.value);
}

template <class Out, class... Bytes> [[gnu::always_inline]] inline void putBytes(Out& out, const Bytes&... bytes)
{
    char* to = out.extend((std::size_t{0} + ... + lengthOf(bytes)));
    ((to = copy(to, bytes)), ...);
}

// Pieces are strings, which end at their first NUL, other texts, numbers, and names with values.
template <class Out, class... Pieces> [[gnu::always_inline]] inline void put(Out& out, const Pieces&... pieces)
{
    putBytes(out, bytesOf(pieces)...);
}

// "x=" and the pieces. A type of 0 adds nothing, like any other NUL.
template <class Out, class... Pieces>
[[gnu::always_inline]] inline void putBare(Out& out, char type, const Pieces&... pieces)
{
    const char head[] = {type, '='};
    put(out, behind({head, sizeof head}, type == '\0' ? 1 : 0), pieces...);
}

// The same, with the line end of the wire.
constexpr std::string_view lineEnd = "\r\n";

template <class Out, class... Pieces>
[[gnu::always_inline]] inline void putLine(Out& out, char type, const Pieces&... pieces)
{
    putBare(out, type, pieces..., lineEnd);
}

template <class Out> void putLineEnd(Out& out)
{
    put(out, lineEnd);
}

} // namespace ym::SDP

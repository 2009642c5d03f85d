// The form of a line, "x=value", taken apart and put together. No other file knows it.
#pragma once

#include <algorithm>
#include <cstring>

#include <tovik/String.h>

namespace ym::SDP {

// Taken apart: one line of a list, without its line end

inline char typeOf(const String& line)
{
    return line.chars()[0];
}

// Whether the line has a place for a value, empty or not.
inline bool hasValue(const String& line)
{
    return line.length() >= 2;
}

inline const char* valueOf(const String& line)
{
    return line.chars() + 2;
}

// Replaces a text by a part of a line. Unlike an assignment of a substring, this makes use of the memory that the text
// has already.
inline void copyPart(const String& line, unsigned int start, unsigned int end, String* out)
{
    out->assign(line.chars() + start, end - start);
    if (out->length() < end - start)
        out->append("", 1); // a NUL at the end of the part belongs to it
}

// a=name:value, or a=name
inline void cut(const String& line, String* name, String* value)
{
    const unsigned int end = line.length();
    const unsigned int colon = line.find(':', 2);
    if (name)
        copyPart(line, 2, std::min(colon, end), name);
    if (value)
        copyPart(line, colon < end ? colon + 1 : end, end, value);
}

// Put together: pieces of text, one behind the other

inline bool isEmpty(const String& text)
{
    return *text.chars() == '\0';
}

// Most texts differ in their first character from the one that they are compared with.
inline bool isText(const String& text, const char* word)
{
    return *text.chars() == *word && std::strcmp(text.chars(), word) == 0;
}

// A name, and its value behind a separator, if it has one.
struct NameValue {
    const String& name;
    const char* separator;
    const String& value;
};

inline NameValue nameValue(const String& name, const char* separator, const String& value)
{
    return {name, separator, value};
}

inline String number(unsigned long n)
{
    String digits;
    digits.setNum(n);
    return digits;
}

inline void put(String& out, const char* text)
{
    out.append(text);
}

inline void put(String& out, const String& text)
{
    out.append(text.chars());
}

inline void put(String& out, const NameValue& pair)
{
    put(out, pair.name);
    if (!isEmpty(pair.value)) {
        put(out, pair.separator);
        put(out, pair.value);
    }
}

// "x=" and the pieces.
template <class... Pieces> void putBare(String& out, char type, const Pieces&... pieces)
{
    const char head[] = {type, '\0'};
    put(out, head);
    put(out, "=");
    (put(out, pieces), ...);
}

// The same, with the line end of the wire.
template <class... Pieces> void putLine(String& out, char type, const Pieces&... pieces)
{
    putBare(out, type, pieces...);
    put(out, "\r\n");
}

} // namespace ym::SDP

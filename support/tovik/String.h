#pragma once

#include <cstddef>
#include <string_view>

#include <tovik/export.h>

namespace ym {

// A text with value semantics: a run of bytes with a NUL byte behind the last one.
//
// Bytes may have any value, NUL included; an operation that takes a `const char*` ends its argument at the first
// NUL, and reads a null pointer as the empty text. An argument may point into the string that it is handed to.
// Positions count from 0, and positions beyond the end mean the end. A text holds at most 4294967294 bytes; what
// would make it longer throws std::length_error and changes nothing. Nothing changes either where memory runs out and
// std::bad_alloc passes through.
class YM_EXPORT String {
public:
    // The position that stands for "none" as a result of find, and for "the end" as an argument of substring.
    static constexpr unsigned int npos = 0xFFFFFFFF;

    // The empty text, a text, or the bytes of another string.
    String();
    String(const char* text);
    String(const String& other);
    String(String&& other) noexcept; // leaves `other` empty
    ~String();

    // A string that reads `length` bytes where they stand, without a copy. A NUL must stand behind them, and both must
    // outlive the string and whatever it is moved to. Copies are independent, and a change gives the string memory of
    // its own.
    static String inPlace(const char* text, unsigned int length);

    // Replaces the content by a text, or by the bytes of another string.
    String& operator=(const char* text);
    String& operator=(const String& other);
    String& operator=(String&& other) noexcept; // leaves `other` empty

    // The characters with a NUL behind them, never null. Valid until the string is next changed.
    const char* chars() const { return text_; }

    // The number of bytes, without the NUL behind them.
    unsigned int length() const { return length_; }

    // Adds a text at the end.
    String& append(const char* text);

    // Adds `n` bytes at the end, NUL bytes among them too.
    String& append(const void* data, unsigned int n);

    // Adds room for `n` bytes at the end and gives its beginning. The caller fills all of it before any other use.
    char* extend(unsigned long n);

    // Cuts the text to its first `n` bytes. A text that is not longer stays as it is.
    String& shorten(unsigned int n);

    // Replaces the content by a text.
    String& assign(const char* text);

    // Replaces the content by `n` bytes. If the last of them is a NUL, it is not counted: it is taken for the
    // one that stands behind every string.
    String& assign(const void* data, unsigned int n);

    // Replaces the content by bytes, NUL bytes among them too.
    String& assign(std::string_view bytes);

    // The position of the first `c` at or behind `start`, or npos.
    unsigned int find(char c, unsigned int start) const;

    // The bytes from `start` up to but not including `end`; empty if `end` is not behind `start`.
    String substring(unsigned int start, unsigned int end) const;

    // Compares the `n` bytes from `pos` on with the whole of `other`: 0 if equal, below 0 if they sort before it,
    // above 0 if behind it. Where fewer than `n` bytes are left, those are compared.
    int compare(const String& other, unsigned int pos, unsigned int n) const;

    // Replaces the content by `n` in decimal digits, without sign or leading zeros.
    String& setNum(unsigned long n);
    String& setNum(unsigned short n);

    // The value of the text as a number in `base` (2 to 36).
    //
    // The whole text must be digits of that base; white space around them is ignored, a sign is not taken.
    // Anything else, the empty text included, gives 0; a number too large for the width gives the largest value
    // of that width. If `ok` is not null, `*ok` becomes true for a number that fits and false otherwise.
    unsigned short toUInt16(bool* ok, int base) const;
    unsigned long toUInt32(bool* ok, int base) const; // 32 bits wide on every host

private:
    static constexpr unsigned int ownCapacity = 15;

    YM_HIDDEN bool isOwn() const { return text_ == own_; }
    YM_HIDDEN bool isInPlace() const { return capacity_ == 0; }
    YM_HIDDEN void setLength(unsigned int length);
    YM_HIDDEN void leavePlace();
    YM_HIDDEN void replace(const char* bytes, std::size_t n);
    YM_HIDDEN void replaceLong(const char* bytes, std::size_t n);
    YM_HIDDEN void add(const char* bytes, std::size_t n);
    YM_HIDDEN void grow(std::size_t n);
    YM_HIDDEN void takeOver(String& other);
    YM_HIDDEN void release();

    char* text_;            // in own_, or on the heap, or where somebody else keeps it
    unsigned int length_;   // the NUL behind the text is not counted
    unsigned int capacity_; // nor here; 0 for a text in place
    char own_[ownCapacity + 1];
};

} // namespace ym

#include <tovik/String.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <functional>
#include <limits>
#include <stdexcept>

#include "support/number.h"
#include "support/view.h"

namespace ym {

namespace {

constexpr std::size_t longest = String::npos - 1;

std::size_t lengthOf(const char* text)
{
    return text ? std::strlen(text) : 0;
}

} // namespace

// What all changes rest on

void String::setLength(unsigned int length)
{
    length_ = length;
    text_[length] = '\0';
}

void String::release()
{
    if (!isOwn() && !isInPlace())
        delete[] text_;
}

// Empties a string that has no memory of its own.
void String::leavePlace()
{
    text_ = own_;
    capacity_ = ownCapacity;
    setLength(0);
}

// The bytes may be a part of this string.
void String::replace(const char* bytes, std::size_t n)
{
    if (isInPlace() && n <= ownCapacity)
        leavePlace();
    if (n > capacity_) {
        replaceLong(bytes, n);
        return;
    }
    if (n > 0)
        std::memmove(text_, bytes, n);
    setLength(static_cast<unsigned int>(n));
}

// The same for what does not fit.
[[gnu::noinline]] void String::replaceLong(const char* bytes, std::size_t n)
{
    // Lengths are 32 bits wide in the interface, so a longer text could not be told apart from a short one.
    if (n > longest)
        throw std::length_error("ym::String: text too long");
    char* const text = new char[n + 1];
    std::memcpy(text, bytes, n);
    release();
    text_ = text;
    capacity_ = static_cast<unsigned int>(n);
    setLength(capacity_);
}

// Makes room for `n` more bytes, in memory of the string's own. Kept out of line, so that those who seldom need it stay
// short.
[[gnu::noinline]] void String::grow(std::size_t n)
{
    if (n > longest - length_)
        throw std::length_error("ym::String: text too long");
    // Never 0, not even for nothing behind an empty text in place: that would read as in place again.
    const std::size_t capacity = std::min(std::max<std::size_t>({length_ + n, std::size_t{2} * capacity_, 1}), longest);
    char* const text = new char[capacity + 1];
    std::memcpy(text, text_, length_ + std::size_t{1});
    release();
    text_ = text;
    capacity_ = static_cast<unsigned int>(capacity);
}

// The bytes may be a part of this string, and reach to the NUL behind it.
void String::add(const char* bytes, std::size_t n)
{
    if (n == 0)
        return;
    const bool isPart = !std::less<>()(bytes, text_) && !std::less<>()(text_ + length_, bytes);
    const std::size_t offset = isPart ? static_cast<std::size_t>(bytes - text_) : 0;
    char* const end = extend(n);
    std::memmove(end, isPart ? text_ + offset : bytes, n);
}

// Fills this string, which must hold nothing on the heap, from another one, which becomes empty.
void String::takeOver(String& other)
{
    if (other.isOwn()) {
        text_ = own_;
        std::memcpy(own_, other.own_, sizeof own_);
    } else {
        text_ = other.text_;
        other.text_ = other.own_;
    }
    length_ = other.length_;
    capacity_ = other.capacity_;
    other.capacity_ = ownCapacity;
    other.setLength(0);
}

// The operations

String::String() : text_(own_), length_(0), capacity_(ownCapacity)
{
    own_[0] = '\0';
}

String::String(const char* text) : text_(own_), length_(0), capacity_(ownCapacity)
{
    const std::size_t n = lengthOf(text);
    if (n > ownCapacity)
        replaceLong(text, n);
    else
        std::memcpy(own_, text ? text : "", n + 1);
    length_ = static_cast<unsigned int>(n);
}

String::String(const String& other) : String()
{
    replace(other.text_, other.length_);
}

String String::inPlace(const char* text, unsigned int length)
{
    String string;
    string.text_ = const_cast<char*>(text); // never written to, since there is no capacity
    string.length_ = length;
    string.capacity_ = 0;
    return string;
}

String::String(String&& other) noexcept
{
    takeOver(other);
}

String::~String()
{
    release();
}

String& String::operator=(const char* text)
{
    return assign(text);
}

String& String::operator=(const String& other)
{
    replace(other.text_, other.length_);
    return *this;
}

String& String::operator=(String&& other) noexcept
{
    if (this != &other) {
        release();
        takeOver(other);
    }
    return *this;
}

String& String::append(const char* text)
{
    add(text, lengthOf(text));
    return *this;
}

String& String::append(const void* data, unsigned int n)
{
    add(static_cast<const char*>(data), n);
    return *this;
}

char* String::extend(unsigned long n)
{
    if (isInPlace() || n > capacity_ - length_)
        grow(n);
    char* const end = text_ + length_;
    setLength(length_ + static_cast<unsigned int>(n));
    return end;
}

String& String::shorten(unsigned int n)
{
    if (n >= length_)
        return *this;
    if (isInPlace())
        replace(text_, n);
    else
        setLength(n);
    return *this;
}

String& String::assign(std::string_view bytes)
{
    replace(bytes.data(), bytes.size());
    return *this;
}

String& String::assign(const char* text)
{
    replace(text, lengthOf(text));
    return *this;
}

String& String::assign(const void* data, unsigned int n)
{
    const char* const bytes = static_cast<const char*>(data);
    replace(bytes, n > 0 && bytes[n - 1] == '\0' ? n - 1 : n);
    return *this;
}

unsigned int String::find(char c, unsigned int start) const
{
    if (start >= length_)
        return npos;
    const void* const found = std::memchr(text_ + start, c, length_ - start);
    return found ? static_cast<unsigned int>(static_cast<const char*>(found) - text_) : npos;
}

String String::substring(unsigned int start, unsigned int end) const
{
    String part;
    end = std::min(end, length_);
    if (start < end)
        part.replace(text_ + start, end - start);
    return part;
}

int String::compare(const String& other, unsigned int pos, unsigned int n) const
{
    return view(*this).substr(std::min(pos, length_), n).compare(view(other));
}

String& String::setNum(unsigned long n)
{
    char digits[std::numeric_limits<unsigned long>::digits10 + 1];
    const std::to_chars_result result = std::to_chars(digits, digits + sizeof digits, n);
    replace(digits, static_cast<std::size_t>(result.ptr - digits));
    return *this;
}

String& String::setNum(unsigned short n)
{
    return setNum(static_cast<unsigned long>(n));
}

unsigned short String::toUInt16(bool* ok, int base) const
{
    return toAnyNumber<std::uint16_t>(view(*this), ok, base);
}

unsigned long String::toUInt32(bool* ok, int base) const
{
    return toAnyNumber<std::uint32_t>(view(*this), ok, base);
}

} // namespace ym

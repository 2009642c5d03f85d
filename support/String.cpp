#include <tovik/String.h>

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace ym {

namespace {

constexpr std::size_t longest = String::npos - 1;

std::string_view view(const char* text)
{
    return text ? std::string_view(text) : std::string_view();
}

// Lengths are 32 bits wide in the interface, so a longer text could not be told apart from a short one.
std::string_view fitting(std::string_view added, std::size_t present)
{
    if (added.size() > longest - present)
        throw std::length_error("ym::String: text too long");
    return added;
}

bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

std::string_view withoutSpaceAround(std::string_view text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

template <class Width> Width toNumber(std::string_view text, bool* ok, int base)
{
    const std::string_view digits = withoutSpaceAround(text);
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

} // namespace

String::String() = default;
String::String(const char* text) : text_(fitting(view(text), 0)) { }
String::String(const String& other) = default;
String::String(String&& other) noexcept : text_(std::move(other.text_))
{
    other.text_.clear();
}
String::~String() = default;

String& String::operator=(const char* text)
{
    return assign(text);
}

String& String::operator=(const String& other) = default;

String& String::operator=(String&& other) noexcept
{
    if (this != &other) {
        text_ = std::move(other.text_);
        other.text_.clear();
    }
    return *this;
}

String& String::append(const char* text)
{
    text_.append(fitting(view(text), text_.size()));
    return *this;
}

String& String::append(const void* data, unsigned int n)
{
    if (n > 0)
        text_.append(fitting({static_cast<const char*>(data), n}, text_.size()));
    return *this;
}

String& String::assign(const char* text)
{
    text_.assign(fitting(view(text), 0));
    return *this;
}

String& String::assign(const void* data, unsigned int n)
{
    const char* bytes = static_cast<const char*>(data);
    if (n > 0 && bytes[n - 1] == '\0')
        --n;
    text_.assign(n > 0 ? fitting({bytes, n}, 0) : std::string_view());
    return *this;
}

unsigned int String::find(char c, unsigned int start) const
{
    const std::size_t at = text_.find(c, start);
    return at == std::string::npos ? npos : static_cast<unsigned int>(at);
}

String String::substring(unsigned int start, unsigned int end) const
{
    String part;
    end = std::min(end, length());
    if (start < end)
        part.text_.assign(text_, start, end - start);
    return part;
}

int String::compare(const String& other, unsigned int pos, unsigned int n) const
{
    return text_.compare(std::min(pos, length()), n, other.text_);
}

String& String::setNum(unsigned long n)
{
    char digits[std::numeric_limits<unsigned long>::digits10 + 1];
    const std::to_chars_result result = std::to_chars(digits, digits + sizeof digits, n);
    text_.assign(digits, static_cast<std::size_t>(result.ptr - digits));
    return *this;
}

String& String::setNum(unsigned short n)
{
    return setNum(static_cast<unsigned long>(n));
}

unsigned short String::toUInt16(bool* ok, int base) const
{
    return toNumber<std::uint16_t>(text_, ok, base);
}

unsigned long String::toUInt32(bool* ok, int base) const
{
    return toNumber<std::uint32_t>(text_, ok, base);
}

} // namespace ym

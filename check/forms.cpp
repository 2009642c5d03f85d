#include "check/forms.h"

#include <cctype>

#include <tovik/PRegEx.h>

#include "check/kinds.h"

namespace ym::sdpcheck {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isSpace(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

std::string_view upToNul(std::string_view text)
{
    return text.substr(0, text.find('\0'));
}

bool isNumber(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

} // namespace

bool matches(const char* pattern, std::string_view value)
{
    return PRegEx(pattern, 0).match(stringOf(upToNul(value)), 0);
}

bool isSameButForSpace(std::string_view a, std::string_view b)
{
    const auto plain = [](std::string_view text) {
        std::string result(text);
        result.erase(std::remove_if(result.begin(), result.end(), isSpace), result.end());
        return result;
    };
    return plain(a) == plain(b);
}

bool hasLargeNumber(std::string_view text, bool isWide)
{
    while (true) {
        text.remove_prefix(std::min(text.find_first_of("0123456789"), text.size()));
        const std::size_t end = std::min(text.find_first_not_of("0123456789"), text.size());
        if (end == 0)
            return false;
        const String digits = stringOf(text.substr(0, end));
        bool fits = true;
        isWide ? void(digits.toUInt32(&fits, 10)) : void(digits.toUInt16(&fits, 10));
        if (!fits)
            return true;
        text.remove_prefix(end);
    }
}

const Kind* whyRefused(const Line& line)
{
    if (line.text.empty())
        return &kind::blankLine;
    if (line.text.size() < 2 || line.text[1] != '=')
        return &kind::noLine;
    return std::string_view("vosiuepcbzktram").find(line.type()) == std::string_view::npos ? &kind::unknownType
                                                                                           : nullptr;
}

const Kind& whyLost(const Line& line)
{
    switch (line.type()) {
    case 'c':
        return matches(form::connection, line.value()) ? kind::unknownConnection : kind::malformedConnection;
    case 'b':
        return matches(form::bandwidth, line.value()) ? kind::noBandwidth : kind::malformedBandwidth;
    case 'k':
        return matches(form::key, line.value()) ? kind::unknownKeyMethod : kind::malformedKey;
    case 't':
        return kind::malformedTime;
    default:
        return kind::emptyValue;
    }
}

const Kind& whyChanged(const Line& line, std::string_view written)
{
    if (line.hasNul())
        return kind::nulByte;
    if (isSameButForSpace(line.text, written))
        return kind::spelling;
    switch (line.type()) {
    case 'v':
        return hasLargeNumber(line.value(), false) ? kind::tooLarge
            : isNumber(line.value())               ? kind::spelling
                                                   : kind::noNumber;
    case 'o':
        return kind::unknownOriginType;
    case 'c':
        return kind::connectionTail;
    default:
        return hasLargeNumber(line.value(), true) ? kind::tooLarge : kind::spelling;
    }
}

void compare(const Line& line, std::string_view written, Findings& findings)
{
    if (line.text != written)
        findings.add(line, whyChanged(line, written), written);
}

} // namespace ym::sdpcheck

// Strings and lists of names, beside those of the standard library.
#include <string>
#include <utility>
#include <vector>

#include <tovik/LineAdapter.h>
#include <tovik/NamedList.h>
#include <tovik/String.h>

#include "fuzz/Input.h"
#include "fuzz/PlainList.h"
#include "fuzz/expect.h"
#include "tests/text.h"

using namespace fuzz;
using test::bytes;
using test::str;
using ym::NamedList;
using ym::String;

namespace {

// Strings

// A number, and whether the text is one that fits.
std::pair<unsigned long long, bool> plainNumber(const std::string& text, int base, unsigned long long most)
{
    const char* const space = " \t\n\v\f\r";
    const std::size_t begin = std::min(text.find_first_not_of(space), text.size());
    const std::size_t end = text.find_last_not_of(space) + 1;
    unsigned long long number = 0;
    for (std::size_t i = begin; i < end; ++i) {
        const char c = text[i];
        const int digit = c >= '0' && c <= '9' ? c - '0'
            : c >= 'a' && c <= 'z'             ? c - 'a' + 10
            : c >= 'A' && c <= 'Z'             ? c - 'A' + 10
                                               : 99;
        if (digit >= base)
            return {0, false};
        number = std::min(number * static_cast<unsigned>(base) + static_cast<unsigned>(digit), most + 1);
    }
    return {std::min(number, most), begin < end && number <= most};
}

void numbersAreRead(Input& input)
{
    const char* const digits[]
        = {"0", "1", "9", "255", "65535", "4294967295", "42949672960", "a", "Z", " ", "-", "+", "\t"};
    std::string text;
    for (std::size_t n = input.below(6); n > 0; --n)
        text += input.below(8) == 0 ? input.bytes(2) : input.oneOf(digits);
    const int base = input.below(2) == 0 ? 10 : 2 + static_cast<int>(input.below(35));
    bool isUInt16 = false;
    bool isUInt32 = false;
    const unsigned long long uint16 = bytes(text).toUInt16(&isUInt16, base);
    const unsigned long long uint32 = bytes(text).toUInt32(&isUInt32, base);
    const std::string what = shown("the number " + text + " to the base ") + std::to_string(base);
    expect(plainNumber(text, base, 65535) == std::pair(uint16, isUInt16), what.c_str());
    expect(plainNumber(text, base, 4294967295) == std::pair(uint32, isUInt32), what.c_str());
}

// Two strings, and two of the standard library, which the same happens to.
void stringsAreEdited(Input& input)
{
    String strings[2];
    std::string plain[2];
    std::vector<std::pair<String, std::string>> copies;
    const std::string place = input.bytes(60);
    for (int i = 0; i < 100 && !input.isEmpty(); ++i) {
        const std::size_t which = input.below(2);
        String& s = strings[which];
        std::string& p = plain[which];
        const std::string added = input.bytes(input.below(8) == 0 ? 200 : 20);
        const auto at = static_cast<unsigned int>(input.below(256));
        const auto n = static_cast<unsigned int>(input.below(256));
        switch (input.below(14)) {
        case 0:
            s.append(added.c_str()), p += upToNul(added);
            break;
        case 1:
            s.append(added.data(), static_cast<unsigned int>(added.size())), p += added;
            break;
        case 2:
            s.assign(added.c_str()), p = upToNul(added);
            break;
        case 3:
            s.assign(added.data(), static_cast<unsigned int>(added.size())), p = added;
            if (!p.empty() && p.back() == '\0')
                p.pop_back();
            break;
        case 4:
            s.assign(std::string_view(added)), p = added;
            break;
        case 5: // a part of itself
            s.append(s.chars() + std::min(at, s.length())),
                p += std::string(p.c_str() + std::min<std::size_t>(at, p.size()));
            break;
        case 6:
            s.assign(s.chars() + std::min(at, s.length())),
                p = std::string(p.c_str() + std::min<std::size_t>(at, p.size()));
            break;
        case 7:
            s = strings[1 - which], p = plain[1 - which];
            break;
        case 8:
            std::swap(strings[0], strings[1]), std::swap(plain[0], plain[1]);
            break;
        case 9:
            s.shorten(n), p.resize(std::min<std::size_t>(n, p.size()));
            break;
        case 10:
            std::copy(added.begin(), added.end(), s.extend(added.size())), p += added;
            break;
        case 11:
            s = String::inPlace(place.c_str(), static_cast<unsigned int>(place.size())), p = place;
            break;
        case 12:
            s = s.substring(at, n), p = at < n && at < p.size() ? p.substr(at, n - at) : "";
            break;
        default:
            copies.emplace_back(s, p);
        }
        expectEqual(p, str(s), "a string");
        expectEqual('\0', s.chars()[s.length()], "what stands behind it");
        const std::size_t found = p.find(added.c_str()[0], at);
        expectEqual(found == std::string::npos ? String::npos : found, s.find(added.c_str()[0], at), "find");
        const std::string part = p.substr(std::min<std::size_t>(at, p.size()), n);
        const int order = s.compare(bytes(added), at, n);
        expect((order < 0) == (part < added) && (order == 0) == (part == added), "compare sorts bytes");
        if (p.size() > 100000)
            s = "", p = "";
    }
    for (const auto& [s, p] : copies)
        expectEqual(p, str(s), "a copy");
}

// Lists

using Pairs = std::vector<std::pair<std::string, std::string>>;

// Pair number n of a name, or the end.
Pairs::iterator find(Pairs& pairs, const std::string& name, std::size_t n)
{
    auto found = pairs.begin();
    for (; found != pairs.end(); ++found)
        if (found->first == name && n-- == 0)
            break;
    return found;
}

void sameAt(const NamedList& list, const Pairs& pairs, std::size_t at)
{
    String name("untouched");
    String value("untouched");
    expectEqual(at < pairs.size(), list.get(&name, &value, static_cast<unsigned int>(at)), "get");
    expectEqual(at < pairs.size() ? pairs[at].first : "untouched", str(name), "the name at a position");
    expectEqual(at < pairs.size() ? pairs[at].second : "untouched", str(value), "the value at a position");
}

// The lists grow beyond the length from which on an index finds the names, and shrink again.
void listsAreEdited(Input& input)
{
    NamedList list(":");
    Pairs pairs;
    const std::size_t nNames = 1 + input.below(64);
    const bool grows = input.below(2) == 0;
    for (int i = 0; i < 300 && !input.isEmpty(); ++i) {
        const std::string name = std::string("n\0", 2) + std::to_string(input.below(nNames));
        const std::string value = input.below(4) == 0 ? input.bytes(200) : std::to_string(i);
        const auto n = static_cast<unsigned int>(input.below(3));
        const std::size_t at = input.below(64);
        const auto found = find(pairs, name, n);
        const bool there = found != pairs.end();
        switch (const std::size_t choice = input.below(24)) {
        case 0:
        case 1:
            pairs.insert(at < pairs.size() ? pairs.begin() + static_cast<std::ptrdiff_t>(at) : pairs.end(),
                         {name, value});
            list.insert(bytes(name), bytes(value), static_cast<int>(at));
            break;
        case 2: {
            const auto first = find(pairs, name, 0);
            first == pairs.end() ? void(pairs.emplace_back(name, value)) : void(first->second = value);
            list.put(name, value);
            break;
        }
        case 3:
        case 4:
            expectEqual(there, list.replace(bytes(name), bytes(value), n), "replace");
            if (there)
                found->second = value;
            break;
        case 5: {
            NamedList other(":");
            other.add("gone", "");
            other = list;
            list.clear();
            expectEqual(0U, list.lines(), "lines, cleared");
            list = other;
            break;
        }
        default:
            if (choice < (grows ? 20U : 10U)) {
                pairs.emplace_back(name, value);
                choice % 2 == 0 ? list.add(name, value) : list.insert(bytes(name), bytes(value), -1);
            } else {
                expectEqual(there, list.remove(bytes(name), n), "remove");
                if (there)
                    pairs.erase(found);
            }
        }
        expectEqual(pairs.size(), list.lines(), "lines");
        expectEqual(find(pairs, name, 0) != pairs.end(), list.exist(bytes(name)) == 1, "exist");
        const auto now = find(pairs, name, n);
        String out("untouched");
        expectEqual(now != pairs.end(), list.value(bytes(name), &out, n), "value");
        expectEqual(now == pairs.end() ? "untouched" : now->second, str(out), "the value of a name");
        sameAt(list, pairs, at);
    }
    for (std::size_t at = 0; at <= pairs.size(); ++at)
        sameAt(list, pairs, at);
}

// Lines

// A stream that shows as many bytes at a time as it is told.
class Trickle : public ym::MemoryIO {
public:
    Trickle(const std::string& text, unsigned int most)
        : MemoryIO(text.data(), static_cast<unsigned int>(text.size())),
          most_(most)
    {
    }

    const char* peek(unsigned int* size) override
    {
        const char* const ahead = MemoryIO::peek(size);
        *size = std::min(*size, most_);
        return ahead;
    }

private:
    unsigned int most_;
};

void linesAreCut(Input& input)
{
    const auto most = static_cast<unsigned int>(1 + input.below(40));
    std::string text;
    while (!input.isEmpty())
        text += input.below(3) == 0 ? "\r\n\n\r"[input.below(4)] : "ab="[input.below(3)];
    using Mode = ym::LineAdapter::linebreak_mode;
    Trickle stream(text, most);
    ym::LineAdapter reader(&stream, Mode::LinebreakAny, Mode::LinebreakAny, Mode::LinebreakAny);
    std::vector<std::string> lines;
    for (String line; reader.readLine(&line) > 0;)
        lines.push_back(str(line));
    expect(linesOf(text) == lines, "a text is cut into its lines");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    input.oneOf<void (*const)(Input&)>({numbersAreRead, stringsAreEdited, listsAreEdited, listsAreEdited, linesAreCut})(
        input);
    return 0;
}

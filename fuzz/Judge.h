// A matcher that tries all ways, and the form of a pattern that it understands.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

namespace fuzz {

// An element of a pattern: "^", "$", "(", ")", or a set of bytes with its repetition.
struct Element {
    std::string text;
    std::string set; // those of the subjects' alphabet
    std::size_t least = 0;
    std::size_t most = 0;
};

// Tries all ways to match, the longest repetition first, and remembers only which ways have failed.
struct Judge {
    const std::vector<Element>& pattern;
    const std::string& subject;
    std::vector<std::size_t> at = std::vector<std::size_t>(pattern.size() + 1);          // where each element began
    std::vector<bool> failed = std::vector<bool>(pattern.size() * (subject.size() + 1)); // by element and position

    bool matches(std::size_t element, std::size_t position)
    {
        at[element] = position;
        if (element == pattern.size())
            return true;
        const std::size_t way = element * (subject.size() + 1) + position;
        if (failed[way])
            return false;
        const Element& now = pattern[element];
        const std::size_t runEnd = std::min(subject.find_first_not_of(now.set, position), subject.size());
        const bool misplaced = (now.text == "^" && position > 0) || (now.text == "$" && position < subject.size());
        for (std::size_t n = std::min(now.most, runEnd - position) + 1; !misplaced && n-- > now.least;)
            if (matches(element + 1, position + n))
                return true;
        failed[way] = true;
        return false;
    }

    // The whole match and all groups, a bar behind each; or nothing.
    std::string search()
    {
        for (std::size_t start = 0; !matches(0, start);)
            if (++start > subject.size())
                return "";
        std::string result = subject.substr(at[0], at.back() - at[0]) + "|";
        for (std::size_t open = 0; open < pattern.size(); ++open) {
            std::size_t close = open;
            for (int depth = pattern[open].text == "("; depth > 0;)
                depth += pattern[++close].text == "(" ? 1 : pattern[close].text == ")" ? -1 : 0;
            if (close > open)
                result += subject.substr(at[open], at[close] - at[open]) + "|";
        }
        return result;
    }

    // The pieces, a bar behind each. A separator begins before the end of the subject and ends behind the beginning of
    // the piece before it.
    std::string split(std::size_t limit)
    {
        std::string result;
        std::size_t piece = 0;
        for (std::size_t start = 0; start < subject.size() && limit > 1; ++start)
            if (matches(0, start) && at.back() > piece) {
                result += subject.substr(piece, start - piece) + "|";
                piece = at.back();
                start = piece - 1;
                --limit;
            }
        result += subject.substr(piece);
        result.resize(result.find_last_not_of('|') + 1); // no empty pieces at the end
        return result + (result.empty() ? "" : "|");
    }
};

} // namespace fuzz

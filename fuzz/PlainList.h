// The line view written down plainly: a vector of lines, in which every operation is a walk from the beginning.
#pragma once

#include <algorithm>
#include <string>
#include <vector>

#include <tovik/String.h>

#include "tests/text.h"

namespace fuzz {

// The lines of a text. Empty lines at its end are none.
inline std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines(1);
    for (std::size_t i = 0; i < text.size(); ++i)
        if (text[i] == '\n' || (text[i] == '\r' && text[std::min(i + 1, text.size() - 1)] != '\n'))
            lines.emplace_back();
        else if (text[i] != '\r')
            lines.back() += text[i];
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

// What a line has if it is read as a text that ends at its first NUL byte.
inline std::string upToNul(const std::string& text)
{
    return text.substr(0, text.find('\0'));
}

class PlainList {
public:
    using String = ym::String;

    int parse(const String& text)
    {
        for (const std::string& line : linesOf(test::str(text)))
            if (add(line) != 0)
                return -1;
        return 0;
    }
    int parseLine(const String& line) { return add(test::str(line)); }
    int generate(String* out) const
    {
        std::string text;
        for (const std::string& line : lines_)
            text += line + "\r\n";
        return end() > 2 && is(0, 'v') && is(1, 'o') && is(2, 's') ? *out = test::bytes(text), 0 : -1;
    }
    void clear() { lines_.clear(); }

    // The session level
    int set(char t, const String& value) { return t == 'm' ? -1 : place({0, end()}, order, t, value); }
    int get(char t, String* value) const { return read(session(), t, value); }
    int remove(char t) { return take(first({0, end()}, t)); }
    int has(char t) const { return first({0, end()}, t) < end(); }
    int nAttr() const { return count(session(), 'a'); }
    int setAttr(int n, const String& name, const String& value) { return setRun(session(), n, 'a', name, value); }
    int attr(int n, String* name, String* value) const { return cut(inRun(session(), n, 'a'), name, value); }
    int removeAttr(int n) { return take(inRun(session(), n, 'a')); }
    int hasAttr(const String& name) const { return named(session(), 'a', name); }

    // Sections
    int nMedia() const { return count({0, end()}, 'm'); }
    int setMedia(int n, char t, const String& value) { return place({head(n), under(n).to}, "micbka", t, value); }
    int media(int n, char t, String* value) const { return read({head(n), under(n).to}, t, value); }
    int hasMedia(int n, char t) const { return first({head(n), end()}, t) < end(); }
    int removeMedia(int n, char t) { return t == 'm' ? take(head(n), under(n).to) : take(first({head(n), end()}, t)); }
    int nMediaAttr(int n, char t) const { return count(under(n), t); }
    int setMediaAttr(int n, int i, const String& a, const String& b, char t) { return setRun(under(n, t), i, t, a, b); }
    int mediaAttr(int n, int i, String* a, String* b, char t) const { return cut(inRun(under(n, t), i, t), a, b); }
    int removeMediaAttr(int n, int i, char t) { return take(inRun(under(n, t), i, t)); }
    int hasMediaAttr(int n, const String& name, char t) const { return named(under(n, t), t, name); }

private:
    using At = std::size_t;
    using Step = std::ptrdiff_t;
    struct Part {
        At from, to;
    };
    static constexpr const char* order = "vosiuepcbzktram";

    At end() const { return lines_.size(); }
    bool is(At at, char t) const { return lines_[at][0] == t; }
    Part session() const { return {0, head(0)}; }

    // The "m=" line of a section, and what stands under it. Nothing stops the search for "m=" lines.
    At head(int n) const
    {
        At at = first({0, end()}, 'm');
        for (; n > 0 && at < end(); --n)
            at = first({at + 1, end()}, 'm');
        return at;
    }
    Part under(int n, char t = 'a') const
    {
        const At from = std::min(head(n) + 1, end());
        return {from, t == 'm' ? end() : first({from, end()}, 'm')};
    }

    At first(Part p, char t) const
    {
        for (At at = p.from; at < p.to; ++at)
            if (is(at, t))
                return at;
        return end();
    }
    int count(Part p, char t) const
    {
        int n = 0;
        for (At at = p.from; at < p.to; ++at)
            n += is(at, t) ? 1 : 0;
        return n;
    }
    // The lines of a type that stand next to each other; an empty part at the end of `p` if there is none.
    Part run(Part p, char t) const
    {
        Part result{std::min(first(p, t), p.to), std::min(first(p, t), p.to)};
        while (result.to < p.to && is(result.to, t))
            ++result.to;
        return result;
    }
    At inRun(Part p, int n, char t) const
    {
        const Part found = run(p, t);
        return n >= 0 && static_cast<At>(n) < found.to - found.from ? found.from + static_cast<At>(n) : end();
    }
    int named(Part p, char t, const String& name) const
    {
        int n = 0;
        String found;
        const Part lines = run(p, t);
        for (At at = lines.from; at < lines.to; ++at)
            if (cut(at, &found, nullptr) == 0 && upToNul(test::str(found)) == upToNul(test::str(name)))
                ++n;
        return n;
    }

    int add(const std::string& line)
    {
        const bool isLine = line.size() > 1 && line[1] == '=' && std::string(order).find(line[0]) != std::string::npos;
        return isLine ? put(end(), false, line) : -1;
    }
    int setRun(Part p, int n, char t, const String& name, const String& value)
    {
        const At found = inRun(p, n, t);
        const std::string behind = upToNul(test::str(value));
        const std::string line = beginning(t) + upToNul(test::str(name)) + (behind.empty() ? "" : ":") + behind;
        return put(found < end() ? found : run(p, t).to, found < end(), line);
    }
    int place(Part p, const std::string& in, char t, const String& value)
    {
        const auto rank = [&](char c) { return static_cast<int>(in.find(c)); }; // -1 if it is not there
        while (p.from < p.to && rank(lines_[p.from][0]) < rank(t))
            ++p.from;
        const bool replaces = p.from < p.to && rank(lines_[p.from][0]) == rank(t);
        return put(p.from, replaces, beginning(t) + upToNul(test::str(value)));
    }
    static std::string beginning(char t) { return t == '\0' ? "=" : std::string(1, t) + "="; }
    int put(At at, bool replaces, const std::string& line)
    {
        return replaces ? lines_[at] = line, 0 : (lines_.insert(lines_.begin() + Step(at), line), 0);
    }
    int take(At at) { return take(at, at + 1); }
    int take(At at, At to)
    {
        return at < end() ? lines_.erase(lines_.begin() + Step(at), lines_.begin() + Step(to)), 0 : -1;
    }

    int read(Part p, char t, String* value) const
    {
        const At at = first({p.from, t == 'm' ? end() : p.to}, t);
        return hasValue(at) ? *value = test::bytes(upToNul(lines_[at].substr(2))), 0 : -1;
    }
    int cut(At at, String* name, String* value) const
    {
        if (!hasValue(at))
            return -1;
        const std::string text = lines_[at].substr(2);
        const std::size_t colon = text.find(':');
        *name = test::bytes(text.substr(0, colon));
        return value ? *value = test::bytes(colon == std::string::npos ? "" : text.substr(colon + 1)), 0 : 0;
    }

    // A line of the type NUL is just "=".
    bool hasValue(At at) const { return at < end() && lines_[at].size() > 1; }

    std::vector<std::string> lines_;
};

} // namespace fuzz

#include "support/pregex/Pattern.h"

namespace ym::pregex {

namespace {

constexpr unsigned int maxGroups = 255;

constexpr ByteSet operator|(const ByteSet& a, const ByteSet& b)
{
    return {{a.words[0] | b.words[0], a.words[1] | b.words[1], a.words[2] | b.words[2], a.words[3] | b.words[3]}};
}

constexpr ByteSet operator~(const ByteSet& a)
{
    return {{~a.words[0], ~a.words[1], ~a.words[2], ~a.words[3]}};
}

constexpr ByteSet only(unsigned char c)
{
    ByteSet set = {};
    set.words[c / 64] = std::uint64_t{1} << (c % 64);
    return set;
}

constexpr ByteSet anyOf(std::string_view bytes)
{
    ByteSet set = {};
    for (const char c : bytes)
        set = set | only(static_cast<unsigned char>(c));
    return set;
}

constexpr ByteSet space = anyOf(" \t\n\v\f\r");
constexpr ByteSet notSpace = ~space;
constexpr ByteSet digit = anyOf("0123456789");
constexpr ByteSet notNewline = ~anyOf("\n");

// Reads a pattern from its beginning to its end. Every read... function takes its construct off the text, and gives
// false for one that is not supported.
class Reader {
public:
    Reader(std::string_view text, Pattern& pattern) : text_(text), pattern_(pattern) { }

    bool readAll()
    {
        while (!text_.empty())
            if (!readElement())
                return false;
        return nOpen_ == 0;
    }

private:
    char take()
    {
        const char c = text_.front();
        text_.remove_prefix(1);
        return c;
    }

    bool takeIf(std::string_view expected)
    {
        if (text_.substr(0, expected.size()) != expected)
            return false;
        text_.remove_prefix(expected.size());
        return true;
    }

    bool add(Step::Kind kind, unsigned int group = 0, const ByteSet& set = {})
    {
        pattern_.steps.push({kind, static_cast<unsigned char>(group), set});
        return true;
    }

    bool readElement()
    {
        const char c = take();
        switch (c) {
        case '^':
            return add(Step::Begin);
        case '$':
            return add(Step::End);
        case '(':
            return open();
        case ')':
            return close();
        case '.':
            return readRepetition(notNewline);
        case '\\':
            return readClass(&set_) && readRepetition(set_);
        case '[':
            return readBracket() && readRepetition(set_);
        case '|':
        case '?':
        case '*':
        case '+':
        case '{':
            return false;
        default:
            return readRepetition(only(static_cast<unsigned char>(c)));
        }
    }

    bool readRepetition(const ByteSet& set)
    {
        if (takeIf("*"))
            return add(Step::Star, 0, set);
        if (takeIf("+"))
            return add(Step::Plus, 0, set);
        if (takeIf("{0,1}"))
            return add(Step::Optional, 0, set);
        return add(Step::Once, 0, set);
    }

    // Behind a backslash.
    bool readClass(ByteSet* set)
    {
        if (takeIf("s"))
            *set = space;
        else if (takeIf("S"))
            *set = notSpace;
        else if (takeIf("d"))
            *set = digit;
        else
            return false;
        return true;
    }

    // Behind a "[". A "]" that comes first would be a byte of the set in Perl, a "-" between two others a range.
    bool readBracket()
    {
        const bool negated = takeIf("^");
        ByteSet sum = {};
        for (bool first = true; !takeIf("]"); first = false) {
            if (text_.empty() || text_.substr(0, 2) == "[:")
                return false;
            ByteSet one;
            const char c = take();
            if (c == '-' && !first && !text_.empty() && text_.front() != ']')
                return false;
            if (c != '\\')
                one = only(static_cast<unsigned char>(c));
            else if (!readClass(&one))
                return false;
            sum = sum | one;
        }
        set_ = negated ? ~sum : sum;
        return sum.words[0] || sum.words[1] || sum.words[2] || sum.words[3];
    }

    bool open()
    {
        if (pattern_.nGroups == maxGroups)
            return false;
        ++nOpen_;
        return add(Step::Open, ++pattern_.nGroups);
    }

    // Closes the group that was opened last and is not closed yet.
    bool close()
    {
        if (nOpen_ == 0)
            return false;
        --nOpen_;
        unsigned int closed = 0;
        for (unsigned int i = pattern_.steps.size();;) {
            const Step& step = pattern_.steps[--i];
            if (step.kind == Step::Close)
                ++closed;
            else if (step.kind == Step::Open && closed-- == 0)
                return add(Step::Close, step.group);
        }
    }

    std::string_view text_;
    Pattern& pattern_;
    ByteSet set_;
    unsigned int nOpen_ = 0;
};

} // namespace

Pattern::Pattern(std::string_view text)
{
    usable = Reader(text, *this).readAll();
}

} // namespace ym::pregex

#include "support/pregex/Pattern.h"

namespace ym::pregex {

namespace {

constexpr unsigned int maxGroups = 255;
constexpr std::array<ByteSet, 256> alone = eachByteAlone();

} // namespace

// Reads a pattern from its beginning to its end. Every read... function takes its construct off the text, and gives
// false or null for one that is not supported.
class Pattern::Reader {
public:
    Reader(std::string_view text, Pattern& pattern)
        : next_(text.data()),
          end_(text.data() + text.size()),
          pattern_(pattern)
    {
        // Elements and brackets are no more than bytes, so that neither array moves while it is pointed into.
        pattern.steps_.reserve(static_cast<unsigned int>(text.size()));
        pattern.brackets_.reserve(static_cast<unsigned int>(text.size() / 3));
    }

    bool readAll()
    {
        while (next_ != end_)
            if (!readElement(*next_++))
                return false;
        return nOpen_ == 0;
    }

private:
    bool readElement(char c)
    {
        switch (c) {
        case '^':
            return add({Step::Begin, 0, false, nullptr});
        case '$':
            return add({Step::End, 0, false, nullptr});
        case '(':
            return open();
        case ')':
            return close();
        case '.':
            return readRepetition(&notNewline);
        case '\\':
            return readRepetition(readClass());
        case '[':
            return readRepetition(readBracket());
        case '|':
        case '?':
        case '*':
        case '+':
        case '{':
            return false;
        default:
            return readRepetition(&alone[static_cast<unsigned char>(c)]);
        }
    }

    bool readRepetition(const ByteSet* set) { return set && add({readKind(), 0, false, set}); }

    Step::Kind readKind()
    {
        switch (peek()) {
        case '*':
            ++next_;
            return Step::Star;
        case '+':
            ++next_;
            return Step::Plus;
        case '{':
            return takeIf("{0,1}") ? Step::Optional : Step::Once;
        default:
            return Step::Once;
        }
    }

    // Behind a backslash.
    const ByteSet* readClass()
    {
        switch (peek()) {
        case 's':
            return ++next_, &space;
        case 'S':
            return ++next_, &notSpace;
        case 'd':
            return ++next_, &digit;
        default:
            return nullptr;
        }
    }

    // Behind a "[".
    const ByteSet* readBracket()
    {
        const bool negated = takeIf("^");
        ByteSet& set = pattern_.brackets_.add() = noByte;
        const char* const first = next_;
        while (next_ != end_ && *next_ != ']')
            if (!readMember(next_ == first, &set))
                return nullptr;
        // A "]" that comes first is a byte of the set in Perl.
        if (next_ == first || !takeIf("]"))
            return nullptr;
        if (negated)
            set = ~set;
        return &set;
    }

    bool readMember(bool isFirst, ByteSet* set)
    {
        const char c = *next_++;
        if (c == '\\') {
            const ByteSet* named = readClass();
            if (named)
                *set = *set | *named;
            return named != nullptr;
        }
        const bool isRange = c == '-' && !isFirst && peek() != ']';
        const bool isNamedClass = c == '[' && peek() == ':';
        set->add(static_cast<unsigned char>(c));
        return !isRange && !isNamedClass;
    }

    bool open()
    {
        if (pattern_.nGroups_ == maxGroups)
            return false;
        ++nOpen_;
        return add({Step::Open, static_cast<unsigned char>(++pattern_.nGroups_), false, nullptr});
    }

    // Closes the group that was opened last and is not closed yet.
    bool close()
    {
        if (nOpen_ == 0)
            return false;
        --nOpen_;
        unsigned int closed = 0;
        for (unsigned int i = pattern_.nSteps();;) {
            const Step& step = pattern_.step(--i);
            if (step.kind == Step::Close)
                ++closed;
            else if (step.kind == Step::Open && closed-- == 0)
                return add({Step::Close, step.group, false, nullptr});
        }
    }

    bool add(const Step& step)
    {
        pattern_.steps_.add() = step;
        return true;
    }

    // The next byte, or NUL at the end. A NUL byte in a pattern stands for itself, which no caller asks for here.
    char peek() const { return next_ == end_ ? '\0' : *next_; }

    bool takeIf(std::string_view expected)
    {
        if (std::string_view(next_, static_cast<std::size_t>(end_ - next_)).substr(0, expected.size()) != expected)
            return false;
        next_ += expected.size();
        return true;
    }

    const char* next_;
    const char* end_;
    Pattern& pattern_;
    unsigned int nOpen_ = 0;
};

Pattern::Pattern(std::string_view text)
{
    usable_ = Reader(text, *this).readAll();
    if (usable_ && !isAnchored())
        findFirst();
}

void Pattern::findFirst()
{
    first_ = noByte;
    for (unsigned int i = 0; i < nSteps(); ++i) {
        const Step& now = step(i);
        if (now.kind == Step::Begin || now.kind == Step::End)
            return;
        if (!now.set)
            continue;
        first_ = first_ | *now.set;
        if (now.kind == Step::Once || now.kind == Step::Plus) {
            anywhere_ = false;
            return;
        }
    }
}

// A repetition that is one shorter leaves a byte of its own to what follows. It is firm if nothing that follows can
// take that byte as its first.
void Pattern::study()
{
    if (studied_)
        return;
    studied_ = true;
    ByteSet next = noByte; // what can be taken first by all that follows
    for (unsigned int i = nSteps(); i-- > 0;) {
        Step& now = steps_[i];
        now.firm = now.repeats() && !haveCommon(*now.set, next);
        if (now.kind == Step::Begin)
            next = anyByte;
        else if (now.kind == Step::End)
            next = noByte;
        else if (now.kind == Step::Once || now.kind == Step::Plus)
            next = *now.set;
        else if (now.repeats())
            next = next | *now.set;
    }
}

} // namespace ym::pregex

#include "support/pregex/Pattern.h"

namespace ym::pregex {

namespace {

constexpr unsigned int maxGroups = 255;

void addMembers(const Step& step, ByteSet& set)
{
    if (!step.set)
        set[step.number] = 1;
    else
        addAll(set, *step.set);
}

// Reads a pattern from its beginning to its end. Every read... function takes its construct off the text, and gives
// false or null for one that is not supported.
class Reader {
public:
    // `steps` must have a place for each byte of the text: no element is shorter than that.
    Reader(std::string_view text, Step* steps, Pattern::Brackets& brackets)
        : next_(text.data()),
          end_(text.data() + text.size()),
          steps_(steps),
          step_(steps),
          brackets_(brackets)
    {
    }

    bool readAll()
    {
        while (next_ != end_)
            if (!readElement(static_cast<unsigned char>(*next_++)))
                return false;
        return nOpen_ == 0;
    }

    unsigned int nSteps() const { return static_cast<unsigned int>(step_ - steps_); }
    unsigned int nGroups() const { return nGroups_; }

private:
    bool readElement(unsigned char c)
    {
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
            return add(readRepetition(), 0, &notNewline);
        case '\\':
            return addSet(readClass());
        case '[':
            return addSet(readBracket());
        case '|':
        case '?':
        case '*':
        case '+':
        case '{':
            return false;
        default:
            return add(readRepetition(), c);
        }
    }

    Step::Kind readRepetition()
    {
        switch (peek()) {
        case '*':
            ++next_;
            return Step::Star;
        case '+':
            ++next_;
            return Step::Plus;
        case '{':
            return readOptional();
        default:
            return Step::Once;
        }
    }

    Step::Kind readOptional()
    {
        constexpr std::string_view optional = "{0,1}";
        if (std::string_view(next_, static_cast<std::size_t>(end_ - next_)).substr(0, optional.size()) != optional)
            return Step::Once; // and the "{" is refused as the next element
        next_ += optional.size();
        return Step::Optional;
    }

    // Behind a backslash.
    const ByteSet* readClass()
    {
        const ByteSet* set = nullptr;
        switch (peek()) {
        case 's':
            set = &space;
            break;
        case 'S':
            set = &notSpace;
            break;
        case 'd':
            set = &digit;
            break;
        default:
            return nullptr;
        }
        ++next_;
        return set;
    }

    // Behind a "[".
    const ByteSet* readBracket()
    {
        const bool negated = peek() == '^';
        next_ += negated;
        ByteSet& set = brackets_.add();
        set.fill(negated);
        const char* const first = next_;
        while (next_ != end_ && *next_ != ']')
            if (!readMember(next_ == first, negated, set))
                return nullptr;
        // A "]" that comes first is a byte of the set in Perl.
        return next_ != first && next_ != end_ && *next_++ == ']' ? &set : nullptr;
    }

    bool readMember(bool isFirst, bool negated, ByteSet& set)
    {
        const char c = *next_++;
        if (c == '\\') {
            const ByteSet* named = readClass();
            if (named)
                negated ? removeAll(set, *named) : addAll(set, *named);
            return named != nullptr;
        }
        set[static_cast<unsigned char>(c)] = !negated;
        const bool isRange = c == '-' && !isFirst && peek() != ']';
        const bool isNamedClass = c == '[' && peek() == ':';
        return !isRange && !isNamedClass;
    }

    bool open()
    {
        if (nGroups_ == maxGroups)
            return false;
        ++nOpen_;
        return add(Step::Open, ++nGroups_);
    }

    // Closes the group that was opened last and is not closed yet.
    bool close()
    {
        if (nOpen_ == 0)
            return false;
        --nOpen_;
        unsigned int closed = 0;
        for (const Step* step = step_;;) {
            --step;
            if (step->kind == Step::Close)
                ++closed;
            else if (step->kind == Step::Open && closed-- == 0)
                return add(Step::Close, step->number);
        }
    }

    bool add(Step::Kind kind, unsigned int number = 0, const ByteSet* set = nullptr)
    {
        *step_++ = {kind, number, set, false};
        return true;
    }

    bool addSet(const ByteSet* set) { return set && add(readRepetition(), 0, set); }

    char peek() const { return next_ == end_ ? '\0' : *next_; }

    const char* next_;
    const char* end_;
    Step* const steps_;
    Step* step_;
    Pattern::Brackets& brackets_;
    unsigned int nGroups_ = 0;
    unsigned int nOpen_ = 0;
};

} // namespace

Pattern::Pattern(std::string_view text)
{
    steps_.resize(static_cast<unsigned int>(text.size()));
    Reader reader(text, steps_.data(), brackets_);
    usable_ = reader.readAll();
    steps_.resize(reader.nSteps());
    nGroups_ = reader.nGroups();
}

bool Pattern::findFirst(ByteSet* first) const
{
    bool empty = true;
    for (const Step* step = steps(); step != steps() + nSteps(); ++step) {
        if (step->kind == Step::Begin || step->kind == Step::End)
            return false;
        if (!step->takesBytes())
            continue;
        if (empty && step->set)
            *first = *step->set; // the usual case, and faster than a union with nothing
        else
            addMembers(*step, empty ? * first = ByteSet{} : *first);
        empty = false;
        if (step->kind == Step::Once || step->kind == Step::Plus)
            return true;
    }
    return false;
}

// A repetition that is one shorter leaves a byte of its own to what follows. It is firm if nothing that follows can
// take that byte as its first.
void Pattern::study()
{
    if (studied_)
        return;
    studied_ = true;
    ByteSet next = {}; // what can be taken first by all that follows
    for (unsigned int i = nSteps(); i-- > 0;) {
        Step& step = steps_[i];
        ByteSet own = {};
        if (step.takesBytes())
            addMembers(step, own);
        step.firm = step.repeats() && !haveCommon(own, next);
        if (step.kind == Step::Begin)
            next.fill(1); // nothing is known of a match that goes on behind a "^"
        else if (step.kind == Step::End || step.kind == Step::Once || step.kind == Step::Plus)
            next = own;
        else
            addAll(next, own);
    }
}

} // namespace ym::pregex

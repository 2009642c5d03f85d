#include <tovik/PRegEx.h>

#include <limits>
#include <new>

#include "support/pregex/Matcher.h"
#include "support/pregex/Pattern.h"
#include "support/view.h"

namespace ym {

using pregex::Groups;
using pregex::Matcher;
using pregex::Pattern;
using pregex::Span;

struct PRegEx::State {
    Pattern pattern;
    SmallArray<char, 160> subject; // a copy: the caller may change the original and ask for groups afterwards
    Groups parts;                  // the groups of the last match, or the pieces of the last split

    bool usable;
    bool hasParts = false; // the parts are those of the subject

    State(std::string_view text, unsigned long flags) : pattern(text), usable(pattern.isUsable() && flags == 0) { }

    void remember(const String& text) { subject.assign(text.chars(), text.length()); }

    void splitSubject(unsigned int limit);
};

PRegEx::State& PRegEx::state()
{
    return *std::launder(reinterpret_cast<State*>(storage_));
}

const PRegEx::State& PRegEx::state() const
{
    return *std::launder(reinterpret_cast<const State*>(storage_));
}

PRegEx::PRegEx(const char* pattern, unsigned long flags)
{
    static_assert(sizeof(State) <= sizeof storage_ && alignof(State) <= 8);
    new (storage_) State(pattern ? pattern : "", flags);
}

PRegEx::PRegEx(const String& pattern, unsigned long flags)
{
    new (storage_) State(view(pattern), flags);
}

PRegEx::~PRegEx()
{
    state().~State();
}

bool PRegEx::match(const String& subject, int start)
{
    State& s = state();
    s.hasParts = false;
    const unsigned int from = start < 0 ? 0 : static_cast<unsigned int>(start);
    if (!s.usable || !Matcher(s.pattern, view(subject)).search(from, &s.parts))
        return false;
    s.remember(subject);
    return s.hasParts = true;
}

String PRegEx::operator[](int i) const
{
    const State& s = state();
    String part;
    if (!s.hasParts || i < 0 || static_cast<unsigned int>(i) >= s.parts.size())
        return part;
    const Span span = s.parts[static_cast<unsigned int>(i)];
    part.append(s.subject.data() + span.start, span.end - span.start);
    return part;
}

int PRegEx::split(const String& subject, int limit)
{
    State& s = state();
    s.hasParts = false;
    s.remember(subject);
    s.parts.clear();
    s.splitSubject(limit > 0 ? static_cast<unsigned int>(limit) : std::numeric_limits<unsigned int>::max());
    while (s.parts.size() > 0 && s.parts.back().start == s.parts.back().end)
        s.parts.resize(s.parts.size() - 1);
    s.hasParts = true;
    return static_cast<int>(s.parts.size());
}

void PRegEx::State::splitSubject(unsigned int limit)
{
    const unsigned int length = subject.size();
    Matcher matcher(pattern, {subject.data(), length});
    Groups groups;
    unsigned int piece = 0;  // where the piece at hand begins
    unsigned int search = 0; // where the next separator is looked for
    while (usable && parts.size() + 1 < limit && matcher.search(search, &groups)) {
        const Span separator = groups[0];
        search = separator.end;
        if (separator.end == piece) {
            // Matched nothing where the piece begins: that does not separate, or there would be no end of it.
            if (++search > length)
                break;
            continue;
        }
        if (separator.start == length)
            break;
        parts.add() = {piece, separator.start};
        piece = separator.end;
    }
    parts.add() = {piece, length};
}

} // namespace ym

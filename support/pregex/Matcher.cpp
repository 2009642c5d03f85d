#include "support/pregex/Matcher.h"

#include <cstring>

namespace ym::pregex {

Matcher::Matcher(Pattern& pattern, std::string_view subject)
    : pattern_(pattern),
      subject_(reinterpret_cast<const unsigned char*>(subject.data())),
      length_(static_cast<unsigned int>(subject.size())),
      allowedWork_(subject.size() * 4 + 256)
{
}

bool Matcher::search(unsigned int from, Groups* groups)
{
    groups->resize(pattern_.nGroups() + 1);
    groups_ = groups->data();
    if (work_ <= allowedWork_ && searchByWalk(from))
        return true;
    return work_ > allowedWork_ && searchByTable(from);
}

bool Matcher::searchByWalk(unsigned int from)
{
    if (pattern_.isAnchored())
        return from == 0 && walk(0);
    for (unsigned int start = from; start <= length_ && work_ <= allowedWork_; start = nextStart(startBehind(start)))
        if (walk(start))
            return true;
    return false;
}

// The first position at or behind `start` where the pattern can begin, or one behind the end.
unsigned int Matcher::nextStart(unsigned int start)
{
    if (start_ == Unknown)
        start_ = pattern_.findFirst(&first_) ? AtFirst : Anywhere;
    if (start_ == Anywhere)
        return start;
    while (start < length_ && !first_[subject_[start]])
        ++start;
    return start < length_ ? start : length_ + 1;
}

// Where to look on when the pattern does not match from `failed`. If it begins with a repetition, nothing matches
// behind any length of that, so that the other starts in the same run can only fail again.
unsigned int Matcher::startBehind(unsigned int failed) const
{
    const Step* step = pattern_.steps();
    const Step* const end = step + pattern_.nSteps();
    while (step != end && step->kind == Step::Open)
        ++step;
    if (step != end && step->kind >= Step::Star)
        return runEnd(*step, failed) + 1;
    return failed + 1;
}

bool Matcher::walk(unsigned int start)
{
    const Step* const steps = pattern_.steps();
    const unsigned int nSteps = pattern_.nSteps();
    unsigned int step = 0;
    unsigned int at = start;
    choices_.clear();
    while (step < nSteps) {
        if (advance(steps[step], &at))
            ++step;
        else if (!goBack(&step, &at))
            return false;
    }
    groups_[0] = {start, at};
    return true;
}

// Back to the last repetition that can give a byte back, and on from behind it.
bool Matcher::goBack(unsigned int* step, unsigned int* at)
{
    constexpr std::size_t little = 128;
    if (++work_ > little)
        pattern_.study();
    while (choices_.size() > 0 && pattern_.steps()[choices_.back().step].firm)
        choices_.drop();
    if (choices_.size() == 0 || work_ > allowedWork_)
        return false;
    Choice& choice = choices_.back();
    --choice.most;
    if (const Step* next = needed(choice.step + 1))
        for (; choice.most > choice.least && !takes(*next, choice.most); --choice.most)
            ++work_;
    *step = choice.step + 1;
    *at = choice.most;
    if (choice.most == choice.least)
        choices_.drop();
    return true;
}

// The step that takes the next byte, if there is no match without it.
const Step* Matcher::needed(unsigned int step) const
{
    const Step* next = pattern_.steps() + step;
    const Step* const end = pattern_.steps() + pattern_.nSteps();
    while (next != end && (next->kind == Step::Open || next->kind == Step::Close))
        ++next;
    return next != end && (next->kind == Step::Once || next->kind == Step::Plus) ? next : nullptr;
}

// Takes what a step can take, and says whether that is enough.
inline bool Matcher::advance(const Step& step, unsigned int* at)
{
    switch (step.kind) {
    case Step::Begin:
        return *at == 0;
    case Step::End:
        return *at == length_;
    case Step::Open:
        groups_[step.number].start = *at;
        return true;
    case Step::Close:
        groups_[step.number].end = *at;
        return true;
    case Step::Once:
        return takes(step, (*at)++);
    default:
        return repeat(step, at);
    }
}

inline bool Matcher::repeat(const Step& step, unsigned int* at)
{
    const unsigned int least = *at + (step.kind == Step::Plus);
    const unsigned int most = runEnd(step, *at);
    work_ += most - *at;
    if (most > least)
        choices_.add() = {static_cast<unsigned int>(&step - pattern_.steps()), least, most};
    *at = most;
    return most >= least;
}

bool Matcher::searchByTable(unsigned int from)
{
    if (table_.empty())
        fillTable();
    for (unsigned int start = from; start <= length_; ++start)
        if (isInTable(0, start)) {
            followTable(start);
            return true;
        }
    return false;
}

bool Matcher::isInTable(unsigned int step, unsigned int at) const
{
    return (table_[step][at / 64] >> (at % 64) & 1) != 0;
}

void Matcher::fillTable()
{
    const unsigned int nSteps = pattern_.nSteps();
    table_.resize(nSteps + 1);
    table_[nSteps].assign(length_ / 64 + 1, ~std::uint64_t{0});
    for (unsigned int step = nSteps; step-- > 0;)
        fillRow(step);
}

void Matcher::fillRow(unsigned int step)
{
    // `here` and `behind`: whether the next step matches from a position and from the one behind it; `again`: whether
    // this one matches from the one behind it; `taken`: whether this one takes the byte at the position.
    switch (pattern_.steps()[step].kind) {
    case Step::Begin:
        return fillRow(step, [](bool here, bool, bool, bool, unsigned int at) { return here && at == 0; });
    case Step::End:
        return fillRow(step, [this](bool here, bool, bool, bool, unsigned int at) { return here && at == length_; });
    case Step::Open:
    case Step::Close:
        table_[step] = table_[step + 1];
        return;
    case Step::Once:
        return fillRow(step, [](bool, bool behind, bool, bool taken, unsigned int) { return taken & behind; });
    case Step::Optional:
        return fillRow(step,
                       [](bool here, bool behind, bool, bool taken, unsigned int) { return here | (taken & behind); });
    case Step::Star:
        return fillRow(step,
                       [](bool here, bool, bool again, bool taken, unsigned int) { return here | (taken & again); });
    case Step::Plus:
        return fillRow(
            step, [](bool, bool behind, bool again, bool taken, unsigned int) { return taken & (behind | again); });
    }
}

// Fills a row from its end to its beginning, a word at a time.
template <class Rule> void Matcher::fillRow(unsigned int step, Rule rule)
{
    const Step now = pattern_.steps()[step];
    const Row& next = table_[step + 1];
    Row& row = table_[step];
    row.resize(next.size());
    bool behind = false;
    bool again = false;
    for (std::size_t word = row.size(); word-- > 0;) {
        std::uint64_t bits = 0;
        for (unsigned int bit = 64; bit-- > 0;) {
            const auto at = static_cast<unsigned int>(word * 64 + bit);
            const bool here = at <= length_ && (next[word] >> bit & 1) != 0;
            again = rule(here, behind, again, at < length_ && now.takes(subject_[at]), at);
            bits |= std::uint64_t{again} << bit;
            behind = here;
        }
        row[word] = bits;
    }
}

// Walks forward from a start that is known to match, each repetition as long as the rest allows.
void Matcher::followTable(unsigned int start)
{
    unsigned int at = start;
    for (unsigned int step = 0; step < pattern_.nSteps(); ++step) {
        const Step& now = pattern_.steps()[step];
        if (now.repeats()) {
            const unsigned int most = runEnd(now, at);
            for (at = most; !isInTable(step + 1, at);)
                --at;
        } else if (now.kind == Step::Once) {
            ++at;
        } else {
            advance(now, &at);
        }
    }
    groups_[0] = {start, at};
}

inline bool Matcher::takes(const Step& step, unsigned int at) const
{
    return at < length_ && step.takes(subject_[at]);
}

inline unsigned int Matcher::runEnd(const Step& step, unsigned int at) const
{
    const unsigned int limit = step.kind == Step::Optional && at < length_ ? at + 1 : length_;
    if (step.set == &notNewline) {
        const void* const newline = at < limit ? std::memchr(subject_ + at, '\n', limit - at) : nullptr;
        return newline ? static_cast<unsigned int>(static_cast<const unsigned char*>(newline) - subject_) : limit;
    }
    if (step.set)
        while (at < limit && (*step.set)[subject_[at]])
            ++at;
    else
        while (at < limit && subject_[at] == step.number)
            ++at;
    return at;
}

} // namespace ym::pregex

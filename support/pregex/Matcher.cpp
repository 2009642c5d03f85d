#include "support/pregex/Matcher.h"

namespace ym::pregex {

Matcher::Matcher(const Pattern& pattern, std::string_view subject)
    : pattern_(pattern),
      subject_(subject.data()),
      length_(static_cast<unsigned int>(subject.size())),
      allowedWork_(subject.size() * 4 + 256)
{
    reach_.resize(pattern.steps.size());
}

bool Matcher::search(unsigned int from, Groups* groups)
{
    groups_ = groups;
    groups->resize(pattern_.nGroups + 1);
    if (work_ <= allowedWork_ && searchByWalk(from))
        return true;
    return work_ > allowedWork_ && searchByTable(from);
}

bool Matcher::searchByWalk(unsigned int from)
{
    const bool anchored = pattern_.steps.size() > 0 && pattern_.steps[0].kind == Step::Begin;
    for (unsigned int start = from; start <= length_ && work_ <= allowedWork_; ++start) {
        if (walk(start))
            return true;
        if (anchored)
            break;
    }
    return false;
}

bool Matcher::walk(unsigned int start)
{
    unsigned int step = 0;
    unsigned int at = start;
    while (step < pattern_.steps.size()) {
        const Step& now = pattern_.steps[step];
        bool fits = true;
        if (now.repeats()) {
            const unsigned int most = runEnd(now, at);
            work_ += most - at;
            reach_[step] = {now.kind == Step::Plus ? at + 1 : at, most};
            fits = reach_[step].least <= most;
            at = most;
        } else if (now.kind == Step::Once) {
            fits = takes(now, at++);
        } else {
            fits = (now.kind != Step::Begin || at == 0) && (now.kind != Step::End || at == length_);
            mark(now, at);
        }
        if (fits)
            ++step;
        else if (!giveBack(&step, &at))
            return false;
    }
    markWhole(start, at);
    return true;
}

// Goes back from a step that failed to the last repetition before it that can be one shorter.
bool Matcher::giveBack(unsigned int* step, unsigned int* at)
{
    if (++work_ > allowedWork_)
        return false;
    while ((*step)-- > 0) {
        Reach& reach = reach_[*step];
        if (pattern_.steps[*step].repeats() && reach.most > reach.least) {
            *at = --reach.most;
            ++*step;
            return true;
        }
    }
    return false;
}

bool Matcher::searchByTable(unsigned int from)
{
    if (table_.empty())
        fillTable();
    for (unsigned int start = from; start <= length_; ++start)
        if (table_[0][start]) {
            followTable(start);
            return true;
        }
    return false;
}

void Matcher::fillTable()
{
    const unsigned int nSteps = pattern_.steps.size();
    table_.assign(nSteps + 1, std::vector<bool>(length_ + std::size_t{1}));
    table_[nSteps].assign(length_ + std::size_t{1}, true);
    for (unsigned int step = nSteps; step-- > 0;)
        fillRow(step);
}

void Matcher::fillRow(unsigned int step)
{
    const Step& now = pattern_.steps[step];
    const std::vector<bool>& next = table_[step + 1];
    std::vector<bool>& row = table_[step];
    bool again = false; // whether this step matches from the position behind
    bool after = false; // whether the next one does
    for (std::size_t at = length_ + std::size_t{1}; at-- > 0;) {
        const bool here = next[at];
        const bool taken = takes(now, static_cast<unsigned int>(at));
        switch (now.kind) {
        case Step::Begin:
            again = here && at == 0;
            break;
        case Step::End:
            again = here && at == length_;
            break;
        case Step::Open:
        case Step::Close:
            again = here;
            break;
        case Step::Once:
            again = taken && after;
            break;
        case Step::Optional:
            again = here || (taken && after);
            break;
        case Step::Star:
            again = here || (taken && again);
            break;
        case Step::Plus:
            again = taken && (after || again);
            break;
        }
        row[at] = again;
        after = here;
    }
}

// Walks forward from a start that is known to match, each repetition as long as the rest allows.
void Matcher::followTable(unsigned int start)
{
    unsigned int at = start;
    for (unsigned int step = 0; step < pattern_.steps.size(); ++step) {
        const Step& now = pattern_.steps[step];
        if (now.repeats()) {
            const unsigned int most = runEnd(now, at);
            for (at = most; !table_[step + 1][at];)
                --at;
        } else if (now.kind == Step::Once) {
            ++at;
        } else {
            mark(now, at);
        }
    }
    markWhole(start, at);
}

bool Matcher::takes(const Step& step, unsigned int at) const
{
    return at < length_ && step.set.has(static_cast<unsigned char>(subject_[at]));
}

unsigned int Matcher::runEnd(const Step& step, unsigned int at) const
{
    const unsigned int limit = step.kind == Step::Optional && at < length_ ? at + 1 : length_;
    while (at < limit && step.set.has(static_cast<unsigned char>(subject_[at])))
        ++at;
    return at;
}

void Matcher::mark(const Step& step, unsigned int at)
{
    if (step.kind == Step::Open)
        (*groups_)[step.group].start = at;
    else if (step.kind == Step::Close)
        (*groups_)[step.group].end = at;
}

void Matcher::markWhole(unsigned int start, unsigned int end)
{
    (*groups_)[0] = {start, end};
}

} // namespace ym::pregex

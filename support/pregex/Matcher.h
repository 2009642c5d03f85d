// Finds a pattern in a subject.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "support/pregex/Pattern.h"

namespace ym::pregex {

// A part of a subject.
struct Span {
    unsigned int start;
    unsigned int end;
};

// The groups of a match; number 0 is the whole match.
using Groups = SmallArray<Span, 16>;

// All searches for one pattern in one subject.
//
// A search walks the steps of the pattern forward, each repetition as long as it can be, and on a failure goes back to
// the last repetition that can give a byte back. That is the fastest way for nearly every line, but some lines make
// it walk the same ground over and over. So the work of all searches is counted. After a little of it, the pattern is
// studied for repetitions that need not be cut back; and when it has grown beyond a few passes over the subject, a
// table answers instead: for each step and position, whether the rest of the pattern matches from there. The table is
// filled in one pass for each step, and gives the same match.
class Matcher {
public:
    // Pattern and subject must outlive the matcher.
    Matcher(Pattern& pattern, std::string_view subject);

    // The first match that begins at or behind `from`.
    bool search(unsigned int from, Groups* groups);

private:
    // A repetition that can be cut back, in the walk at hand.
    struct Choice {
        unsigned int step;
        unsigned int least;
        unsigned int most;
    };

    bool searchByWalk(unsigned int from);
    unsigned int nextStart(unsigned int start);
    unsigned int startBehind(unsigned int failed) const;
    bool walk(unsigned int start);
    bool advance(const Step& step, unsigned int* at);
    bool repeat(const Step& step, unsigned int* at);
    bool goBack(unsigned int* step, unsigned int* at);
    const Step* needed(unsigned int step) const;
    bool searchByTable(unsigned int from);
    void fillTable();
    void fillRow(unsigned int step);
    template <class Rule> void fillRow(unsigned int step, Rule rule);
    bool isInTable(unsigned int step, unsigned int at) const;
    void followTable(unsigned int start);
    bool takes(const Step& step, unsigned int at) const;
    unsigned int runEnd(const Step& step, unsigned int at) const;

    Pattern& pattern_;
    const unsigned char* subject_;
    unsigned int length_;
    Span* groups_ = nullptr;
    SmallArray<Choice, 32> choices_; // the last one is the first to be cut back
    std::size_t work_ = 0;
    std::size_t allowedWork_;
    enum {
        Unknown,
        Anywhere,
        AtFirst
    } start_ = Unknown; // where matches can begin
    ByteSet first_;
    using Row = std::vector<std::uint64_t>; // one bit for each position
    std::vector<Row> table_;                // for each step: do this step and all behind it match from a position?
};

} // namespace ym::pregex

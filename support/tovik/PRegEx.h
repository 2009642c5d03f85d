#pragma once

#include <tovik/String.h>
#include <tovik/export.h>

namespace ym {

// A regular expression in the plain Perl style, and the outcome of its last match or split.
//
// A pattern is a sequence of
//
//     x \s \S \d .      a byte; white space (blank, \t \n \v \f \r) or none; a digit 0 to 9; any byte but \n
//     [...] [^...]      one byte of, or not of, a set of bytes and the classes \s \S \d
//     * + {0,1}         behind one of these: as often as possible, at least once, at most once
//     ( )               a capture group; groups may not be repeated
//     ^ $               the beginning and the very end of the subject
//
// A pattern with any other construct (alternatives, ranges, lazy or counted repetition, other escapes) matches
// nothing. Bytes are compared one by one, with case, NUL bytes like others.
//
// Of all ways to match, Perl's is taken: the leftmost one, with every repetition as long as the rest allows.
// Time is at worst proportional to the length of the pattern times that of the subject, and the stack does not grow
// with either, so subjects from the network are safe. Making a pattern of up to 64 bytes with up to two sets in
// brackets takes no memory from the heap. Where memory runs out, std::bad_alloc passes through, and the object is as
// after a match that failed.
class YM_EXPORT PRegEx {
public:
    // Prepares a pattern. `flags` must be 0; with other flags the pattern matches nothing.
    PRegEx(const char* pattern, unsigned long flags);
    PRegEx(const String& pattern, unsigned long flags);
    ~PRegEx();

    PRegEx(const PRegEx&) = delete;
    PRegEx& operator=(const PRegEx&) = delete;

    // Searches the subject from position `start` on (0 if negative) and remembers the groups of the first match.
    // False if there is none, or if `start` lies behind the end.
    bool match(const String& subject, int start);

    // After a match: capture group `i`, counted from 1, or the whole match for 0. After split: piece `i`, counted
    // from 0. Empty where there is no such group or piece, and after a match that failed.
    String operator[](int i) const;

    // Cuts the subject at every match and gives the number of pieces. With a limit above 0 there are at most that
    // many, the last of which holds all the rest; any other limit is none. Empty pieces at the end are dropped,
    // others are kept; an empty subject gives 0 pieces.
    int split(const String& subject, int limit);

private:
    struct YM_HIDDEN State;

    YM_HIDDEN State& state();
    YM_HIDDEN const State& state() const;

    // Holds the State, which would otherwise cost a trip to the heap for every pattern.
    alignas(8) unsigned char storage_[2688];
};

} // namespace ym

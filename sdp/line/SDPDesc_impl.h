// The lines of a description, and the walks over them.
#pragma once

#include <list>
#include <memory>
#include <vector>

#include <sdp/SDPDesc.h>
#include <tovik/String.h>
#include <tovik/export.h>

#include "sdp/line/NodePool.h"

namespace ym::SDP {

struct YM_EXPORT SDPDesc::SDPDesc_impl {
    using Lines = std::list<String, NodeAllocator<String>>;
    using Position = Lines::iterator;

    // The line types in canonical order, and the rank of each 7-bit type in it, -1 for a type without one.
    static const char order_session[16];
    static const char order_time[3];
    static const char order_media[7];
    static int revorder_session[128];
    static int revorder_time[128];
    static int revorder_media[128];
    static bool init; // the ranks are there; the first object of the process sees to that

    String lineBreak;
    Lines lines;

    SDPDesc_impl();
    ~SDPDesc_impl() { lines.clear(); } // while their memory is there

    // Line number n of a type, counted from `position`, that stands before the next "m=" line, or the end of the list.
    // The type m counts "m=" lines and is not stopped by them.
    Position skip_until_attribute(Position position, int n, char type);

    // "m=" line number n, counted from `position`, or the end of the list. A negative n counts as 0.
    Position skip_until_mediadesc(Position position, int n);

    // The section number that stands for the session level: its lines end where section 0 begins.
    static constexpr int session = -1;

    // The rank of a type in one of the orders.
    YM_HIDDEN static int rank(const int* order, char type);

    // The "m=" line of a section, or the end of the list.
    YM_HIDDEN Position section(int number);
    YM_HIDDEN int nSections();

    // The lines of a section behind its "m=" line, or of the session level: from inside to levelEnd. Both are the end
    // of the list if there is no such section.
    YM_HIDDEN Position inside(int section);
    YM_HIDDEN Position levelEnd(int section);

    // The first line of a type in a section, its "m=" line included, or at session level; or the end of the list.
    YM_HIDDEN Position find(int section, char type);

    // The first line of a type in a section, its "m=" line included, or anywhere behind the section; or the end of the
    // list.
    YM_HIDDEN Position findBehind(int section, char type);

    // Removes that line. 0, or -1 if there is none.
    YM_HIDDEN int removeBehind(int section, char type);

    // The last section that has a line of the type, or -1.
    YM_HIDDEN int lastSection(char type);

    // Line number n of a run, or the end of the list.
    YM_HIDDEN Position numbered(int section, int n, char type);

    // The number of lines of a type behind the "m=" line of a section, or at session level.
    YM_HIDDEN int count(int section, char type);

    // The number of lines of a run that have the name.
    YM_HIDDEN int countNamed(int section, const String& name, char type);

    // Replaces line number n of a run, or adds the line behind the run or at the end of the level.
    YM_HIDDEN void setNumbered(int section, int n, String line, char type);

    // Removes line number n of a run. 0, or -1 if there is none.
    YM_HIDDEN int removeNumbered(int section, int n, char type);

    // Puts a line at its place by rank among the lines from `first` to `last`: instead of one of equal rank, or before
    // the first one of a higher rank.
    YM_HIDDEN void place(Position first, Position last, const int* order, String line);

    // A copy of a text, for lines to be read in place.
    struct YM_HIDDEN Text {
        std::unique_ptr<char[]> bytes;
        unsigned int length;

        explicit Text(const String& text);

        // A line that was read from the bytes. No copy is made of it where it stands among them.
        String line(const char* at, unsigned int n) const;
    };

    // Adds lines whose memory is that of this list, and the text that they stand in.
    YM_HIDDEN void append(Lines added, Text text);

    // All other changes of the list but those of a line's value, and what has to be called before any other change.
    YM_HIDDEN void forget();
    YM_HIDDEN Position insert(Position before, String line);
    YM_HIDDEN void erase(Position line);
    YM_HIDDEN void eraseSection(int number);
    YM_HIDDEN void clear();

private:
    // Where the last look-up in the run of a section stopped. The next one goes on from there, so that a loop over all
    // numbers walks the run once.
    struct Run {
        int section = session - 1; // none
        int n = -1;                // nothing was looked up yet
        Position line;
        int count = -1; // of all lines of the type in the section, those behind the run too; not counted yet
    };

    // What is known of the lines of a type.
    struct Notes {
        char type;
        Run run;
        int lastSection = session - 1; // not looked for yet

        explicit Notes(char t) : type(t) { }
    };

    YM_HIDDEN Notes& notes(char type);
    YM_HIDDEN Run& run(int section, char type);
    YM_HIDDEN void findSections();
    YM_HIDDEN void forgetType(char type);

    // The memory of the list and of its texts.
    NodePool nodes_;
    std::vector<Text> texts_;

    // The places below are found when they are asked for, and forgotten when a line comes or goes that may change them.
    std::vector<Position> sections_; // the "m=" lines, behind those of sections that are gone
    std::size_t nGone_ = 0;
    bool sectionsKnown_ = false;
    Run sessionRun_;
    std::vector<Notes> notes_; // of the few types that were asked for
};

} // namespace ym::SDP

// A pattern's text, taken apart into steps.
#pragma once

#include <string_view>

#include "support/pregex/ByteSet.h"
#include "support/pregex/SmallArray.h"

namespace ym::pregex {

// One element of a pattern, with its repetition.
struct Step {
    enum Kind : unsigned char {
        Begin,    // ^
        End,      // $
        Open,     // (
        Close,    // )
        Once,     // x
        Optional, // x{0,1}
        Star,     // x*
        Plus,     // x+
    };

    Kind kind;
    unsigned char group; // of Open and Close
    bool firm;           // of a repetition, once studied: being shorter than it can be is of no use to what follows
    const ByteSet* set;  // of all others but Begin, End, Open and Close

    bool repeats() const { return kind >= Optional; }
};

// The steps of a pattern, which have to match one behind the other.
class Pattern {
public:
    explicit Pattern(std::string_view text);

    // False if the text holds a construct that is not supported.
    bool isUsable() const { return usable_; }

    unsigned int nSteps() const { return steps_.size(); }
    const Step& step(unsigned int i) const { return steps_[i]; }
    unsigned int nGroups() const { return nGroups_; }

    // Whether a match can begin at the beginning of the subject only.
    bool isAnchored() const { return nSteps() > 0 && step(0).kind == Step::Begin; }

    // The bytes at which a match can begin, or null if it may begin anywhere.
    const ByteSet* first() const { return anywhere_ ? nullptr : &first_; }

    // Finds the repetitions that are firm. That is worth its time only for a match that goes back again and again.
    void study();

private:
    class Reader;

    void findFirst();

    SmallArray<Step, 64> steps_;
    SmallArray<ByteSet, 21> brackets_;
    unsigned int nGroups_ = 0;
    bool usable_;
    bool studied_ = false;
    bool anywhere_ = true;
    ByteSet first_;
};

} // namespace ym::pregex

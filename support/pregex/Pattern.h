// A pattern's text, taken apart into steps.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "support/SmallArray.h"
#include "support/pregex/ByteSet.h"

namespace ym::pregex {

// One element of a pattern, with its repetition.
struct Step {
    enum Kind : unsigned int {
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
    unsigned int number; // of Open and Close: the group; of Once and all behind it: the byte, if there is no set
    const ByteSet* set;
    bool firm; // of a repetition, once studied: being shorter than it can be is of no use to what follows

    bool takesBytes() const { return kind >= Once; }
    bool repeats() const { return kind >= Optional; }
    bool takes(unsigned char c) const { return set ? (*set)[c] != 0 : c == number; }
};

// The steps of a pattern, which have to match one behind the other.
class Pattern {
public:
    explicit Pattern(std::string_view text);

    // False if the text holds a construct that is not supported.
    bool isUsable() const { return usable_; }

    const Step* steps() const { return steps_.data(); }
    unsigned int nSteps() const { return steps_.size(); }
    unsigned int nGroups() const { return nGroups_; }

    // Whether a match can begin at the beginning of the subject only.
    bool isAnchored() const { return nSteps() > 0 && steps()->kind == Step::Begin; }

    // Puts the bytes at which a match can begin into `*first`. False if it may begin anywhere.
    bool findFirst(ByteSet* first) const;

    // Finds the repetitions that are firm. That is worth its time only for a match that goes back again and again.
    void study();

    // The sets that stand in brackets. They do not move while others are added.
    class Brackets {
    public:
        ByteSet& add()
        {
            if (first_.size() < first_.capacity())
                return first_.add();
            more_.push_back(std::make_unique<ByteSet>());
            return *more_.back();
        }

    private:
        SmallArray<ByteSet, 2> first_;
        std::vector<std::unique_ptr<ByteSet>> more_;
    };

private:
    SmallArray<Step, 64> steps_;
    Brackets brackets_;
    unsigned int nGroups_ = 0;
    bool usable_;
    bool studied_ = false;
};

} // namespace ym::pregex

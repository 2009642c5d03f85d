// Numbered access to a sequence with gaps.
#pragma once

#include <cstdint>

namespace ym {

// The place in a sequence of slots where the last look-up by number stopped. Slots whose element was taken out are gone
// and have no number. The next look-up goes on from that place, or from an end of the sequence if that is nearer, so
// that a loop over all numbers passes each slot once, in either direction and also if it takes elements out on its way.
//
// Slots that are gone and stand next to each other are passed in one step. The first and the last one of them know how
// many they are: `gapAt(slot)` tells, and gives 0 for a slot with an element.
class NumberedPlace {
public:
    // The slot of element number `index`, counted from 0. There must be one.
    template <class GapAt>
    std::uint32_t seek(std::uint32_t index, std::uint32_t nSlots, std::uint32_t nElements, GapAt gapAt)
    {
        if (nSlots == nElements)
            return index;
        if (index < index_ / 2)
            set(0, 0);
        if (index > index_ && nElements - index < index - index_)
            set(nSlots, nElements);
        for (; index_ > index; --index_) {
            --slot_;
            slot_ -= gapAt(slot_);
        }
        slot_ += gapAt(slot_);
        for (; index_ < index; ++index_) {
            ++slot_;
            slot_ += gapAt(slot_);
        }
        return slot_;
    }

    // To be called when the element of a slot is taken out: what stands behind it moves up a number. `setGap(slot, n)`
    // is called for the first and the last one of the slots that are gone there now.
    template <class GapAt, class SetGap>
    void leave(std::uint32_t slot, std::uint32_t nSlots, GapAt gapAt, SetGap setGap)
    {
        const std::uint32_t first = slot > 0 ? slot - gapAt(slot - 1) : slot;
        const std::uint32_t last = slot + 1 < nSlots ? slot + gapAt(slot + 1) : slot;
        setGap(first, last - first + 1);
        setGap(last, last - first + 1);
        index_ -= slot < slot_;
        if (first <= slot_ && slot_ <= last)
            slot_ = first;
    }

    // To be called when slots move.
    void forget() { set(0, 0); }

private:
    void set(std::uint32_t slot, std::uint32_t index)
    {
        slot_ = slot;
        index_ = index;
    }

    // The first element in this slot or behind it has this number. If the slot is gone, none before it is.
    std::uint32_t slot_ = 0;
    std::uint32_t index_ = 0;
};

} // namespace ym

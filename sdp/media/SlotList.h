#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>

#include "support/NumberedPlace.h"
#include "support/SmallArray.h"

namespace ym::SDP {

// A place in a list: an object, or one of a row of empty places, which have none.
struct ObjectSlot {
    void* object;
    std::uint32_t gap; // the length of the row, if it begins or ends here; 0 if there is an object
};

// An ordered list of objects of any kind, so that the code is there once for all kinds. An object that is removed
// leaves an empty slot; these are closed when they become too many.
class SlotList {
public:
    using Slots = SmallArray<ObjectSlot, 4>;

    unsigned int size() const { return slots_.size() - nEmpty_; }
    const Slots& slots() const { return slots_; }

    // The object at a position, or null. A loop over all positions walks the list once.
    void* at(unsigned int index)
    {
        if (index >= size())
            return nullptr;
        const auto gapAt = [this](std::uint32_t slot) { return slots_[slot].gap; };
        return slots_[place_.seek(index, slots_.size(), size(), gapAt)].object;
    }

    void reserve(unsigned int n) { slots_.reserve(n); }

    // Makes room, so that the next object can be added without a failure.
    void makeRoom() { slots_.makeRoom(); }

    void add(void* object)
    {
        slots_.add() = {object, 0};
        if (places_)
            enter(slots_.size() - 1);
    }

    // Removes all entries of an object. False if there is none.
    bool remove(const void* object);

private:
    using Places = std::unordered_multimap<const void*, std::uint32_t>;

    void empty(std::uint32_t slot);
    bool findPlaces();
    void enter(std::uint32_t slot);
    void closeGaps();

    Slots slots_;
    unsigned int nEmpty_ = 0;
    NumberedPlace place_;
    std::unique_ptr<Places> places_; // of a long list, once an object was removed; or null
};

} // namespace ym::SDP

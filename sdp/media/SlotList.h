#pragma once

#include <cstdint>
#include <memory>
#include <unordered_map>
#include <vector>

#include "support/NumberedPlace.h"

namespace ym::SDP {

// An ordered list of objects of any kind. One that is removed leaves an empty slot; these are closed when they have
// become as many as the objects.
class SlotList {
public:
    unsigned int size() const { return static_cast<unsigned int>(slots_.size()) - nEmpty_; }

    // All slots, null where one is empty.
    const std::vector<void*>& slots() const { return slots_; }

    // The object at a position, or null. A loop over all positions walks the list once.
    void* at(unsigned int index)
    {
        if (index >= size())
            return nullptr;
        const auto nSlots = static_cast<std::uint32_t>(slots_.size());
        return slots_[place_.seek(index, nSlots, size(), [this](std::uint32_t slot) { return !slots_[slot]; })];
    }

    void reserve(std::size_t n) { slots_.reserve(n); }
    void add(void* object)
    {
        slots_.push_back(object);
        if (places_)
            enter(slots_.size() - 1);
    }

    // Removes all entries of an object. False if there is none.
    bool remove(const void* object);

private:
    using Places = std::unordered_multimap<const void*, std::uint32_t>;

    std::vector<std::uint32_t> placesOf(const void* object);
    bool findPlaces();
    void enter(std::size_t slot);
    void closeGaps();

    std::vector<void*> slots_;
    unsigned int nEmpty_ = 0;
    NumberedPlace place_;
    std::unique_ptr<Places> places_; // of a long list, once an object was removed; or null
};

} // namespace ym::SDP

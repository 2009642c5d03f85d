#include "sdp/media/SlotList.h"

#include <algorithm>
#include <new>

namespace ym::SDP {

namespace {

constexpr unsigned int shortList = 32; // as fast to walk as to look up

} // namespace

bool SlotList::remove(const void* object)
{
    const unsigned int before = size();
    if (!object)
        return false;
    if (slots_.size() > shortList && findPlaces()) {
        const auto [first, last] = places_->equal_range(object);
        std::for_each(first, last, [this](const auto& place) { empty(place.second); });
        places_->erase(first, last);
    } else {
        for (std::uint32_t slot = 0; slot < slots_.size(); ++slot)
            if (slots_[slot].object == object)
                empty(slot);
    }
    const bool isRemoved = size() < before;
    if (nEmpty_ > size() + shortList)
        closeGaps();
    return isRemoved;
}

void SlotList::empty(std::uint32_t slot)
{
    place_.leave(
        slot, slots_.size(), [this](std::uint32_t at) { return slots_[at].gap; },
        [this](std::uint32_t end, std::uint32_t n) {
            slots_[end] = {nullptr, n};
        });
    slots_[slot].object = nullptr;
    ++nEmpty_;
}

// False if there is no memory for them.
bool SlotList::findPlaces()
{
    if (places_)
        return true;
    places_.reset(new (std::nothrow) Places);
    for (std::uint32_t slot = 0; places_ && slot < slots_.size(); ++slot)
        enter(slot);
    return places_ != nullptr;
}

// An index that lacks an object would deny what the list holds; rather none than that.
void SlotList::enter(std::uint32_t slot)
{
    try {
        if (const void* const object = slots_[slot].object)
            places_->emplace(object, slot);
    } catch (const std::bad_alloc&) {
        places_.reset();
    }
}

void SlotList::closeGaps()
{
    const auto isEmpty = [](ObjectSlot slot) { return !slot.object; };
    ObjectSlot* const end = slots_.data() + slots_.size();
    slots_.resize(static_cast<unsigned int>(std::remove_if(slots_.data(), end, isEmpty) - slots_.data()));
    nEmpty_ = 0;
    place_.forget();
    places_.reset();
}

} // namespace ym::SDP

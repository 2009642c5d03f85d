#include "sdp/media/SlotList.h"

#include <algorithm>
#include <new>

namespace ym::SDP {

namespace {

constexpr unsigned int shortList = 32; // as fast to walk as to look up

} // namespace

bool SlotList::remove(const void* object)
{
    if (!object)
        return false;
    const std::vector<std::uint32_t> removed = placesOf(object);
    for (const std::uint32_t slot : removed) {
        slots_[slot] = nullptr;
        place_.leave(slot);
        ++nEmpty_;
    }
    if (places_)
        places_->erase(object);
    if (nEmpty_ > size() + shortList)
        closeGaps();
    return !removed.empty();
}

std::vector<std::uint32_t> SlotList::placesOf(const void* object)
{
    std::vector<std::uint32_t> found;
    if (slots_.size() > shortList && findPlaces()) {
        const auto [first, last] = places_->equal_range(object);
        std::for_each(first, last, [&](const auto& place) { found.push_back(place.second); });
        return found;
    }
    for (std::uint32_t slot = 0; slot < slots_.size(); ++slot)
        if (slots_[slot] == object)
            found.push_back(slot);
    return found;
}

// False if there is no memory for them.
bool SlotList::findPlaces()
{
    if (places_)
        return true;
    places_.reset(new (std::nothrow) Places);
    for (std::size_t slot = 0; places_ && slot < slots_.size(); ++slot)
        enter(slot);
    return places_ != nullptr;
}

// An index that lacks an object would deny what the list holds; rather none than that.
void SlotList::enter(std::size_t slot)
{
    try {
        if (slots_[slot])
            places_->emplace(slots_[slot], static_cast<std::uint32_t>(slot));
    } catch (const std::bad_alloc&) {
        places_.reset();
    }
}

void SlotList::closeGaps()
{
    slots_.erase(std::remove(slots_.begin(), slots_.end(), nullptr), slots_.end());
    nEmpty_ = 0;
    place_.forget();
    places_.reset();
}

} // namespace ym::SDP

#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

#include "support/NumberedPlace.h"

namespace ym::SDP {

// An ordered list of objects that it owns. Objects keep their place in memory, whatever comes and goes. An object that
// is taken out leaves an empty slot; these are closed when they have become as many as the objects.
template <class T> class OwnedList {
    using Slots = std::vector<std::unique_ptr<T>>;

public:
    // Over the objects that are there.
    class iterator {
    public:
        iterator(const Slots* slots, std::size_t slot) : slots_(slots), slot_(slot) { skipEmpty(); }

        T& operator*() const { return *(*slots_)[slot_]; }
        iterator& operator++()
        {
            ++slot_;
            skipEmpty();
            return *this;
        }
        bool operator!=(const iterator& other) const { return slot_ != other.slot_; }

    private:
        void skipEmpty()
        {
            while (slot_ < slots_->size() && !(*slots_)[slot_])
                ++slot_;
        }

        const Slots* slots_;
        std::size_t slot_;
    };

    iterator begin() const { return {&slots_, 0}; }
    iterator end() const { return {&slots_, slots_.size()}; }
    unsigned int size() const { return static_cast<unsigned int>(slots_.size()) - nEmpty_; }
    bool empty() const { return size() == 0; }

    // The object at a position, or null. A loop over all positions walks the list once.
    T* at(unsigned int index)
    {
        if (index >= size())
            return nullptr;
        const auto nSlots = static_cast<std::uint32_t>(slots_.size());
        return slots_[place_.seek(index, nSlots, size(), [this](std::uint32_t i) { return !slots_[i]; })].get();
    }

    // Makes room for so many objects in all.
    void reserve(std::size_t n) { slots_.reserve(n); }

    void add(std::unique_ptr<T> object)
    {
        slots_.push_back(std::move(object));
        if (places_)
            enter(slots_.size() - 1);
    }

    // Takes an object out and gives it away. Null if it is not there. An object that was added twice, against the
    // rules, leaves all its places; it can be given away only once.
    std::unique_ptr<T> take(const T* object)
    {
        std::unique_ptr<T> taken;
        if (!object)
            return taken;
        for (const std::uint32_t slot : placesOf(object)) {
            static_cast<void>(taken.release());
            taken = std::move(slots_[slot]);
            place_.leave(slot);
            ++nEmpty_;
        }
        if (places_)
            places_->erase(object);
        if (nEmpty_ > size() + shortList)
            closeGaps();
        return taken;
    }

    // Destroys all objects, the first one first.
    void clear()
    {
        for (std::unique_ptr<T>& object : slots_)
            object.reset();
        *this = OwnedList();
    }

    // Adds copies of all objects of another list.
    void copy(const OwnedList& other)
    {
        slots_.reserve(slots_.size() + other.size());
        for (const T& object : other) {
            auto added = std::make_unique<T>();
            *added = object;
            add(std::move(added));
        }
    }

private:
    using Places = std::unordered_multimap<const T*, std::uint32_t>;

    static constexpr unsigned int shortList = 32; // as fast to walk as to look up

    std::vector<std::uint32_t> placesOf(const T* object)
    {
        std::vector<std::uint32_t> found;
        if (slots_.size() > shortList && findPlaces()) {
            const auto [first, last] = places_->equal_range(object);
            std::for_each(first, last, [&](const auto& place) { found.push_back(place.second); });
            return found;
        }
        for (std::uint32_t slot = 0; slot < slots_.size(); ++slot)
            if (slots_[slot].get() == object)
                found.push_back(slot);
        return found;
    }

    // False if there is no memory for them.
    bool findPlaces()
    {
        if (places_)
            return true;
        places_.reset(new (std::nothrow) Places);
        for (std::size_t slot = 0; places_ && slot < slots_.size(); ++slot)
            enter(slot);
        return places_ != nullptr;
    }

    // An index that lacks an object would deny what the list holds; rather none than that.
    void enter(std::size_t slot)
    {
        try {
            if (slots_[slot])
                places_->emplace(slots_[slot].get(), static_cast<std::uint32_t>(slot));
        } catch (const std::bad_alloc&) {
            places_.reset();
        }
    }

    void closeGaps()
    {
        slots_.erase(std::remove(slots_.begin(), slots_.end(), nullptr), slots_.end());
        nEmpty_ = 0;
        place_.forget();
        places_.reset();
    }

    Slots slots_;
    unsigned int nEmpty_ = 0;
    NumberedPlace place_;
    std::unique_ptr<Places> places_; // of a long list, once an object was taken out; or null
};

} // namespace ym::SDP

#pragma once

#include <memory>
#include <utility>

#include "sdp/media/SlotList.h"

namespace ym::SDP {

// An ordered list of objects that it owns. Objects keep their place in memory, whatever comes and goes.
template <class T> class OwnedList {
public:
    // Over the objects that are there.
    class iterator {
    public:
        iterator(const ObjectSlot* slot, const ObjectSlot* end) : slot_(slot), end_(end) { skipGap(); }

        T& operator*() const { return *static_cast<T*>(slot_->object); }
        iterator& operator++()
        {
            ++slot_;
            skipGap();
            return *this;
        }
        bool operator!=(const iterator& other) const { return slot_ != other.slot_; }

    private:
        void skipGap()
        {
            if (slot_ != end_)
                slot_ += slot_->gap;
        }

        const ObjectSlot* slot_;
        const ObjectSlot* end_;
    };

    OwnedList() = default;
    OwnedList(OwnedList&& other) noexcept { *this = std::move(other); }
    ~OwnedList() { clear(); }

    OwnedList& operator=(OwnedList&& other) noexcept
    {
        if (this != &other) {
            clear();
            std::swap(slots_, other.slots_);
        }
        return *this;
    }

    iterator begin() const { return {slots_.slots().begin(), slots_.slots().end()}; }
    iterator end() const { return {slots_.slots().end(), slots_.slots().end()}; }
    unsigned int size() const { return slots_.size(); }
    bool empty() const { return size() == 0; }

    // The object at a position, or null. A loop over all positions walks the list once.
    T* at(unsigned int index) { return static_cast<T*>(slots_.at(index)); }

    // Makes room for so many objects in all.
    void reserve(unsigned int n) { slots_.reserve(n); }

    // Makes room, so that the next object can be added without a failure.
    void makeRoom() { slots_.makeRoom(); }

    // Where memory runs out, the object is destroyed.
    void add(std::unique_ptr<T> object)
    {
        slots_.add(object.get());
        static_cast<void>(object.release());
    }

    // Takes an object out and gives it away. Null if it is not there. An object that was added twice, against the
    // rules, leaves all its places; it can be given away only once.
    std::unique_ptr<T> take(T* object) { return std::unique_ptr<T>(slots_.remove(object) ? object : nullptr); }

    // Destroys all objects, the first one first.
    void clear()
    {
        SlotList gone;
        std::swap(gone, slots_);
        for (const ObjectSlot& slot : gone.slots())
            std::unique_ptr<T>(static_cast<T*>(slot.object));
    }

    // Adds copies of all objects of another list.
    void copy(const OwnedList& other)
    {
        copy(other, [](T&) {});
    }

    // The same, and calls `prepare(copy)` for each before it is added.
    template <class Prepare> void copy(const OwnedList& other, Prepare prepare)
    {
        reserve(size() + other.size());
        for (const T& object : other) {
            auto added = std::make_unique<T>();
            *added = object;
            prepare(*added);
            add(std::move(added));
        }
    }

private:
    SlotList slots_;
};

} // namespace ym::SDP

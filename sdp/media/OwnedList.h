#pragma once

#include <list>
#include <memory>
#include <new>
#include <unordered_map>
#include <utility>
#include <vector>

#include "support/NumberedPlace.h"

namespace ym::SDP {

// An ordered list of objects that it owns. Objects keep their place in memory, and other entries theirs in the list,
// whatever comes and goes.
template <class T> class OwnedList {
    using List = std::list<std::unique_ptr<T>>;

public:
    using iterator = typename List::iterator;

    unsigned int size() const { return static_cast<unsigned int>(list_.size()); }
    bool empty() const { return list_.empty(); }
    iterator begin() { return list_.begin(); }
    iterator end() { return list_.end(); }

    // The object at a position, or null. A loop over all positions walks the list once.
    T* at(unsigned int index) { return index < size() ? place_.seek(list_, index)->get() : nullptr; }

    iterator add(std::unique_ptr<T> object)
    {
        const bool indexed = !entries_.empty();
        const iterator entry = list_.insert(list_.end(), std::move(object));
        if (indexed)
            enter(entry);
        return entry;
    }

    // Takes an entry out of the list and gives its object away.
    std::unique_ptr<T> take(iterator entry)
    {
        std::unique_ptr<T> object = std::move(*entry);
        entries_.erase(object.get());
        place_.leave(list_, entry);
        list_.erase(entry);
        return object;
    }

    // Destroys an object and removes all entries that hold it. False if there is none.
    bool drop(const T* object)
    {
        std::unique_ptr<T> dropped;
        for (const iterator entry : entriesOf(object)) {
            std::unique_ptr<T> taken = take(entry);
            if (dropped)
                static_cast<void>(taken.release()); // added twice, against the rules, but it can be destroyed only once
            else
                dropped = std::move(taken);
        }
        return dropped != nullptr;
    }

    // Destroys all objects, the first one first.
    void clear()
    {
        entries_.clear();
        place_.forget();
        while (!list_.empty())
            list_.pop_front();
    }

    // Adds copies of all objects of another list.
    void copy(const OwnedList& other)
    {
        for (const std::unique_ptr<T>& object : other.list_) {
            auto added = std::make_unique<T>();
            *added = *object;
            add(std::move(added));
        }
    }

private:
    std::vector<iterator> entriesOf(const T* object)
    {
        constexpr std::size_t shortList = 32; // as fast to walk as to look up
        if (list_.size() <= shortList)
            return entriesByWalk(object);
        if (entries_.empty())
            for (iterator entry = begin(); entry != end() && enter(entry); ++entry) { }
        if (entries_.empty()) // there was no memory for them
            return entriesByWalk(object);
        std::vector<iterator> found;
        const auto [first, last] = entries_.equal_range(object);
        for (auto each = first; each != last; ++each)
            found.push_back(each->second);
        return found;
    }

    std::vector<iterator> entriesByWalk(const T* object)
    {
        std::vector<iterator> found;
        for (iterator entry = begin(); entry != end(); ++entry)
            if (entry->get() == object)
                found.push_back(entry);
        return found;
    }

    // An index that lacks an entry would deny what the list holds; rather none than that.
    bool enter(iterator entry)
    {
        try {
            entries_.emplace(entry->get(), entry);
            return true;
        } catch (const std::bad_alloc&) {
            entries_.clear();
            return false;
        }
    }

    List list_;
    NumberedPlace<List> place_;
    std::unordered_multimap<const T*, iterator> entries_; // all of a long list, once one was dropped; or none
};

} // namespace ym::SDP

// Numbered access to a linked list that does not walk from its beginning each time.
#pragma once

#include <cstddef>
#include <iterator>

namespace ym {

// The place in a List where the last look-up by number stopped. The next one goes on from there, or from an end of the
// list if that is nearer, so that a loop over all numbers walks the list once, in either direction and also if it takes
// elements out on its way.
template <class List> class NumberedPlace {
public:
    using iterator = typename List::iterator;

    // The element number `index`, counted from 0. There must be one.
    iterator seek(List& list, unsigned int index)
    {
        const auto size = static_cast<unsigned int>(list.size());
        if (!known_ || index < index_ / 2)
            set(list.begin(), 0);
        if (index > index_ && size - index < index - index_)
            set(list.end(), size);
        std::advance(at_, static_cast<std::ptrdiff_t>(index) - static_cast<std::ptrdiff_t>(index_));
        index_ = index;
        return at_;
    }

    // To be called before `gone` is taken out of the list: its successor takes over its number.
    void leave(const List& list, iterator gone)
    {
        const bool isHere = known_ && at_ == gone;
        forget();
        if (isHere && std::next(gone) != list.end())
            set(std::next(gone), index_);
        else if (isHere && index_ > 0)
            set(std::prev(gone), index_ - 1);
    }

    void forget() { known_ = false; }

private:
    void set(iterator at, unsigned int index)
    {
        at_ = at;
        index_ = index;
        known_ = true;
    }

    iterator at_{};
    unsigned int index_ = 0;
    bool known_ = false;
};

} // namespace ym

// Numbered access to a linked list that does not walk from its beginning each time.
#pragma once

#include <iterator>

namespace ym {

// The place in a List where the last look-up by number stopped. The next one goes on from there, or from the
// beginning if that is nearer, so that a loop over all numbers walks the list once.
template <class List> class NumberedPlace {
public:
    using iterator = typename List::iterator;

    // The element number `index`, counted from 0. There must be one.
    iterator seek(List& list, unsigned int index)
    {
        if (!known_ || index < index_ / 2) {
            at_ = list.begin();
            index_ = 0;
            known_ = true;
        }
        std::advance(at_, static_cast<std::ptrdiff_t>(index) - static_cast<std::ptrdiff_t>(index_));
        index_ = index;
        return at_;
    }

    // To be called before `gone` is taken out of the list: its successor takes over its number.
    void leave(const List& list, iterator gone)
    {
        if (known_ && at_ == gone)
            known_ = ++at_ != list.end();
        else
            forget();
    }

    void forget() { known_ = false; }

private:
    iterator at_{};
    unsigned int index_ = 0;
    bool known_ = false;
};

} // namespace ym

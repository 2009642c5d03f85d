#pragma once

#include <memory>

namespace ym {

// A new object on the heap. Unlike std::make_unique, this does not clear the memory of a plain struct before its
// members are constructed in it.
template <class T> std::unique_ptr<T> make()
{
    return std::unique_ptr<T>(new T);
}

} // namespace ym

#pragma once

#include <algorithm>
#include <memory>
#include <type_traits>
#include <utility>

namespace ym {

// A growing array whose first N elements live inside it, so that the usual case never asks the heap.
// Elements are plain values, and have no defined value until they are written.
template <class T, unsigned int N> class SmallArray {
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_default_constructible_v<T>);

public:
    SmallArray() = default;
    SmallArray(const SmallArray&) = delete;
    SmallArray& operator=(const SmallArray&) = delete;

    // Moving leaves `other` empty.
    SmallArray(SmallArray&& other) noexcept { *this = std::move(other); }
    SmallArray& operator=(SmallArray&& other) noexcept
    {
        if (!other.more_)
            std::copy_n(other.first_, other.size_, first_);
        size_ = std::exchange(other.size_, 0);
        capacity_ = std::exchange(other.capacity_, N);
        more_ = std::move(other.more_);
        return *this;
    }

    unsigned int size() const { return size_; }
    unsigned int capacity() const { return capacity_; }
    T* data() { return more_ ? more_.get() : first_; }
    const T* data() const { return more_ ? more_.get() : first_; }
    T& operator[](unsigned int i) { return data()[i]; }
    const T& operator[](unsigned int i) const { return data()[i]; }
    const T* begin() const { return data(); }
    const T* end() const { return data() + size_; }
    T& back() { return (*this)[size_ - 1]; }

    void clear() { size_ = 0; }

    // Makes room for one more element.
    void makeRoom()
    {
        if (size_ == capacity_)
            grow(capacity_ * 2);
    }

    // A new last element.
    T& add()
    {
        makeRoom();
        return (*this)[size_++];
    }

    void drop() { --size_; }

    // Makes room for so many elements in all.
    void reserve(unsigned int capacity)
    {
        if (capacity > capacity_)
            grow(capacity);
    }

    void resize(unsigned int size)
    {
        reserve(size);
        size_ = size;
    }

    void assign(const T* elements, unsigned int n)
    {
        size_ = 0; // nothing of the old content is worth a copy
        resize(n);
        std::copy_n(elements, n, data());
    }

private:
    void grow(unsigned int capacity)
    {
        std::unique_ptr<T[]> more(new T[capacity]);
        std::copy_n(data(), size_, more.get());
        more_ = std::move(more);
        capacity_ = capacity;
    }

    unsigned int size_ = 0;
    unsigned int capacity_ = N;
    std::unique_ptr<T[]> more_;
    T first_[N];
};

} // namespace ym

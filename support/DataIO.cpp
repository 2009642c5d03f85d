#include <tovik/DataIO.h>

#include <algorithm>
#include <limits>
#include <stdexcept>

namespace ym {

DataIO::~DataIO() = default;

MemoryIO::MemoryIO(const void* data, unsigned int size) : ahead_(static_cast<const char*>(data)), size_(size) { }
MemoryIO::~MemoryIO() = default;

const char* MemoryIO::peek(unsigned int* size)
{
    *size = size_;
    return ahead_;
}

void MemoryIO::skip(unsigned int size)
{
    size = std::min(size, size_);
    ahead_ += size;
    size_ -= size;
}

PositionIO::~PositionIO() = default;

MallocIO::MallocIO() = default;
MallocIO::~MallocIO() = default;

void MallocIO::write(const void* data, unsigned int size)
{
    if (size > std::numeric_limits<unsigned int>::max() - bytes_.size())
        throw std::length_error("ym::MallocIO: too many bytes");
    if (size > 0)
        bytes_.append(static_cast<const char*>(data), size);
}

void MallocIO::reserve(unsigned int size)
{
    bytes_.reserve(size);
}

const void* MallocIO::buffer() const
{
    return bytes_.data();
}

unsigned int MallocIO::length() const
{
    return static_cast<unsigned int>(bytes_.size());
}

} // namespace ym

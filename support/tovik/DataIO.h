#pragma once

#include <string>

#include <tovik/export.h>

namespace ym {

// A stream to read from: it shows what lies ahead, and skips as much of that as its reader has used.
class YM_EXPORT DataIO {
public:
    virtual ~DataIO();

    // The bytes that can be read without waiting, and their number in `*size`, which is 0 only at the end of
    // the stream. They stay valid until the stream is next skipped or destroyed. `size` must not be null.
    virtual const char* peek(unsigned int* size) = 0;

    // Passes over the first `size` of the bytes that the last peek showed. More than those are not passed over.
    virtual void skip(unsigned int size) = 0;
};

// Reads a block of memory that it does not own. The block must stay valid for the life of the object.
class YM_EXPORT MemoryIO : public DataIO {
public:
    // Reads `size` bytes from `data` on. With a size of 0, `data` may be null.
    MemoryIO(const void* data, unsigned int size);
    ~MemoryIO() override;

    const char* peek(unsigned int* size) override;
    void skip(unsigned int size) override;

private:
    const char* ahead_;
    unsigned int size_;
};

// A stream with a position at which it is written.
class YM_EXPORT PositionIO {
public:
    virtual ~PositionIO();

    // Adds `size` bytes behind what was written before. With a size of 0 nothing is written, and `data` may be null.
    virtual void write(const void* data, unsigned int size) = 0;
};

// Writes into a block of memory that grows, and that it owns. It holds at most 4294967295 bytes; a write that goes
// beyond throws std::length_error and writes nothing, like one that finds no memory and throws std::bad_alloc.
class YM_EXPORT MallocIO : public PositionIO {
public:
    MallocIO();
    ~MallocIO() override;

    void write(const void* data, unsigned int size) override;

    // Makes room for `size` bytes in all, so that writing them does not move what was written before.
    void reserve(unsigned int size);

    // All bytes written so far. Valid until the next write or the end of the object; never null.
    const void* buffer() const;

    // The number of bytes written, all writes together.
    unsigned int length() const;

private:
    std::string bytes_;
};

} // namespace ym

#pragma once

#include <algorithm>
#include <cstddef>
#include <new>

namespace ym::SDP {

// Memory for the nodes of one list, which come and go one by one. It is taken from the heap in blocks, so that a list
// of n nodes costs few trips there, and given back all at once.
class NodePool {
public:
    NodePool() = default;
    NodePool(const NodePool&) = delete;
    NodePool& operator=(const NodePool&) = delete;
    ~NodePool() { release(); }

    // Memory for a node. All calls must ask for the same size.
    void* take(std::size_t size)
    {
        if (free_) {
            Free* const node = free_;
            free_ = node->next;
            return node;
        }
        if (left_ == 0)
            addBlock(size);
        --left_;
        void* const node = unused_;
        unused_ += size;
        return node;
    }

    // Takes a node back, to be handed out again.
    void give(void* node) { free_ = new (node) Free{free_}; }

    // Gives all memory back. No node may be in use.
    void release()
    {
        while (blocks_) {
            Block* const block = blocks_;
            blocks_ = block->next;
            ::operator delete(block);
        }
        free_ = nullptr;
        left_ = 0;
        blockSize_ = firstBlock;
    }

private:
    struct Free {
        Free* next;
    };

    // The head of a block; the nodes follow.
    struct alignas(std::max_align_t) Block {
        Block* next;
    };

    static constexpr std::size_t firstBlock = 16;
    static constexpr std::size_t largestBlock = 1024;

    void addBlock(std::size_t size)
    {
        char* const memory = static_cast<char*>(::operator new(sizeof(Block) + blockSize_ * size));
        blocks_ = new (memory) Block{blocks_};
        unused_ = memory + sizeof(Block);
        left_ = blockSize_;
        blockSize_ = std::min(blockSize_ * 2, largestBlock);
    }

    Block* blocks_ = nullptr;
    Free* free_ = nullptr;
    char* unused_ = nullptr; // what is left of the last block
    std::size_t left_ = 0;
    std::size_t blockSize_ = firstBlock;
};

// Makes a list take its nodes from a pool, which must outlive it.
template <class T> class NodeAllocator {
public:
    using value_type = T;

    explicit NodeAllocator(NodePool* pool) : pool_(pool) { }
    template <class U> NodeAllocator(const NodeAllocator<U>& other) : pool_(other.pool()) { }

    T* allocate(std::size_t) { return static_cast<T*>(pool_->take(sizeof(T))); } // lists ask for one node at a time
    void deallocate(T* node, std::size_t) { pool_->give(node); }

    NodePool* pool() const { return pool_; }

    template <class U> bool operator==(const NodeAllocator<U>& other) const { return pool_ == other.pool(); }
    template <class U> bool operator!=(const NodeAllocator<U>& other) const { return !(*this == other); }

private:
    NodePool* pool_;
};

} // namespace ym::SDP

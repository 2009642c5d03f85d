// Values drawn from the bytes that a fuzzer chooses. Bytes that are used up read as zeros.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>

namespace fuzz {

class Input {
public:
    Input(const std::uint8_t* data, std::size_t size) : at_(data), end_(data + size) { }

    bool isEmpty() const { return at_ == end_; }

    // A number from 0 to n - 1, for n up to 256.
    std::size_t below(std::size_t n) { return isEmpty() ? 0 : *at_++ % n; }

    template <class T, std::size_t n> const T& oneOf(const T (&values)[n]) { return values[below(n)]; }

    // Up to `most` bytes.
    std::string bytes(std::size_t most)
    {
        std::size_t n = below(most + 1);
        n = std::min<std::size_t>(n, static_cast<std::size_t>(end_ - at_));
        at_ += n;
        return {at_ - n, at_};
    }

    // All bytes up to the first one of this value, or to the end. That one is passed over.
    std::string until(std::uint8_t value)
    {
        const std::uint8_t* const begin = at_;
        at_ = std::find(at_, end_, value);
        std::string result{begin, at_};
        at_ += isEmpty() ? 0 : 1;
        return result;
    }

    // A number from -1 to 2^32: mostly a small one, else one at which some width ends.
    long long number()
    {
        constexpr long long one = 1;
        const long long edges[]
            = {-1, 127, 128, 255, 256, 65535, 65536, one << 31, (one << 31) - 1, one << 32, (one << 32) - 1, 1000};
        const std::size_t choice = below(32);
        return choice < std::size(edges) ? edges[choice] : static_cast<long long>(choice - std::size(edges)) % 7;
    }

private:
    const std::uint8_t* at_;
    const std::uint8_t* end_;
};

} // namespace fuzz

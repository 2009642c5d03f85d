#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>

#include <tovik/String.h>

namespace ym::SDP {

// Puts a text together, piece by piece. The string is longer meanwhile, so that most pieces find room, and is cut at
// the end. Nobody else sees it before, so that a text is replaced as a whole or, where memory runs out, not at all.
class Writer {
public:
    // `room` is what the text is likely to need.
    explicit Writer(unsigned long room) { grow(room); }

    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;

    // Adds `n` bytes and gives their beginning. The caller writes all of them.
    char* extend(std::size_t n)
    {
        if (n > static_cast<std::size_t>(end_ - at_))
            grow(n);
        char* const begin = at_;
        at_ += n;
        return begin;
    }

    // Replaces `*out` by the text, which ends here.
    void moveTo(String* out)
    {
        text_.shorten(used());
        *out = std::move(text_);
    }

private:
    unsigned int used() const { return static_cast<unsigned int>(at_ - text_.chars()); }

    [[gnu::noinline]] void grow(unsigned long n)
    {
        const unsigned long more = std::max<unsigned long>(n, at_ ? used() : 0);
        if (at_)
            text_.shorten(used());
        at_ = text_.extend(more);
        end_ = at_ + more;
    }

    String text_;
    char* at_ = nullptr;
    char* end_ = nullptr;
};

} // namespace ym::SDP

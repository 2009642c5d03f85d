#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>

#include "sdp/line/text.h"
#include "support/SmallArray.h"
#include "support/lineEnd.h"

namespace ym::SDP {

// The lines of a text, read one after the other where they stand. The text must not change meanwhile.
class Lines {
public:
    explicit Lines(std::string_view text) : text_(text.data()), end_(text.data() + text.size())
    {
        isReadable_ = findEnds();
        goTo(text_);
    }

    // False if a line can not be read. Empty lines at the end of the text are none.
    bool areReadable() const { return isReadable_; }

    // Behind the last line. There is no line then.
    bool isEnd() const { return index_ == ends_.size(); }

    void next()
    {
        const char* const begin = behindLineEnd(text_ + ends_[index_], end_);
        ++index_;
        goTo(begin);
    }

    bool isMedia() const { return type() == 'm'; }
    char type() const { return *line_.data(); }
    std::string_view value() const { return valueOf(line_); }

private:
    bool findEnds()
    {
        for (const char* begin = text_; begin != end_;) {
            const char* const end = findLineEnd(begin, end_);
            if (end == begin)
                return std::all_of(begin, end_, endsLine);
            if (!isLine({begin, static_cast<std::size_t>(end - begin)}))
                return false;
            ends_.add() = static_cast<std::uint32_t>(end - text_);
            begin = behindLineEnd(end, end_);
        }
        return true;
    }

    void goTo(const char* begin)
    {
        if (!isEnd())
            line_ = {begin, static_cast<std::size_t>(text_ + ends_[index_] - begin)};
    }

    const char* text_;
    const char* end_;
    SmallArray<std::uint32_t, 64> ends_; // of the lines
    unsigned int index_ = 0;
    std::string_view line_;
    bool isReadable_ = false;
};

// The lines of a type that count where several may stand: those next to each other, from the first one on.
class Run {
public:
    explicit Run(char type) : type_(type) { }

    // Whether the next line of the level belongs to the run. To be asked for all of them in turn.
    bool takes(char type)
    {
        isOver_ = isOver_ || (isBegun_ && type != type_);
        isBegun_ = isBegun_ || type == type_;
        return type == type_ && !isOver_;
    }

private:
    char type_;
    bool isBegun_ = false;
    bool isOver_ = false;
};

// The line of a type that counts where only one may stand: the first one.
class FirstLines {
public:
    // Whether the next line of the level is the first one of its type. To be asked once for each.
    bool takes(char type)
    {
        const bool isFirst = (taken_ & bitOf(type)) == 0;
        taken_ |= bitOf(type);
        return isFirst;
    }

private:
    std::uint32_t taken_ = 0;
};

} // namespace ym::SDP

#pragma once

#include <cstdint>
#include <string_view>

#include <tovik/DataIO.h>
#include <tovik/LineAdapter.h>
#include <tovik/String.h>

#include "sdp/line/text.h"

namespace ym::SDP {

// The lines of a text, one after the other, read where they stand. The text must not change meanwhile.
class Lines {
public:
    explicit Lines(const String& text)
        : stream_(text.chars(), text.length()),
          reader_(&stream_, LineAdapter::LinebreakAny, LineAdapter::LinebreakCRLF, LineAdapter::LinebreakNone)
    {
        next();
    }

    void next()
    {
        const char* line = nullptr;
        unsigned int length = 0;
        isEnd_ = reader_.readLine(&line, &length) <= 0;
        line_ = {line, length};
    }

    // Behind the last line. There is no line then, and none of the rest may be called.
    bool isEnd() const { return isEnd_; }

    // Goes to the end, or to a line that can not be read. True if there is none.
    bool areReadable()
    {
        while (!isEnd() && isLine(line_))
            next();
        return isEnd();
    }

    // The rest speaks of lines that can be read.
    bool isMedia() const { return type() == 'm'; }
    char type() const { return line_.front(); }
    std::string_view value() const { return valueOf(line_); }

private:
    MemoryIO stream_;
    LineAdapter reader_;
    std::string_view line_;
    bool isEnd_ = false;
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
        const std::uint32_t bit = std::uint32_t{1} << (type - 'a');
        const bool isFirst = (taken_ & bit) == 0;
        taken_ |= bit;
        return isFirst;
    }

private:
    std::uint32_t taken_ = 0;
};

} // namespace ym::SDP

#pragma once

#include <tovik/DataIO.h>
#include <tovik/String.h>
#include <tovik/export.h>

namespace ym {

// Reads a stream line by line. Each of "\r\n", "\n" and "\r" ends a line.
class YM_EXPORT LineAdapter {
public:
    // How lines end. A reader takes every line end as it comes, so that the modes have no effect on it.
    enum linebreak_mode : int {
        LinebreakNone = -1,
        LinebreakAny = 0,
        LinebreakLF = 1,
        LinebreakCR = 2,
        LinebreakCRLF = 3,
    };

    // A reader over `stream`, which must outlive it and which it does not own.
    LineAdapter(DataIO* stream, linebreak_mode input, linebreak_mode output, linebreak_mode fallback);
    ~LineAdapter();

    LineAdapter(const LineAdapter&) = delete;
    LineAdapter& operator=(const LineAdapter&) = delete;

    // Replaces `*line` by the next line, without its line end. 1 if there was one; 0 at the end of the stream, with
    // `*line` unchanged.
    //
    // A last line without a line end is a line. Empty lines at the end of the stream are not; an empty line with
    // more text behind it is.
    int readLine(String* line);

private:
    YM_HIDDEN bool isMore();
    YM_HIDDEN bool takeLineEnd();
    YM_HIDDEN void takeLine(String* line);

    DataIO* stream_;
    unsigned long emptyLines_ = 0; // read already, and found to have text behind them

    // What the stream shows, and how much of that is used. Between two calls there is nothing of it.
    const char* begin_ = nullptr;
    const char* at_ = nullptr;
    const char* end_ = nullptr;
};

} // namespace ym

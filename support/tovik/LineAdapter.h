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

    // A reader over `stream`, which must outlive it, which it does not own, and which nobody else reads meanwhile.
    LineAdapter(DataIO* stream, linebreak_mode input, linebreak_mode output, linebreak_mode fallback);
    ~LineAdapter();

    LineAdapter(const LineAdapter&) = delete;
    LineAdapter& operator=(const LineAdapter&) = delete;

    // Replaces `*line` by the next line, without its line end. 1 if there was one; 0 at the end of the stream, with
    // `*line` unchanged.
    //
    // A last line without a line end is a line. Empty lines at the end of the stream are not; an empty line with
    // more text behind it is.
    //
    // Where memory runs out, std::bad_alloc passes through, `*line` is unchanged, and the line is lost: the next call
    // gives the one behind it.
    int readLine(String* line);

    // The same, without a copy where the stream shows the whole line at once: `*line` points to `*length` bytes in the
    // stream, or in memory of the reader where the stream shows the line in parts. They stay valid until the next
    // call, or as long as the stream says. Neither pointer may be null.
    int readLine(const char** line, unsigned int* length);

private:
    YM_HIDDEN bool isMore();
    YM_HIDDEN bool takeLineEnd();
    YM_HIDDEN bool takePlainLine(const char** line, unsigned int* length);
    YM_HIDDEN void takeLine(const char** line, unsigned int* length);
    YM_HIDDEN void addPart(const char* part, unsigned int length);

    DataIO* stream_;
    unsigned long emptyLines_ = 0; // read already, and found to have text behind them

    // What the stream shows, and how much of that is used.
    const char* begin_ = nullptr;
    const char* at_ = nullptr;
    const char* end_ = nullptr;

    String parts_; // a line that the stream shows in parts
};

} // namespace ym

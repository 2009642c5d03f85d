#include <tovik/LineAdapter.h>

#include <new>
#include <string_view>

#include "support/lineEnd.h"

namespace ym {

LineAdapter::LineAdapter(DataIO* stream, linebreak_mode, linebreak_mode, linebreak_mode) : stream_(stream) { }

LineAdapter::~LineAdapter()
{
    if (at_ != begin_)
        stream_->skip(static_cast<unsigned int>(at_ - begin_));
}

// Whether a byte lies ahead.
bool LineAdapter::isMore()
{
    if (at_ != end_)
        return true;
    if (at_ != begin_)
        stream_->skip(static_cast<unsigned int>(at_ - begin_));
    unsigned int size = 0;
    begin_ = at_ = stream_->peek(&size);
    end_ = begin_ + size;
    return size > 0;
}

bool LineAdapter::takeLineEnd()
{
    if (!isMore() || !endsLine(*at_))
        return false;
    if (*at_++ == '\r' && isMore() && *at_ == '\n')
        ++at_;
    return true;
}

// Where memory runs out, the line is lost as a whole: what is left of it must not be taken for a line.
void LineAdapter::addPart(const char* part, unsigned int length)
{
    try {
        parts_.append(part, length);
    } catch (const std::bad_alloc&) {
        while (isMore() && !endsLine(*at_))
            at_ = findLineEnd(at_, end_);
        takeLineEnd();
        throw;
    }
}

// A line that is not empty. The stream may have to be asked for more, and may then take back what it has shown.
void LineAdapter::takeLine(const char** line, unsigned int* length)
{
    parts_.assign("");
    while (isMore() && !endsLine(*at_)) {
        const char* const part = at_;
        at_ = findLineEnd(at_, end_);
        addPart(part, static_cast<unsigned int>(at_ - part));
    }
    takeLineEnd();
    *line = parts_.chars();
    *length = parts_.length();
}

// The usual case: a line that is not empty and ends, with all of its line end, in what lies ahead.
bool LineAdapter::takePlainLine(const char** line, unsigned int* length)
{
    if (emptyLines_ != 0)
        return false;
    const char* const lineEnd = findLineEnd(at_, end_);
    if (lineEnd == at_ || lineEnd == end_)
        return false;
    if (*lineEnd == '\r' && lineEnd + 1 == end_)
        return false; // a line feed may be still to come
    *line = at_;
    *length = static_cast<unsigned int>(lineEnd - at_);
    at_ = behindLineEnd(lineEnd, end_);
    return true;
}

int LineAdapter::readLine(const char** line, unsigned int* length)
{
    if (takePlainLine(line, length))
        return 1;
    // Whether an empty line counts shows only behind the last of its neighbours.
    if (emptyLines_ == 0)
        while (takeLineEnd())
            ++emptyLines_;
    if (!isMore())
        return 0;
    if (emptyLines_ == 0) {
        takeLine(line, length);
        return 1;
    }
    --emptyLines_;
    *line = "";
    *length = 0;
    return 1;
}

int LineAdapter::readLine(String* line)
{
    const char* bytes = nullptr;
    unsigned int length = 0;
    if (readLine(&bytes, &length) == 0)
        return 0;
    line->assign(std::string_view(bytes, length));
    return 1;
}

} // namespace ym

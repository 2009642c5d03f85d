#include <tovik/LineAdapter.h>

#include <cstddef>
#include <cstring>

namespace ym {

namespace {

bool endsLine(char c)
{
    return c == '\n' || c == '\r';
}

const char* findByte(const char* begin, const char* end, char c)
{
    const void* found = std::memchr(begin, c, static_cast<std::size_t>(end - begin));
    return found ? static_cast<const char*>(found) : end;
}

// The first line end, or `end`. It goes on in small strides: in a text that has only one kind of line ends, looking for
// the other kind would read all that follows, for each line.
const char* findLineEnd(const char* begin, const char* end)
{
    constexpr std::ptrdiff_t stride = 128;
    while (begin != end) {
        const char* const part = end - begin > stride ? begin + stride : end;
        const char* const found = findByte(begin, findByte(begin, part, '\n'), '\r');
        if (found != part)
            return found;
        begin = part;
    }
    return end;
}

} // namespace

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

void LineAdapter::takeLine(const char** line, unsigned int* length)
{
    const char* lineEnd = findLineEnd(at_, end_);
    *line = at_;
    *length = static_cast<unsigned int>(lineEnd - at_);
    at_ = lineEnd;
    if (lineEnd != end_ && (*lineEnd == '\n' || lineEnd + 1 != end_)) {
        takeLineEnd();
        return;
    }
    // The stream has to be asked for more, and may then take back what it has shown.
    parts_.assign("");
    parts_.append(*line, *length);
    while (isMore() && !endsLine(*at_)) {
        lineEnd = findLineEnd(at_, end_);
        parts_.append(at_, static_cast<unsigned int>(lineEnd - at_));
        at_ = lineEnd;
    }
    takeLineEnd();
    *line = parts_.chars();
    *length = parts_.length();
}

int LineAdapter::readLine(const char** line, unsigned int* length)
{
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
    line->assign("");
    line->append(bytes, length);
    return 1;
}

} // namespace ym

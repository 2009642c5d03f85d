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
LineAdapter::~LineAdapter() = default;

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

void LineAdapter::takeLine(String* line)
{
    while (isMore()) {
        const char* const lineEnd = findLineEnd(at_, end_);
        line->append(at_, static_cast<unsigned int>(lineEnd - at_));
        at_ = lineEnd;
        if (lineEnd != end_)
            break;
    }
    takeLineEnd();
}

int LineAdapter::readLine(String* line)
{
    // Whether an empty line counts shows only behind the last of its neighbours.
    if (emptyLines_ == 0)
        while (takeLineEnd())
            ++emptyLines_;
    const bool found = isMore();
    if (found) {
        line->assign("");
        if (emptyLines_ > 0)
            --emptyLines_;
        else
            takeLine(line);
    }
    stream_->skip(static_cast<unsigned int>(at_ - begin_));
    begin_ = at_ = end_ = nullptr;
    return found ? 1 : 0;
}

} // namespace ym

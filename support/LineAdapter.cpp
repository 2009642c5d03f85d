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

// Passes over one line end, if one lies directly ahead.
bool LineAdapter::skipLineEnd()
{
    unsigned int size = 0;
    const char* ahead = stream_->peek(&size);
    if (size == 0 || !endsLine(*ahead))
        return false;
    const char first = *ahead;
    stream_->skip(1);
    ahead = stream_->peek(&size);
    if (first == '\r' && size > 0 && *ahead == '\n')
        stream_->skip(1);
    return true;
}

int LineAdapter::readLine(String* line)
{
    // Whether an empty line counts shows only behind the last of its neighbours.
    if (emptyLines_ == 0)
        while (skipLineEnd())
            ++emptyLines_;

    unsigned int size = 0;
    const char* ahead = stream_->peek(&size);
    if (size == 0)
        return 0;
    line->assign("");
    if (emptyLines_ > 0) {
        --emptyLines_;
        return 1;
    }
    while (size > 0) {
        const auto n = static_cast<unsigned int>(findLineEnd(ahead, ahead + size) - ahead);
        line->append(ahead, n);
        stream_->skip(n);
        if (n < size)
            break;
        ahead = stream_->peek(&size);
    }
    skipLineEnd();
    return 1;
}

} // namespace ym

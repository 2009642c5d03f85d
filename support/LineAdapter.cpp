#include <tovik/LineAdapter.h>

#include <algorithm>

namespace ym {

namespace {

bool endsLine(char c)
{
    return c == '\n' || c == '\r';
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
        const char* end = std::find_if(ahead, ahead + size, endsLine);
        const auto n = static_cast<unsigned int>(end - ahead);
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

#include "check/lines.h"

namespace ym::sdpcheck {

Lines linesOf(std::string_view text)
{
    Lines lines;
    std::size_t nFull = 0; // lines up to the last one that is not empty
    while (!text.empty()) {
        const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
        lines.push_back({lines.size() + 1, text.substr(0, end)});
        nFull = end > 0 ? lines.size() : nFull;
        text.remove_prefix(std::min(end + (text.substr(end, 2) == "\r\n" ? 2 : 1), text.size()));
    }
    lines.resize(nFull);
    return lines;
}

} // namespace ym::sdpcheck

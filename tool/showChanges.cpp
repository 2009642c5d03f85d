#include <cstdio>
#include <map>

#include "show.h"
#include "text.h"

namespace ymsdp {

namespace {

using Lines = std::vector<ym::String>;
using Positions = std::vector<std::size_t>;

// The lines of one text by whether the other one has them too, each as often as it stands there.
struct Sorted {
    Positions shared;
    Positions own;
};

Sorted sorted(const Lines& lines, const Lines& others)
{
    std::map<std::string_view, std::size_t> count;
    for (const ym::String& line : others)
        ++count[view(line)];
    Sorted result;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const auto found = count.find(view(lines[i]));
        const bool isShared = found != count.end() && found->second > 0;
        if (isShared)
            --found->second;
        (isShared ? result.shared : result.own).push_back(i);
    }
    return result;
}

bool isSameOrder(const Lines& read, const Positions& readShared, const Lines& written, const Positions& writtenShared)
{
    for (std::size_t i = 0; i < readShared.size(); ++i) {
        if (view(read[readShared[i]]) != view(written[writtenShared[i]]))
            return false;
    }
    return true;
}

void printLines(const char* title, const Lines& lines, const Positions& positions)
{
    if (positions.empty())
        return;
    std::printf("  %s\n", title);
    for (const std::size_t i : positions)
        std::printf("%7zu         %s\n", i + 1, printable(view(lines[i])).c_str());
}

} // namespace

void showChanges(const Description& description, ym::SDP::SDPDescEx& session)
{
    ym::String text;
    session.generate(&text);
    const Lines written = linesOf(text);
    const Sorted before = sorted(description.lines, written);
    const Sorted after = sorted(written, description.lines);
    const bool sameOrder = isSameOrder(description.lines, before.shared, written, after.shared);

    std::puts("What changes when the objects are written again");
    printLines("lines that are gone, by their number above", description.lines, before.own);
    printLines("lines that were not there before, by their number in the new text", written, after.own);
    if (!sameOrder)
        std::puts("  the other lines stand in another order");
    else if (before.own.empty() && after.own.empty())
        std::puts("  nothing");
}

} // namespace ymsdp

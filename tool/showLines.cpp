#include <cstdio>

#include <sdp/SDPDesc.h>

#include "show.h"
#include "text.h"

namespace ymsdp {

namespace {

using ym::SDP::SDPDesc;

constexpr int session = -1;

// The lines of one type at one level: how many of them a number reaches, and how many were printed already.
struct Run {
    int length = 0;
    int printed = 0;
};

Run attributeRun(SDPDesc& desc, int level)
{
    Run run;
    while ((level == session ? desc.attr(run.length, nullptr, nullptr)
                             : desc.mediaAttr(level, run.length, nullptr, nullptr, 'a'))
           == 0)
        ++run.length;
    return run;
}

Run bandwidthRun(SDPDesc& desc, int level)
{
    Run run;
    while (level != session && desc.mediaAttr(level, run.length, nullptr, nullptr, 'b') == 0)
        ++run.length;
    return run;
}

// "[3]" for a line that is found as number 3, "[-]" for one that no number finds.
std::string numberIn(Run& run)
{
    const int n = run.printed++;
    return n < run.length ? "[" + std::to_string(n) + "]" : "[-]";
}

// Walks the lines of the text along with those of the line view.
class LinePrinter {
public:
    explicit LinePrinter(const std::vector<ym::String>& lines);

    void print();

private:
    void beginLevel(int level);
    std::string number(char type);

    const std::vector<ym::String>& lines_;
    SDPDesc desc_;
    int level_ = session;
    Run attributes_;
    Run bandwidths_;
};

LinePrinter::LinePrinter(const std::vector<ym::String>& lines) : lines_(lines), desc_("\r\n")
{
    for (const ym::String& line : lines)
        desc_.parseLine(line);
}

void LinePrinter::beginLevel(int level)
{
    level_ = level;
    attributes_ = attributeRun(desc_, level);
    bandwidths_ = bandwidthRun(desc_, level);
    if (level == session)
        std::puts("  session");
    else
        std::printf("  section %d\n", level);
}

std::string LinePrinter::number(char type)
{
    if (type == 'a')
        return numberIn(attributes_);
    if (type == 'b' && level_ != session)
        return numberIn(bandwidths_);
    return "";
}

void LinePrinter::print()
{
    beginLevel(session);
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const char type = lines_[i].chars()[0];
        if (type == 'm')
            beginLevel(level_ + 1);
        std::printf("%7zu %6s  %s\n", i + 1, number(type).c_str(), printable(view(lines_[i])).c_str());
    }
}

} // namespace

void showLines(const Description& description)
{
    std::puts("Lines, as SDPDesc keeps them ([n]: number in its run, [-]: behind the run, found by no number)");
    LinePrinter(description.lines).print();
}

} // namespace ymsdp

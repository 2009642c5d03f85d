#include "description.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include <sdp/SDPDesc.h>
#include <tovik/DataIO.h>
#include <tovik/LineAdapter.h>

#include "text.h"

namespace ymsdp {

namespace {

struct FileCloser {
    void operator()(std::FILE* file) const
    {
        if (file != stdin)
            std::fclose(file);
    }
};

using File = std::unique_ptr<std::FILE, FileCloser>;

[[noreturn]] void fail(const std::string& name)
{
    throw Trouble(name + ": " + std::strerror(errno));
}

ym::String readAll(std::FILE* file, const std::string& name)
{
    ym::String text;
    std::array<char, 65536> block;
    std::size_t n = 0;
    while ((n = std::fread(block.data(), 1, block.size(), file)) > 0) {
        try {
            text.append(block.data(), static_cast<unsigned int>(n));
        } catch (const std::length_error&) {
            throw Trouble(name + ": more than 4294967294 bytes");
        }
    }
    if (std::ferror(file))
        fail(name);
    return text;
}

// A line as messages quote it, cut where it would fill the screen.
std::string quoted(const ym::String& line)
{
    constexpr std::size_t longest = 100;
    const std::string_view text = view(line);
    return '"' + printable(text.substr(0, longest)) + (text.size() > longest ? "..." : "") + '"';
}

std::string blame(const ym::String& line)
{
    if (line.length() == 0)
        return "an empty line with other lines behind it";
    return quoted(line) + R"( does not begin with one of "vosiuepcbzktram" and "=")";
}

} // namespace

std::vector<ym::String> linesOf(const ym::String& text)
{
    ym::MemoryIO stream(text.chars(), text.length());
    ym::LineAdapter reader(&stream, ym::LineAdapter::LinebreakAny, ym::LineAdapter::LinebreakAny,
                           ym::LineAdapter::LinebreakAny);
    std::vector<ym::String> lines;
    ym::String line;
    while (reader.readLine(&line) > 0)
        lines.push_back(line);
    return lines;
}

Description readDescription(const std::string& path)
{
    const bool isInput = path == "-";
    const std::string name = isInput ? "standard input" : printable(path);
    const File file(isInput ? stdin : std::fopen(path.c_str(), "rb"));
    if (!file)
        fail(name);
    ym::String text = readAll(file.get(), name);
    return {name, text, linesOf(text)};
}

Refusal refusal(const Description& description)
{
    const auto at = [&](std::size_t i) { return description.name + ":" + std::to_string(i + 1) + ": "; };
    ym::SDP::SDPDesc desc("\r\n");
    for (std::size_t i = 0; i < description.lines.size(); ++i) {
        if (desc.parseLine(description.lines[i]) != 0)
            return Refusal{at(i) + blame(description.lines[i])};
    }
    for (std::size_t i = 0; i < description.lines.size(); ++i) {
        if (description.lines[i].chars()[0] == 'o')
            return Refusal{at(i) + quoted(description.lines[i]) + " does not have six words"};
    }
    return Refusal{description.name + ": refused"};
}

} // namespace ymsdp

#include "description.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

#include <sdp/SDPDesc.h>
#include <sdpcheck/report.h>

#include "text.h"

namespace ymsdp {

namespace {

constexpr std::uint64_t longestText = 4294967294;

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

std::string readAll(std::FILE* file, const std::string& name)
{
    std::string text;
    std::array<char, 65536> block;
    std::size_t n = 0;
    while ((n = std::fread(block.data(), 1, block.size(), file)) > 0) {
        if (text.size() + n > longestText)
            throw Trouble(name + ": more than 4294967294 bytes");
        text.append(block.data(), n);
    }
    if (std::ferror(file))
        fail(name);
    return text;
}

// Takes the first line off the text.
std::string_view takeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + (text.substr(end, 2) == "\r\n" ? 2 : 1), text.size()));
    return line;
}

bool isProtocol(std::string_view word)
{
    return beginsWith(word, "SIP/") || beginsWith(word, "RTSP/") || beginsWith(word, "HTTP/");
}

// "INVITE sip:bob@example.com SIP/2.0", "RTSP/1.0 200 OK"
bool isStartLine(std::string_view line)
{
    const auto parts = words(line);
    return parts.size() >= 2 && (isProtocol(parts.front()) || isProtocol(parts.back()));
}

Description withoutMessage(std::string name, std::string text)
{
    std::string_view rest = text;
    std::string_view peek = text;
    if (!isStartLine(takeLine(peek)))
        return {std::move(name), std::move(text)};
    std::size_t skipped = 0;
    for (; !isType(rest, 'v'); ++skipped) {
        if (rest.empty())
            throw Trouble(name + ": a message without a description: no line begins with v=");
        takeLine(rest);
    }
    return {std::move(name), std::string(rest), skipped};
}

} // namespace

Description readDescription(const std::string& path)
{
    const bool isInput = path == "-";
    std::string name = isInput ? "<stdin>" : printable(path);
    const File file(isInput ? stdin : std::fopen(path.c_str(), "rb"));
    if (!file)
        fail(name);
    std::string text = readAll(file.get(), name);
    return withoutMessage(std::move(name), std::move(text));
}

Lines linesOf(std::string_view text)
{
    Lines lines;
    while (!text.empty())
        lines.emplace_back(takeLine(text));
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

Levels levelsOf(std::string_view text)
{
    Levels levels(1);
    for (std::string& line : linesOf(text)) {
        if (isType(line, 'm'))
            levels.emplace_back();
        levels.back().push_back(std::move(line));
    }
    return levels;
}

Lines joined(const Levels& levels)
{
    Lines lines;
    for (const Lines& level : levels)
        lines.insert(lines.end(), level.begin(), level.end());
    return lines;
}

bool isType(std::string_view line, char type)
{
    return line.size() >= 2 && line[0] == type && line[1] == '=';
}

std::string_view valueOf(const Lines& level, char type)
{
    const auto found = std::find_if(level.begin(), level.end(), [=](const auto& line) { return isType(line, type); });
    return found == level.end() ? std::string_view() : std::string_view(*found).substr(2);
}

std::optional<Attribute> attributeOf(std::string_view line)
{
    if (!isType(line, 'a'))
        return std::nullopt;
    line.remove_prefix(2);
    const std::size_t colon = std::min(line.find(':'), line.size());
    return Attribute{line.substr(0, colon), line.substr(std::min(colon + 1, line.size()))};
}

std::string refusal(const Description& description)
{
    for (const ym::sdpcheck::Finding& finding : ym::sdpcheck::report(description.text)) {
        if (finding.kind->outcome == ym::sdpcheck::Outcome::refused)
            return description.name + ":" + std::to_string(finding.line + description.skipped) + ": "
                + quote(finding.text) + ": " + finding.kind->reason;
    }
    return description.name + ": refused";
}

void requireLines(const Description& description)
{
    if (ym::SDP::SDPDesc("\r\n").parse(stringOf(description.text)) != 0)
        throw Trouble(refusal(description));
}

} // namespace ymsdp

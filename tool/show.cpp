#include <cstdio>
#include <map>

#include <sdp/SDPDescEx.h>

#include "commands.h"
#include "formats.h"
#include "text.h"

namespace ymsdp {

namespace {

bool isDirection(std::string_view name)
{
    return name == "sendrecv" || name == "sendonly" || name == "recvonly" || name == "inactive";
}

// Names of attributes that the summary tells otherwise.
bool isTold(std::string_view name)
{
    return isDirection(name) || name == "rtpmap" || name == "fmtp";
}

// "mid, candidate x5", in the order of the first ones.
std::string attributeNames(const Lines& level)
{
    std::map<std::string_view, std::size_t> count;
    std::vector<std::string_view> order;
    for (const std::string& line : level) {
        const auto attribute = attributeOf(line);
        if (attribute && !isTold(attribute->name) && ++count[attribute->name] == 1)
            order.push_back(attribute->name);
    }
    std::string text;
    for (const std::string_view name : order) {
        text.append(text.empty() ? "" : ", ").append(name);
        if (count[name] > 1)
            text += " x" + std::to_string(count[name]);
    }
    return text;
}

std::string directionOf(const Lines& level)
{
    std::string direction;
    for (const std::string& line : level) {
        const auto attribute = attributeOf(line);
        if (attribute && isDirection(attribute->name))
            direction = attribute->name;
    }
    return direction;
}

// Nothing is printed for a field without a text.
void putField(std::string& out, const char* name, std::string_view text)
{
    if (text.empty())
        return;
    const std::string shown = printable(text);
    out.append("  ").append(name).append(12 - std::string_view(name).size(), ' ').append(shown).append("\n");
}

void putLinesOf(std::string& out, const char* name, const Lines& level, char type)
{
    for (const std::string& line : level) {
        if (isType(line, type))
            putField(out, name, std::string_view(line).substr(2));
    }
}

void putFormat(std::string& out, const Format& format)
{
    std::string text = "    " + format.number;
    text.append(text.size() < 8 ? 8 - text.size() : 1, ' ');
    text += format.mapping.empty() ? "?" : format.mapping;
    if (format.isStatic && !format.mapping.empty())
        text += " (static)";
    if (!format.parameters.empty())
        text.append(text.size() < 30 ? 30 - text.size() : 2, ' ').append(format.parameters);
    out += printable(text) + "\n";
}

void putSection(std::string& out, const Lines& section, std::size_t index, const Paint& paint)
{
    const MediaLine media = mediaLineOf(section);
    std::string title = "m" + std::to_string(index) + " " + std::string(media.type);
    std::string rest = " " + std::string(media.port) + " " + std::string(media.transport);
    const std::string direction = directionOf(section);
    rest += (direction.empty() ? "" : " " + direction) + (media.port == "0" ? " (rejected)" : "");
    out += paint(Paint::Bold, printable(title)) + printable(rest) + "\n";
    putLinesOf(out, "title", section, 'i');
    putLinesOf(out, "connection", section, 'c');
    putLinesOf(out, "bandwidth", section, 'b');
    if (media.isRtp()) {
        for (const Format& format : formatsOf(section))
            putFormat(out, format);
    } else {
        std::string formats;
        for (const std::string_view format : media.formats)
            formats.append(formats.empty() ? "" : " ").append(format);
        putField(out, "formats", formats);
    }
    putField(out, "attributes", attributeNames(section));
}

void putSummary(std::string& out, const Levels& levels, const Paint& paint)
{
    const Lines& session = levels[0];
    std::size_t nLines = 0;
    for (const Lines& level : levels)
        nLines += level.size();
    out += paint(Paint::Bold, "session") + " of " + std::to_string(nLines) + " lines\n";
    putLinesOf(out, "name", session, 's');
    putLinesOf(out, "origin", session, 'o');
    putLinesOf(out, "title", session, 'i');
    putLinesOf(out, "connection", session, 'c');
    putLinesOf(out, "bandwidth", session, 'b');
    putLinesOf(out, "time", session, 't');
    putField(out, "direction", directionOf(session));
    putField(out, "attributes", attributeNames(session));
    for (std::size_t i = 1; i < levels.size(); ++i)
        putSection(out, levels[i], i - 1, paint);
}

void putLines(std::string& out, const Levels& levels, std::size_t skipped, const Paint& paint)
{
    std::size_t number = skipped;
    for (std::size_t i = 0; i < levels.size(); ++i) {
        out += paint(Paint::Bold, i == 0 ? "session" : "m" + std::to_string(i - 1)) + "\n";
        for (const std::string& line : levels[i]) {
            const std::string n = std::to_string(++number);
            out.append(n.size() < 6 ? 6 - n.size() : 0, ' ')
                .append(n)
                .append("  ")
                .append(printable(line))
                .append("\n");
        }
    }
}

// Says so if the library refuses the text, after what can be told of it.
Status tellRefusal(const Description& description)
{
    if (ym::SDP::SDPDescEx().parse(stringOf(description.text)) == 0)
        return Success;
    complain(refusal(description));
    return Troubled;
}

} // namespace

Result show(const Descriptions& descriptions, const ShowOptions& options)
{
    Result result;
    for (const Description& description : descriptions) {
        result.status = std::max(result.status, tellRefusal(description));
        if (options.json)
            continue;
        if (descriptions.size() > 1)
            result.out += "==> " + options.paint(Paint::Bold, description.name) + " <==\n";
        const Levels levels = levelsOf(description.text);
        if (options.lines)
            putLines(result.out, levels, description.skipped, options.paint);
        else
            putSummary(result.out, levels, options.paint);
        if (&description != &descriptions.back())
            result.out += "\n";
    }
    if (options.json)
        result.out = showJson(descriptions);
    return result;
}

} // namespace ymsdp

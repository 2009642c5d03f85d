#include "formats.h"

#include <map>
#include <set>

#include "text.h"

namespace ymsdp {

namespace {

std::string staticMapping(std::string_view number)
{
    static const std::map<std::string_view, const char*> mappings
        = {{"0", "PCMU/8000"},   {"3", "GSM/8000"},   {"4", "G723/8000"},   {"5", "DVI4/8000"},    {"6", "DVI4/16000"},
           {"7", "LPC/8000"},    {"8", "PCMA/8000"},  {"9", "G722/8000"},   {"10", "L16/44100/2"}, {"11", "L16/44100"},
           {"12", "QCELP/8000"}, {"13", "CN/8000"},   {"14", "MPA/90000"},  {"15", "G728/8000"},   {"16", "DVI4/11025"},
           {"17", "DVI4/22050"}, {"18", "G729/8000"}, {"25", "CelB/90000"}, {"26", "JPEG/90000"},  {"28", "nv/90000"},
           {"31", "H261/90000"}, {"32", "MPV/90000"}, {"33", "MP2T/90000"}, {"34", "H263/90000"}};
    const auto found = mappings.find(number);
    return found == mappings.end() ? "" : found->second;
}

// The values of the attributes of a name, "96 opus/48000/2" say, by their first word.
std::map<std::string_view, std::string> byFormat(const Lines& section, std::string_view name)
{
    std::map<std::string_view, std::string> result;
    for (const std::string& line : section) {
        const auto attribute = attributeOf(line);
        if (!attribute || attribute->name != name)
            continue;
        const auto parts = words(attribute->value);
        if (parts.size() < 2)
            continue;
        std::string& text = result[parts[0]];
        text.append(text.empty() ? "" : ";").append(parts[1].data(), line.data() + line.size());
    }
    return result;
}

} // namespace

MediaLine mediaLineOf(const Lines& section)
{
    auto parts = words(valueOf(section, 'm'));
    parts.resize(std::max<std::size_t>(parts.size(), 3));
    return {parts[0], parts[1], parts[2], {parts.begin() + 3, parts.end()}};
}

std::vector<Format> formatsOf(const Lines& section)
{
    const MediaLine media = mediaLineOf(section);
    auto mappings = byFormat(section, "rtpmap");
    auto parameters = byFormat(section, "fmtp");
    std::vector<Format> formats;
    std::set<std::string_view> seen;
    for (const std::string_view number : media.formats) {
        if (!seen.insert(number).second)
            continue;
        const bool isStatic = media.isRtp() && mappings.count(number) == 0;
        std::string mapping = isStatic ? staticMapping(number) : mappings[number];
        formats.push_back({std::string(number), std::move(mapping), parameters[number], isStatic});
    }
    return formats;
}

} // namespace ymsdp

// Media sections: the "m=" and "c=" lines of each, and where it goes.
#include <memory>
#include <utility>

#include <tovik/PRegEx.h>

#include "sdp/parser/parser.h"

namespace ym::SDP {

namespace {

// 0 8 96
Formats readFormats(const String& list)
{
    PRegEx pattern(R"(\s* \s*)", 0);
    Formats formats;
    const int n = pattern.split(list, noLimit);
    formats.reserve(static_cast<std::size_t>(n));
    for (int i = 0; i < n; ++i)
        formats.push_back(pattern[i].toUInt16(nullptr, 10));
    return formats;
}

// m=audio 49170 RTP/AVP 0 8 96
std::unique_ptr<SDPMedia> parseMediaLine(const String& value, Formats* formats)
{
    PRegEx pattern(R"(^(\S+)\s+(\d+)\s+(\S+)\s+(.*)$)", 0);
    if (!pattern.match(value, 0))
        return nullptr;
    auto media = std::make_unique<SDPMedia>();
    media->setMediaType(pattern[1].chars());
    media->setPort(pattern[2].toUInt16(nullptr, 10));
    media->setTransport(pattern[3].chars());
    *formats = readFormats(pattern[4]);
    return media;
}

// c=IN IP4 224.2.1.1/127
void readSectionConnection(const String& value, SDPMedia& media)
{
    ConnectionLine line;
    if (!readConnection(value, &line))
        return;
    String& address = line.connection.address;
    if (line.ttl.length() > 0)
        address.append("/").append(line.ttl.chars());
    media.setConnection(line.connection.netType, line.connection.addrType, address);
}

// Null for a section whose "m=" line can not be read.
std::unique_ptr<SDPMedia> parseSection(SDPDesc& desc, int section)
{
    String value;
    Formats formats;
    desc.media(section, 'm', &value);
    auto media = parseMediaLine(value, &formats);
    if (!media)
        return nullptr;
    if (desc.media(section, 'c', &value) == 0)
        readSectionConnection(value, *media);
    parseMediaAttributes(desc, section, *media, std::move(formats));
    return media;
}

// The session takes the sections of the kinds that it has a list for.
void addSection(SDPDescEx& session, std::unique_ptr<SDPMedia> media)
{
    if (media->isVideo())
        session.addMediaVideo(media.release());
    else if (media->isAudio())
        session.addMediaAudio(media.release());
    else if (media->isApplication())
        session.addMediaApplication(media.release());
}

} // namespace

bool readConnection(const String& value, ConnectionLine* line)
{
    PRegEx pattern(R"(^\s*(\S+)\s+(\S+)\s+([^(/|\s)]+)/{0,1}(\S*)$)", 0);
    if (!pattern.match(value, 0))
        return false;
    line->connection = {networkTypeId(pattern[1].chars()), addressTypeId(pattern[2].chars()), pattern[3]};
    const String rest = pattern[4];
    if (rest.length() == 0)
        return true;

    // 127/3
    PRegEx tail(R"(^([^(/)]+)/{0,1}(\S*)$)", 0);
    if (tail.match(rest, 0)) {
        line->ttl = tail[1];
        line->numAddr = tail[2];
    }
    return true;
}

void parseSections(SDPDesc& desc, SDPDescEx& session)
{
    const int n = desc.nMedia();
    for (int section = 0; section < n; ++section)
        if (auto media = parseSection(desc, section))
            addSection(session, std::move(media));
}

} // namespace ym::SDP

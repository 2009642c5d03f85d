// Media sections: the "m=" and "c=" lines of each, and where it goes.
#include <memory>

#include <tovik/PRegEx.h>

#include "sdp/parser/parser.h"

namespace ym::SDP {

namespace {

struct MediaLine {
    String mediaType;
    std::uint16_t port = 0;
    String transport;
    Formats formats;
};

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
bool parseMediaLine(const String& value, MediaLine* line)
{
    PRegEx pattern(R"(^(\S+)\s+(\d+)\s+(\S+)\s+(.*)$)", 0);
    if (!pattern.match(value, 0))
        return false;
    *line = {pattern[1], pattern[2].toUInt16(nullptr, 10), pattern[3], readFormats(pattern[4])};
    return true;
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

std::unique_ptr<SDPMedia> parseSection(SDPDesc& desc, int section)
{
    String value;
    MediaLine line;
    if (desc.media(section, 'm', &value) != 0 || !parseMediaLine(value, &line))
        return nullptr;
    auto media = std::make_unique<SDPMedia>();
    media->setMediaType(line.mediaType.chars());
    media->setPort(line.port);
    media->setTransport(line.transport.chars());
    if (desc.media(section, 'c', &value) == 0)
        readSectionConnection(value, *media);
    parseMediaAttributes(desc, section, *media, line.formats);
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

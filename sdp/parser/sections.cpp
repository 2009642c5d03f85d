// Media sections: their "m=", "c=" and "b=" lines, their payloads, and where they go.
#include <algorithm>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "sdp/line/Scanner.h"
#include "sdp/media/SDPMediaPayload_impl.h"
#include "sdp/media/SDPMedia_impl.h"
#include "sdp/parser/AttributeReader.h"
#include "sdp/parser/parser.h"
#include "sdp/session/SDPDescEx_impl.h"
#include "sdp/vocabulary/words.h"
#include "support/SmallArray.h"
#include "support/ascii.h"
#include "support/number.h"
#include "support/view.h"

namespace ym::SDP {

namespace {

using Session = SDPDescEx::SDPDescEx_impl;

// The numbers behind the transport of an "m=" line, in the order of the text.
using Formats = SmallArray<std::uint16_t, 64>;

// 0 8 96
//
// Formats are parted by white space with a blank in it. Any other white space belongs to a format, which then is no
// number.
void readFormats(std::string_view list, Formats* formats)
{
    formats->clear();
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(' '), list.size());
        formats->add() = toNumber<std::uint16_t>(list.substr(0, end));
        list = withoutSpaceBefore(behind(list, end));
    }
}

// The numbers without those that come again further behind. Of a number that an "m=" line repeats, only the last
// payload stays, and a long line may do that a million times.
void keepLastOfEach(Formats* formats)
{
    constexpr unsigned int shortList = 64; // for which this is not worth while
    if (formats->size() <= shortList)
        return;
    std::vector<bool> seen(65536);
    std::uint16_t* const end = formats->data() + formats->size();
    std::uint16_t* kept = end;
    for (const std::uint16_t* number = end; number-- != formats->data();) {
        if (!seen[*number])
            *--kept = *number;
        seen[*number] = true;
    }
    std::copy(kept, end, formats->data());
    formats->resize(static_cast<unsigned int>(end - kept));
}

// Gives the payload of the last number, or null if there is none.
SDPMediaPayload* addPayloads(SDPMedia& media, const Formats& formats)
{
    SDPMediaPayload* last = nullptr;
    media.state().payloads.reserve(formats.size());
    for (const std::uint16_t number : formats) {
        auto payload = std::make_unique<SDPMediaPayload>();
        payload->state().payloadNo.set(number);
        last = payload.release();
        media.addMediaPayload(last);
    }
    return last;
}

// The session takes the sections of the kinds that it has a list for.
void addSection(Session& session, std::unique_ptr<SDPMedia> media)
{
    if (media->isVideo())
        session.videos.add(std::move(media));
    else if (media->isAudio())
        session.audios.add(std::move(media));
    else if (media->isApplication())
        session.applications.add(std::move(media));
}

// Reads one section after the other.
class SectionReader {
public:
    explicit SectionReader(Lines& lines) : lines_(lines) { }

    // Goes from an "m=" line to the next one, or to the end. Null for a section whose "m=" line can not be read.
    std::unique_ptr<SDPMedia> read()
    {
        std::unique_ptr<SDPMedia> media = readMedia(untilNul(lines_.value()));
        lines_.next();
        if (media)
            readLines(*media);
        while (isInSection())
            lines_.next();
        return media;
    }

private:
    bool isInSection() const { return !lines_.isEnd() && !lines_.isMedia(); }

    void readLines(SDPMedia& media)
    {
        FirstLines first;
        Run bandwidths('b');
        Run attributes('a');
        AttributeReader reader(media, addPayloads(media, formats_));
        for (; isInSection(); lines_.next()) {
            const char type = lines_.type();
            if (first.takes(type) && type == 'c')
                readSectionConnection(untilNul(lines_.value()), media);
            if (bandwidths.takes(type))
                readBandwidth(lines_.value(), media);
            if (attributes.takes(type))
                reader.read(lines_.value());
        }
    }

    // m=audio 49170 RTP/AVP 0 8 96
    std::unique_ptr<SDPMedia> readMedia(std::string_view value)
    {
        std::string_view type;
        std::string_view port;
        std::string_view transport;
        Scanner at(value);
        if (!at.word(&type) || !at.space() || !at.digits(&port) || !at.space() || !at.word(&transport) || !at.space())
            return nullptr;
        auto media = std::make_unique<SDPMedia>();
        media->state().media.assign(type);
        media->state().port = toNumber<std::uint16_t>(port);
        media->state().transport.assign(transport);
        readFormats(at.rest(), &formats_);
        keepLastOfEach(&formats_);
        return media;
    }

    // c=IN IP4 224.2.1.1/127
    void readSectionConnection(std::string_view value, SDPMedia& media)
    {
        ConnectionLine line;
        if (!readConnection(value, &line))
            return;
        text_.assign(line.address);
        if (!line.ttl.empty())
            put(text_, "/", line.ttl);
        media.setConnection(line.netType, line.addrType, text_);
    }

    // b=AS:128
    void readBandwidth(std::string_view value, SDPMedia& media)
    {
        const NameValue bandwidth = cut(value);
        media.setBandwidth(text_.assign(bandwidth.name), toNumber<std::uint32_t>(bandwidth.value));
    }

    Lines& lines_;
    Formats formats_; // these two are kept for their memory
    String text_;
};

} // namespace

// IN IP4 224.2.1.1/127/3
bool readConnection(std::string_view value, ConnectionLine* line)
{
    std::string_view netType;
    std::string_view addrType;
    std::string_view address;
    std::string_view tail;
    Scanner at(value);
    at.space();
    if (!at.word(&netType) || !at.space() || !at.word(&addrType) || !at.space() || !at.wordWithout("(/|)", &address))
        return false;
    at.byte('/');
    if (!at.lastWord(&tail))
        return false;
    *line = {networkTypeOf(netType), addressTypeOf(addrType), address, {}, {}};
    Scanner inTail(tail);
    if (inTail.wordWithout("(/)", &line->ttl)) {
        inTail.byte('/');
        inTail.lastWord(&line->numAddr);
    }
    return true;
}

void parseSections(Lines& lines, Session& session)
{
    SectionReader reader(lines);
    while (!lines.isEnd())
        if (auto media = reader.read())
            addSection(session, std::move(media));
}

} // namespace ym::SDP

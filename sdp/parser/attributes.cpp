// The payloads of a media section, and its "b=" and "a=" lines.
#include <memory>

#include <tovik/PRegEx.h>

#include "sdp/line/text.h"
#include "sdp/media/direction.h"
#include "sdp/parser/parser.h"

namespace ym::SDP {

namespace {

// The group of a pattern that takes white space off the end of a text; empty if there is nothing else.
String trimmed(PRegEx& trim, const String& text)
{
    trim.match(text, 0);
    return trim[1];
}

// minptime=10; useinbandfec=1
void parseFormatParams(const String& text, SDPMediaPayload& payload)
{
    PRegEx separator(R"(\s*;\s*)", 0);
    PRegEx parameter(R"(^\s*([^=]*)=\s*(.*)$)", 0);
    PRegEx trim(R"((.*\S)\s*$)", 0);
    const int n = separator.split(text, noLimit);
    for (int i = 0; i < n; ++i) {
        const String piece = separator[i];
        if (parameter.match(piece, 0))
            payload.addFormatParam(trimmed(trim, parameter[1]), trimmed(trim, parameter[2]));
        else
            payload.addFormatParam(piece, "");
    }
}

// The "a=" lines of one section. They do not name the payload that they belong to, unless they are rtpmap or fmtp
// lines: then they say so for the lines behind them as well.
class AttributeReader {
public:
    AttributeReader(SDPMedia& media, SDPMediaPayload* lastPayload) : media_(media), currentPayload_(lastPayload) { }

    void read(const String& name, const String& value)
    {
        if (isDirection(name, nullptr))
            media_.addAttr(name, value);
        else if (isText(name, "rtpmap"))
            readMapping(value);
        else if (isText(name, "fmtp"))
            readFormat(value);
        else if (currentPayload_)
            currentPayload_->addAttr(name, value);
    }

private:
    // a=rtpmap:96 L16/44100/2
    void readMapping(const String& value)
    {
        if (goToPayload(value))
            currentPayload_->setPayload(numbered_[2]);
    }

    // a=fmtp:96 minptime=10
    void readFormat(const String& value)
    {
        if (goToPayload(value))
            parseFormatParams(numbered_[2], *currentPayload_);
    }

    // 96 and what follows. False if there is no such payload, which leaves no current one, or no number.
    bool goToPayload(const String& value)
    {
        if (!numbered_.match(value, 0))
            return false;
        currentPayload_ = media_.mediaPayload(numbered_[1].toUInt16(nullptr, 10));
        return currentPayload_ != nullptr;
    }

    SDPMedia& media_;
    SDPMediaPayload* currentPayload_;
    PRegEx numbered_{R"(^(\d+)\s+(.*)$)", 0};
};

// Calls `visit(name, value)` for the lines of a type that stand next to each other.
template <class Visit> void eachLine(SDPDesc& desc, int section, char type, Visit visit)
{
    String name;
    String value;
    for (int i = 0; desc.mediaAttr(section, i, &name, &value, type) == 0; ++i)
        visit(name, value);
}

// Gives the payload of the last number, or null if there is none.
SDPMediaPayload* addPayloads(SDPMedia& media, const Formats& formats)
{
    SDPMediaPayload* last = nullptr;
    for (const std::uint16_t number : formats) {
        auto payload = std::make_unique<SDPMediaPayload>();
        payload->setPayloadNo(number);
        last = payload.release();
        media.addMediaPayload(last);
    }
    return last;
}

} // namespace

void parseMediaAttributes(SDPDesc& desc, int section, SDPMedia& media, const Formats& formats)
{
    AttributeReader attributes(media, addPayloads(media, formats));
    eachLine(desc, section, 'b', [&](const String& modifier, const String& value) {
        media.setBandwidth(modifier, value.toUInt32(nullptr, 10));
    });
    eachLine(desc, section, 'a', [&](const String& name, const String& value) { attributes.read(name, value); });
}

} // namespace ym::SDP

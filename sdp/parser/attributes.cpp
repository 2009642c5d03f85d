// The payloads of a media section, and its "b=" and "a=" lines.
#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

#include <tovik/PRegEx.h>

#include "sdp/line/text.h"
#include "sdp/media/direction.h"
#include "sdp/parser/parser.h"

namespace ym::SDP {

namespace {

// minptime=10; useinbandfec=1
class FormatParams {
public:
    void read(const String& text, SDPMediaPayload& payload)
    {
        const int n = separator_.split(text, noLimit);
        for (int i = 0; i < n; ++i) {
            const String piece = separator_[i];
            if (parameter_.match(piece, 0))
                payload.addFormatParam(trimmed(parameter_[1]), trimmed(parameter_[2]));
            else
                payload.addFormatParam(piece, "");
        }
    }

private:
    // A text without the white space at its end; empty if there is nothing else.
    String trimmed(const String& text)
    {
        if (endsInGraph(text))
            return text; // as nearly all do
        trim_.match(text, 0);
        return trim_[1];
    }

    // Whether the last byte is neither white space nor another control character.
    static bool endsInGraph(const String& text)
    {
        return text.length() > 0 && static_cast<unsigned char>(text.chars()[text.length() - 1]) > ' ';
    }

    PRegEx separator_{R"(\s*;\s*)", 0};
    PRegEx parameter_{R"(^\s*([^=]*)=\s*(.*)$)", 0};
    PRegEx trim_{R"((.*\S)\s*$)", 0};
};

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
        if (!goToPayload(value))
            return;
        if (!formatParams_)
            formatParams_.emplace();
        formatParams_->read(numbered_[2], *currentPayload_);
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
    std::optional<FormatParams> formatParams_; // made for the first line that needs it
};

// Calls `visit(name, value)` for the lines of a type that stand next to each other.
template <class Visit> void eachLine(SDPDesc& desc, int section, char type, Visit visit)
{
    String name;
    String value;
    for (int i = 0; desc.mediaAttr(section, i, &name, &value, type) == 0; ++i)
        visit(name, value);
}

// The numbers without those that come again further behind. Of a number that an "m=" line repeats, only the last
// payload stays, and a long line may do that a million times.
Formats lastOfEach(Formats formats)
{
    constexpr std::size_t shortList = 64;
    if (formats.size() <= shortList)
        return formats;
    std::vector<bool> seen(65536);
    Formats last;
    for (auto number = formats.rbegin(); number != formats.rend(); ++number) {
        if (!seen[*number])
            last.push_back(*number);
        seen[*number] = true;
    }
    std::reverse(last.begin(), last.end());
    return last;
}

// Gives the payload of the last number, or null if there is none.
SDPMediaPayload* addPayloads(SDPMedia& media, Formats formats)
{
    SDPMediaPayload* last = nullptr;
    for (const std::uint16_t number : lastOfEach(std::move(formats))) {
        auto payload = std::make_unique<SDPMediaPayload>();
        payload->setPayloadNo(number);
        last = payload.release();
        media.addMediaPayload(last);
    }
    return last;
}

} // namespace

void parseMediaAttributes(SDPDesc& desc, int section, SDPMedia& media, Formats formats)
{
    AttributeReader attributes(media, addPayloads(media, std::move(formats)));
    eachLine(desc, section, 'b', [&](const String& modifier, const String& value) {
        media.setBandwidth(modifier, value.toUInt32(nullptr, 10));
    });
    eachLine(desc, section, 'a', [&](const String& name, const String& value) { attributes.read(name, value); });
}

} // namespace ym::SDP

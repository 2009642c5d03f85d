// A section: where each of its lines goes, and whether it comes out from there as it went in.
#include "check/section.h"

#include <set>
#include <unordered_map>

#include <tovik/PRegEx.h>

#include "check/forms.h"
#include "check/kinds.h"

namespace ym::sdpcheck {

namespace {

using SDP::SDPMedia;
using SDP::SDPMediaPayload;

template <class Object> std::string written(Object& object)
{
    String text;
    object.generate(&text);
    return std::string(viewOf(text));
}

struct NameValue {
    std::string_view name;
    std::string_view value;
};

// ptime:20
NameValue cut(std::string_view text)
{
    const std::size_t colon = std::min(text.find(':'), text.size());
    const std::string_view name = text.substr(0, colon);
    return {name.substr(0, name.find('\0')), text.substr(std::min(colon + 1, text.size()))};
}

// The lines that a payload took.
struct Format {
    const Line* mapping = nullptr;
    Lines parameters;
    Lines attributes; // one for each name, in the order in which the names came
    std::unordered_map<std::string_view, std::size_t> places;
};

class SectionCheck {
public:
    SectionCheck(SDPMedia& media, Findings& findings) : media_(media), findings_(findings)
    {
        if (media.nMediaPayload() > 0)
            current_ = media.mediaPayload(media.nMediaPayload() - 1);
    }

    void run(const Lines& lines)
    {
        const std::string text = written(media_);
        checkMediaLine(lines.front(), linesOf(text).front().text);
        for (std::size_t i = 1; i < lines.size(); ++i)
            take(lines[i]);
        for (const Line& line : linesOf(text)) // at most one connection, and the bandwidths that count
            if (line.type() == 'c')
                connectionText_ = std::string(line.text);
            else if (line.type() == 'b')
                bandwidthTexts_.emplace_back(line.text);
        checkFields();
        for (unsigned int i = 0; i < media_.nMediaPayload(); ++i)
            checkFormat(*media_.mediaPayload(i));
        checkDirection();
        if (isMapped_)
            for (const Line& line : early_)
                findings_.add(line, kind::attributeBeforeMapping);
    }

private:
    // m=audio 49170 RTP/AVP 0 8 96
    void checkMediaLine(const Line& line, std::string_view text)
    {
        if (line.text == text)
            return;
        if (line.hasNul() || isSameButForSpace(line.text, text)) {
            findings_.add(line, line.hasNul() ? kind::nulByte : kind::spelling, text);
            return;
        }
        // Each kind once, lest a report grows with the square of the text: every finding holds the line.
        std::set<const Kind*> told;
        const auto tell = [&](const Kind& kind, std::size_t at) {
            if (told.insert(&kind).second)
                findings_.add(line, kind, text, at + 1);
        };
        std::set<std::string_view> seen;
        int n = 0; // type, port, transport, formats
        for (std::size_t at = 2; (at = line.text.find_first_not_of(" \t", at)) != std::string_view::npos; ++n) {
            const std::size_t end = std::min(line.text.find_first_of(" \t", at), line.text.size());
            const std::string_view word = line.text.substr(at, end - at);
            const bool isNumber = matches(R"(^\d+$)", word);
            if ((n == 1 || n > 2) && isNumber && hasLargeNumber(word, false))
                tell(kind::tooLarge, at);
            if (n > 2 && !isNumber)
                tell(kind::formatNoNumber, at);
            if (n > 2 && !seen.insert(word).second)
                tell(kind::repeatedFormat, at);
            at = end;
        }
        if (told.empty())
            findings_.add(line, kind::spelling, text);
    }

    // Where a line goes
    void take(const Line& line)
    {
        const bool isBandwidth = bandwidthRun_.takes(line);
        const bool isAttribute = attributeRun_.takes(line);
        switch (line.type()) {
        case 'c':
            if (connection_)
                findings_.add(line, kind::repeatedLine);
            else
                connection_ = &line;
            break;
        case 'b':
            if (!isBandwidth || bandwidths_.size() == 2)
                findings_.add(line, isBandwidth ? kind::thirdBandwidth : kind::brokenRun);
            else
                bandwidths_.push_back(line);
            break;
        case 'a':
            if (isAttribute)
                takeAttribute(line);
            else
                findings_.add(line, kind::brokenRun);
            break;
        case 'i':
        case 'k':
            findings_.add(line, kind::unreadInSection);
            break;
        default:
            findings_.add(line, kind::sessionLineInSection);
        }
    }

    void takeAttribute(const Line& line)
    {
        const auto [name, value] = cut(line.value());
        if (name == "rtpmap")
            takeMapping(line, value);
        else if (name == "fmtp")
            takeParameters(line, value);
        else if (name == "sendrecv" || name == "sendonly" || name == "recvonly" || name == "inactive")
            takeDirection(line);
        else if (!current_)
            findings_.add(line, kind::noFormatForAttribute);
        else
            takeOther(line, name, value);
    }

    // 96 and what follows: makes that payload the current one. False if the value does not begin so, or if there is no
    // such payload, with a finding.
    bool goToFormat(const Line& line, std::string_view value, const Kind& malformed, String* rest)
    {
        PRegEx pattern(form::numbered, 0);
        if (!pattern.match(stringOf(value.substr(0, value.find('\0'))), 0)) {
            findings_.add(line, malformed);
            return false;
        }
        const unsigned short number = pattern[1].toUInt16(nullptr, 10);
        current_ = media_.mediaPayload(number);
        *rest = pattern[2];
        if (!current_)
            findings_.add(line, kind::unlistedFormat);
        return current_ != nullptr;
    }

    // rtpmap:96 opus/48000/2
    void takeMapping(const Line& line, std::string_view value)
    {
        String mapping;
        if (!goToFormat(line, value, kind::malformedMapping, &mapping))
            return;
        SDPMediaPayload probe;
        if (probe.setPayload(mapping) != 0) {
            findings_.add(line, kind::malformedMapping);
            return;
        }
        Format& format = formats_[current_];
        if (format.mapping)
            findings_.add(*format.mapping, kind::repeatedMapping);
        format.mapping = &line;
        isMapped_ = true;
    }

    // fmtp:96 useinbandfec=1
    void takeParameters(const Line& line, std::string_view value)
    {
        String parameters;
        if (!goToFormat(line, value, kind::malformedParameters, &parameters))
            return;
        formats_[current_].parameters.push_back(line);
        isMapped_ = true;
    }

    void takeDirection(const Line& line)
    {
        if (direction_)
            findings_.add(*direction_, kind::repeatedDirection);
        direction_ = &line;
    }

    void takeOther(const Line& line, std::string_view name, std::string_view value)
    {
        if (!isMapped_)
            early_.push_back(line);
        else if (namesOther(name, value))
            findings_.add(line, kind::attributeOfOther);
        Format& format = formats_[current_];
        const auto [place, isNew] = format.places.emplace(name, format.attributes.size());
        if (isNew) {
            format.attributes.push_back(line);
        } else {
            findings_.add(format.attributes[place->second], kind::repeatedAttribute);
            format.attributes[place->second] = line;
        }
    }

    // rtcp-fb:97 nack, behind the mapping of 96
    bool namesOther(std::string_view name, std::string_view value) const
    {
        if (name != "rtcp-fb" && name != "imageattr" && name != "framesize")
            return false;
        PRegEx pattern(form::numbered, 0);
        return pattern.match(stringOf(value), 0) && pattern[1].toUInt16(nullptr, 10) != current_->payloadNo();
    }

    // Whether it comes out
    void checkFields()
    {
        if (connection_)
            checkOne(*connection_, media_.hasConnection() ? &connectionText_ : nullptr);
        std::size_t nWritten = 0;
        for (std::size_t i = 0; i < bandwidths_.size(); ++i) {
            const int slot = static_cast<int>(i);
            const bool counts = media_.bandwidthModifire(slot)->length() > 0 && media_.bandwidth(slot) > 0;
            checkOne(bandwidths_[i], counts ? &bandwidthTexts_[nWritten++] : nullptr);
        }
    }

    void checkOne(const Line& line, const std::string* text)
    {
        if (text)
            compare(line, *text, findings_);
        else
            findings_.add(line, whyLost(line));
    }

    void checkFormat(SDPMediaPayload& payload)
    {
        const auto found = formats_.find(&payload);
        if (found == formats_.end())
            return;
        const Format& format = found->second;
        const std::string text = written(payload);
        Lines lines = linesOf(text);
        auto next = lines.begin();
        if (format.mapping)
            checkMapping(*format.mapping, payload, next);
        if (payload.nFormatParam() > 0)
            checkParameters(format.parameters, (next++)->text, payload.nFormatParam());
        else
            for (const Line& line : format.parameters)
                findings_.add(line, kind::emptyValue);
        for (const Line& line : format.attributes)
            compare(line, (next++)->text, findings_);
    }

    void checkMapping(const Line& line, SDPMediaPayload& payload, Lines::iterator& next)
    {
        String mapping;
        payload.payload(&mapping);
        if (mapping.length() == 0) {
            findings_.add(line, kind::malformedMapping);
            return;
        }
        compare(line, (next++)->text, findings_);
        if (viewOf(payload.encoding()).find('/') != std::string_view::npos)
            findings_.add(line, kind::rateFromParameter,
                          "encoding " + std::string(viewOf(payload.encoding())) + ", clock rate "
                              + std::to_string(payload.clockRate()));
    }

    // The lines that became one. Only the first one tells what, lest a report grows with the square of the text.
    void checkParameters(const Lines& lines, std::string_view text, unsigned int nParameters)
    {
        if (lines.size() == 1 && nPieces(lines.front()) == nParameters) {
            compare(lines.front(), text, findings_);
            return;
        }
        for (const Line& line : lines)
            findings_.add(line, kind::mergedParameters, &line == &lines.front() ? text : std::string_view());
    }

    // fmtp:96 a=1; b = 2
    static unsigned int nPieces(const Line& line)
    {
        return static_cast<unsigned int>(PRegEx(R"(\s*;\s*)", 0).split(stringOf(line.value()), -1));
    }

    void checkDirection()
    {
        if (!direction_)
            return;
        if (media_.sendrecv())
            findings_.add(*direction_, kind::defaultDirection);
        else
            compare(*direction_,
                    media_.sendonly()       ? "a=sendonly"
                        : media_.recvonly() ? "a=recvonly"
                                            : "a=inactive",
                    findings_);
    }

    SDPMedia& media_;
    Findings& findings_;
    Run bandwidthRun_{'b'};
    Run attributeRun_{'a'};
    SDPMediaPayload* current_ = nullptr;
    bool isMapped_ = false;
    Lines early_; // attributes before all mappings
    std::unordered_map<SDPMediaPayload*, Format> formats_;
    const Line* connection_ = nullptr;
    const Line* direction_ = nullptr;
    Lines bandwidths_; // those in the two slots
    std::string connectionText_;
    std::vector<std::string> bandwidthTexts_;
};

} // namespace

const Kind* whySectionLost(const Line& media)
{
    const std::string_view value = media.value();
    if (matches(form::media, value)) {
        const std::string_view type = value.substr(0, value.find_first_of(" \t\v\f\r\n"));
        return type == "audio" || type == "video" || type == "application" ? nullptr : &kind::unknownMedia;
    }
    if (matches(form::mediaWithPortCount, value))
        return &kind::portCount;
    return matches(form::mediaWithoutFormat, value) ? &kind::noFormat : &kind::malformedMedia;
}

void checkSection(const Lines& lines, SDPMedia& media, Findings& findings)
{
    SectionCheck(media, findings).run(lines);
}

} // namespace ym::sdpcheck

#pragma once

#include <string_view>

#include <sdp/SDPMedia.h>

namespace ym::SDP {

// Gives the "a=" lines of a media section to the objects that they belong to. The lines do not name their payload,
// unless they are rtpmap or fmtp lines: then they say so for the lines behind them as well.
class AttributeReader {
public:
    // Lines before the first rtpmap or fmtp line belong to `lastPayload`, which may be null.
    AttributeReader(SDPMedia& media, SDPMediaPayload* lastPayload) : media_(media), currentPayload_(lastPayload) { }

    void read(std::string_view line);

private:
    void readMapping(std::string_view value);
    void readFormat(std::string_view value);
    void readParam(std::string_view param);
    bool goToPayload(std::string_view value, std::string_view* rest);

    SDPMedia& media_;
    SDPMediaPayload* currentPayload_;
};

} // namespace ym::SDP

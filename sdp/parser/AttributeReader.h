#pragma once

#include <string_view>

#include <sdp/SDPMedia.h>

namespace ym::SDP {

// Gives the "a=" lines of media sections to the objects that they belong to. The lines do not name their payload,
// unless they are rtpmap or fmtp lines: then they say so for the lines behind them as well.
class AttributeReader {
public:
    // The lines that follow are those of this section. `lastPayload` may be null.
    void begin(SDPMedia& media, SDPMediaPayload* lastPayload);

    void read(std::string_view line);

private:
    void readMapping(std::string_view value);
    void readFormat(std::string_view value);
    void readParam(std::string_view param);
    bool goToPayload(std::string_view value, std::string_view* rest);

    SDPMedia* media_ = nullptr;
    SDPMediaPayload* currentPayload_ = nullptr;
};

} // namespace ym::SDP

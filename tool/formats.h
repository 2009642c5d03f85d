// The formats of a media section.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "description.h"

namespace ymsdp {

// "m=audio 49170 RTP/AVP 0 96". The views are into the line.
struct MediaLine {
    std::string_view type;
    std::string_view port;
    std::string_view transport;
    std::vector<std::string_view> formats;

    bool isRtp() const { return transport.find("RTP/") != std::string_view::npos; }
};

struct Format {
    std::string number;
    std::string mapping;    // that of an "rtpmap" line, or the static one (RFC 3551)
    std::string parameters; // that of the "fmtp" lines
    bool isStatic = false;  // a mapping without an "rtpmap" line
};

MediaLine mediaLineOf(const Lines& section);

// In the order of the media line, each number once.
std::vector<Format> formatsOf(const Lines& section);

} // namespace ymsdp

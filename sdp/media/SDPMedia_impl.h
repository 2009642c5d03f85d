// The state of a media section, which the parser and the generator of a session look into.
#pragma once

#include <cstdint>

#include <sdp/SDPMedia.h>
#include <tovik/NamedList.h>
#include <tovik/String.h>

#include "sdp/media/PayloadList.h"
#include "sdp/media/direction.h"
#include "sdp/media/fields.h"

namespace ym::SDP {

// What is copied with a section as it is.
struct MediaFields {
    static constexpr int nSlots = 2;

    Direction direction = Direction::sendrecv;
    std::uint16_t port = 0;
    String media = "unknown";
    String transport = "RTP/AVP";
    String sessionDesc;
    Connection connection;
    Bandwidth bandwidth[nSlots];
    int nBandwidth = 0;
    Encryption encryption;
    NamedList attrs = NamedList(": ");
};

struct SDPMedia::SDPMedia_impl : MediaFields {
    PayloadList payloads;

    void clear() { *this = SDPMedia_impl(); }

    // Adds the lines of this section.
    void putLines(Writer& out) const;
};

} // namespace ym::SDP

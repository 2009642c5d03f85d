// The state of a session object, which its operations and the parser share.
#pragma once

#include <cstdint>

#include <sdp/SDPDescEx.h>
#include <tovik/NamedList.h>
#include <tovik/String.h>

#include "sdp/media/OwnedList.h"
#include "sdp/media/fields.h"

namespace ym::SDP {

// o=- 0 0 IN IP4 127.0.0.1
struct Origin {
    String username = "-";
    String sessionId = "0";
    String version = "0";
    NetworkType netType = NetworkTypeNone;
    AddressType addrType = AddressTypeNone;
    String address;
};

// What is copied with a session as it is.
struct SessionFields {
    std::uint32_t version = 0;
    Origin origin;
    String sessionName = "session";
    String sessionDesc;
    String uri;
    String email;
    String phone;
    Connection connection;
    std::uint32_t connectionTTL = 0;
    std::uint32_t connectionNumAddr = 0;
    Bandwidth bandwidth;
    String timezoneAjust;
    Encryption encryption;
    std::uint32_t startTime = 0;
    std::uint32_t stopTime = 0;
    String repeat;
    NamedList attrs = NamedList(":");
};

struct SDPDescEx::SDPDescEx_impl : SessionFields {
    bool isNew = true; // nothing was stored yet

    // Members are destroyed from the last one on: first the video sections, as clear does it.
    OwnedList<SDPMedia> applications;
    OwnedList<SDPMedia> audios;
    OwnedList<SDPMedia> videos;

    void clear()
    {
        static_cast<SessionFields&>(*this) = SessionFields();
        videos.clear();
        audios.clear();
        applications.clear();
        isNew = true;
    }
};

} // namespace ym::SDP

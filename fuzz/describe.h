// All that objects tell of themselves, as a text: two descriptions are the same if nothing tells them apart.
#pragma once

#include <sstream>
#include <string>
#include <type_traits>

#include <sdp/SDPDescEx.h>

#include "tests/text.h"

namespace fuzz {

using Told = std::ostringstream;

template <class Field> void tellOne(Told& told, const Field& field)
{
    if constexpr (std::is_same_v<Field, ym::String>)
        told << field.length() << " " << test::str(field) << "\n";
    else
        told << field << "\n";
}

template <class... Fields> void tellAll(Told& told, const Fields&... fields)
{
    (tellOne(told, fields), ...);
}

// A list of names and values, by a getter that gives 0 for what is there.
template <class Get> void tellPairs(Told& told, unsigned int n, Get get)
{
    ym::String name;
    ym::String value;
    for (unsigned int i = 0; i <= n; ++i)
        if (get(i, &name, &value) == 0)
            tellAll(told, i, name, value);
}

inline void tell(Told& told, ym::SDP::SDPMediaPayload& p)
{
    ym::String mapping;
    const int composed = p.payload(&mapping);
    tellAll(told, p.payloadNo(), p.encoding(), p.clockRate(), p.encodingParam(), p.hasEncodingParam(), composed == 0,
            mapping, p.nAttr(), p.nFormatParam());
    tellPairs(told, p.nAttr(), [&](auto i, auto* name, auto* value) { return p.attr(i, name, value); });
    tellPairs(told, p.nFormatParam(), [&](auto i, auto* name, auto* value) { return p.formatParam(i, name, value); });
}

inline void tell(Told& told, ym::SDP::SDPMedia& m)
{
    ym::SDP::NetworkType netType = ym::SDP::NetworkTypeNone;
    ym::SDP::AddressType addrType = ym::SDP::AddressTypeNone;
    ym::String address;
    m.connection(&netType, &addrType, &address);
    tellAll(told, m.media(), m.isVideo(), m.isAudio(), m.isApplication(), m.port(), m.transport(), m.nMediaPayload(),
            m.nAttr(), m.hasSessionDesc(), m.sessionDesc(), m.hasConnection(), netType, addrType, address,
            m.hasBandwidth(), *m.bandwidthModifire(0), *m.bandwidthModifire(1), m.bandwidth(0), m.bandwidth(1),
            m.hasEncryption(), m.encryptionMethod(), m.encryptionKey(), m.sendrecv(), m.sendonly(), m.recvonly(),
            m.inactive());
    tellPairs(told, m.nAttr(), [&](auto i, auto* name, auto* value) { return m.attr(i, name, value); });
    for (unsigned int i = 0; i < m.nMediaPayload(); ++i)
        tell(told, *m.mediaPayload(i));
}

inline std::string describe(ym::SDP::SDPDescEx& d)
{
    Told told;
    tellAll(told, d.version(), d.origUsername(), d.origSessionId(), d.origVersion(), d.origNetType(), d.origAddrType(),
            d.origAddress(), d.hasSessionName(), d.sessionName(), d.hasSessionDesc(), d.sessionDesc(), d.hasUri(),
            d.uri(), d.hasEmail(), d.email(), d.hasPhone(), d.phone(), d.hasConnection(), d.hasConnectionTTL(),
            d.hasConnectionNumAddr(), d.connectionNetType(), d.connectionAddrType(), d.connectionAddress(),
            d.connectionTTL(), d.connectionNumAddr(), d.hasBandwidth(), d.bandwidthModifire(), d.bandwidth(),
            d.hasTimezoneAjust(), d.timezoneAjust(), d.hasEncryption(), d.encryptionMethod(), d.encryptionKey(),
            d.startTime(), d.stopTime(), d.hasRepeat(), d.repeat(), d.hasAttr(), d.nAttr(), d.hasMedia(), d.nMedia(),
            d.hasMediaAudio(), d.hasMediaVideo(), d.hasMediaApplication());
    tellPairs(told, d.nAttr(), [&](auto i, auto* name, auto* value) { return d.attr(i, name, value); });
    for (unsigned int i = 0; i < d.nMediaAudio(); ++i)
        tell(told, *d.mediaAudio(i));
    for (unsigned int i = 0; i < d.nMediaVideo(); ++i)
        tell(told, *d.mediaVideo(i));
    for (unsigned int i = 0; i < d.nMediaApplication(); ++i)
        tell(told, *d.mediaApplication(i));
    return told.str();
}

} // namespace fuzz

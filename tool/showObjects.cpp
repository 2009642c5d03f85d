#include <cstdio>

#include "show.h"
#include "text.h"

namespace ymsdp {

namespace {

using namespace ym::SDP;
using ym::String;

// Nothing is printed for a field without a text.
void field(const std::string& name, const std::string& text, int indent = 4)
{
    if (!text.empty())
        std::printf("%*s%-*s  %s\n", indent, "", 19 - indent, name.c_str(), printable(text).c_str());
}

void field(const std::string& name, const String& text)
{
    field(name, std::string(view(text)));
}

std::string joined(const String& name, const char* separator, const String& value)
{
    std::string text(view(name));
    if (value.length() > 0)
        text.append(separator).append(view(value));
    return text;
}

// The network and address type of 0 stand for words that the library does not know.
std::string address(NetworkType netType, AddressType addrType, const String& address)
{
    const std::string net = netType ? networkTypeStr(netType) : "?";
    const std::string addr = addrType ? addressTypeStr(addrType) : "?";
    return net + " " + addr + " " + std::string(view(address));
}

std::string number(unsigned long n)
{
    return std::to_string(n);
}

std::string bandwidth(const String& modifier, unsigned long value)
{
    return std::string(view(modifier)) + " " + number(value);
}

std::string encryption(EncryptionMethod method, const String& key)
{
    return joined(encryptionMethodStr(method), " ", key);
}

// SDPDescEx, SDPMedia and SDPMediaPayload list their attributes alike.
template <class Owner> void showAttributes(Owner& owner, int indent)
{
    String name, value;
    for (unsigned int i = 0; owner.attr(i, &name, &value) == 0; ++i)
        field("attribute", joined(name, ": ", value), indent);
}

void showOrigin(SDPDescEx& session)
{
    field("user name", session.origUsername());
    field("session id", session.origSessionId());
    field("session version", session.origVersion());
    if (session.origAddress().length() > 0)
        field("origin", address(session.origNetType(), session.origAddrType(), session.origAddress()));
}

void showConnection(SDPDescEx& session)
{
    if (!session.hasConnection())
        return;
    field("connection",
          address(session.connectionNetType(), session.connectionAddrType(), session.connectionAddress()));
    if (session.hasConnectionTTL())
        field("time to live", number(session.connectionTTL()));
    if (session.hasConnectionNumAddr())
        field("addresses", number(session.connectionNumAddr()));
}

void showSession(SDPDescEx& session)
{
    std::puts("  session");
    field("version", number(session.version()));
    showOrigin(session);
    field("name", session.sessionName());
    field("information", session.sessionDesc());
    field("URI", session.uri());
    field("e-mail", session.email());
    field("phone", session.phone());
    showConnection(session);
    if (session.hasBandwidth())
        field("bandwidth", bandwidth(session.bandwidthModifire(), session.bandwidth()));
    field("time zones", session.timezoneAjust());
    if (session.hasEncryption())
        field("encryption", encryption(session.encryptionMethod(), session.encryptionKey()));
    field("time", number(session.startTime()) + " to " + number(session.stopTime()));
    field("repeat", session.repeat());
    showAttributes(session, 4);
}

void showPayload(SDPMediaPayload& payload)
{
    String mapping, name, value;
    payload.payload(&mapping);
    field("payload " + number(payload.payloadNo()), mapping.length() > 0 ? std::string(view(mapping)) : "no mapping");
    for (unsigned int i = 0; payload.formatParam(i, &name, &value) == 0; ++i)
        field("parameter", joined(name, "=", value), 6);
    showAttributes(payload, 6);
}

const char* direction(SDPMedia& media)
{
    if (media.sendonly())
        return "sendonly";
    if (media.recvonly())
        return "recvonly";
    return media.inactive() ? "inactive" : "sendrecv";
}

void showConnection(SDPMedia& media)
{
    NetworkType netType = NetworkTypeNone;
    AddressType addrType = AddressTypeNone;
    String text;
    media.connection(&netType, &addrType, &text);
    if (media.hasConnection())
        field("connection", address(netType, addrType, text));
}

void showMedia(SDPMedia& media, unsigned int index)
{
    std::printf("  %s section %u\n", printable(view(media.media())).c_str(), index);
    field("port", number(media.port()));
    field("transport", media.transport());
    showConnection(media);
    for (int slot = 0; slot < 2; ++slot) {
        if (media.bandwidthModifire(slot)->length() > 0)
            field("bandwidth", bandwidth(*media.bandwidthModifire(slot), media.bandwidth(slot)));
    }
    field("direction", std::string(direction(media)));
    for (unsigned int i = 0; i < media.nMediaPayload(); ++i)
        showPayload(*media.mediaPayload(i));
}

} // namespace

void showObjects(SDPDescEx& session)
{
    std::puts("Objects, as SDPDescEx holds them");
    showSession(session);
    for (unsigned int i = 0; i < session.nMediaAudio(); ++i)
        showMedia(*session.mediaAudio(i), i);
    for (unsigned int i = 0; i < session.nMediaVideo(); ++i)
        showMedia(*session.mediaVideo(i), i);
    for (unsigned int i = 0; i < session.nMediaApplication(); ++i)
        showMedia(*session.mediaApplication(i), i);
}

} // namespace ymsdp

// Builds an offer of one audio section with two formats, and prints its text.
#include <iostream>

#include <sdp/SDPDescEx.h>

using namespace ym::SDP;

SDPMediaPayload* newFormat(unsigned short number, const char* mapping)
{
    auto* format = new SDPMediaPayload;
    format->setPayload(number, mapping);
    return format;
}

int main()
{
    SDPDescEx session;
    session.setOrig("bob", "3724394400", "1", NetworkTypeIN, AddressTypeIP6, "2001:db8::5");
    session.setSessionName("Door bell");
    session.setConnection(NetworkTypeIN, AddressTypeIP6, "2001:db8::5", 0, 0);

    auto* audio = new SDPMedia;
    session.addMediaAudio(audio); // the session owns it from here on
    audio->setMediaType("audio");
    audio->setPort(5004);
    audio->setBandwidth("AS", 64);
    audio->setSendOnly();
    audio->addMediaPayload(newFormat(8, "PCMA/8000"));
    SDPMediaPayload* events = newFormat(101, "telephone-event/8000");
    events->addFormatParam("0-15", "");
    audio->addMediaPayload(events); // and the section owns its formats
    audio->addAttr("ptime", "20");

    ym::String text;
    session.generate(&text);
    std::cout << text.chars();
}

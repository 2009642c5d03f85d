// Reads an offer and prints what a caller has to know in order to answer it.
#include <iostream>

#include <sdp/SDPDescEx.h>

using namespace ym::SDP;

int main()
{
    const char* offer = "v=0\r\n"
                        "o=alice 2890844526 2890844526 IN IP4 192.0.2.10\r\n"
                        "s=Call\r\n"
                        "c=IN IP4 192.0.2.10\r\n"
                        "t=0 0\r\n"
                        "m=audio 49170 RTP/AVP 96 0\r\n"
                        "a=rtpmap:96 opus/48000/2\r\n"
                        "a=fmtp:96 useinbandfec=1; stereo=0\r\n"
                        "a=rtpmap:0 PCMU/8000\r\n"
                        "a=sendonly\r\n";

    SDPDescEx session;
    if (session.parse(offer) != 0)
        return 1;
    std::cout << session.sessionName().chars() << " from " << session.connectionAddress().chars() << "\n";
    for (unsigned int i = 0; i < session.nMediaAudio(); ++i) {
        SDPMedia* audio = session.mediaAudio(i);
        std::cout << "audio from port " << audio->port() << (audio->sendonly() ? ", one way" : "") << "\n";
        for (unsigned int j = 0; j < audio->nMediaPayload(); ++j) {
            SDPMediaPayload* format = audio->mediaPayload(j);
            std::cout << "  " << format->payloadNo() << ": " << format->encoding().chars() << " at "
                      << format->clockRate() << " Hz\n";
        }
    }

    ym::String fec;
    SDPMediaPayload* opus = session.mediaAudio(0)->mediaPayload("opus/");
    if (opus && opus->formatParam("useinbandfec", &fec) == 0)
        std::cout << "Opus with error correction: " << fec.chars() << "\n";
}

// Changes a few lines of an offer on its way through a relay. All other lines stay as they are, known or not.
#include <iostream>

#include <sdp/SDPDesc.h>

using namespace ym::SDP;

int main()
{
    SDPDesc desc("\r\n");
    if (desc.parse("v=0\r\n"
                   "o=carol 1 1 IN IP4 10.0.0.7\r\n"
                   "s=-\r\n"
                   "t=0 0\r\n"
                   "m=audio 40000 RTP/AVP 0\r\n"
                   "a=candidate:1 1 UDP 2130706431 10.0.0.7 40000 typ host\r\n"
                   "a=candidate:2 1 UDP 1694498815 203.0.113.9 50000 typ srflx\r\n"
                   "a=x-seat:12\r\n"
                   "m=message 2855 TCP/MSRP *\r\n")
        != 0)
        return 1;

    desc.set('b', "AS:128"); // a new line goes to its place in the canonical order
    desc.setMedia(0, 'm', "audio 20000 RTP/AVP 0");

    ym::String name, value;
    for (int n = 0; desc.mediaAttr(0, n, &name, &value, 'a') == 0;) {
        if (name.compare("candidate", 0, name.length()) == 0)
            desc.removeMediaAttr(0, n, 'a');
        else
            ++n;
    }
    desc.setMediaAttr(0, desc.nMediaAttr(0, 'a'), "rtcp-mux", "", 'a');

    ym::String text;
    if (desc.generate(&text) != 0)
        return 1;
    std::cout << text.chars();
}

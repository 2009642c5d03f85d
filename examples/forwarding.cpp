// Hands a description on with one line changed: where media goes to. All other lines stay as they are, known or not.
#include <iostream>

#include <sdp/SDPDesc.h>

using namespace ym::SDP;

int main()
{
    SDPDesc desc("\r\n");
    if (desc.parse("v=0\r\n"
                   "o=dave 7 7 IN IP4 10.0.0.9\r\n"
                   "s=-\r\n"
                   "c=IN IP4 10.0.0.9\r\n"
                   "t=0 0\r\n"
                   "a=x-line:3\r\n"
                   "m=audio 40000 RTP/AVP 0\r\n")
        != 0)
        return 1;

    desc.set('c', "IN IP4 198.51.100.1");

    ym::String text;
    if (desc.generate(&text) != 0)
        return 1;
    std::cout << text.chars();
}

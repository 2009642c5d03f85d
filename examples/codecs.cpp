// Lists the codecs of a description that stands on the standard input: examples/phone-offer.sdp, say.
#include <iostream>
#include <iterator>
#include <string>

#include <sdp/SDPDescEx.h>

using namespace ym::SDP;

void list(SDPMedia& section)
{
    std::cout << section.media().chars() << ":";
    for (unsigned int i = 0; i < section.nMediaPayload(); ++i) {
        ym::String mapping;
        section.mediaPayload(i)->payload(&mapping); // empty for a number that stands for itself, without rtpmap
        std::cout << " " << section.mediaPayload(i)->payloadNo() << "=" << mapping.chars();
    }
    std::cout << "\n";
}

int main()
{
    const std::string input(std::istreambuf_iterator<char>(std::cin), {});
    ym::String text;
    text.assign(input); // a description is bytes

    SDPDescEx session;
    if (session.parse(text) != 0)
        return 1;
    for (unsigned int i = 0; i < session.nMediaAudio(); ++i)
        list(*session.mediaAudio(i));
    for (unsigned int i = 0; i < session.nMediaVideo(); ++i)
        list(*session.mediaVideo(i));
}

// Prints which lines of a description the object view would lose or change, and why.
#include <iostream>

#include <sdpcheck/report.h>

using namespace ym;

int main()
{
    const char* answer = "v=0\r\n"
                         "o=erin 3 3 IN IP4 192.0.2.30\r\n"
                         "s=Team\r\n"
                         "c=IN IP4 192.0.2.30\r\n"
                         "t=0 0\r\n"
                         "m=audio 40000 RTP/AVP 0\r\n"
                         "i=Room 5\r\n"
                         "a=candidate:1 1 UDP 2130706431 10.0.0.7 40000 typ host\r\n"
                         "a=candidate:2 1 UDP 1694498815 203.0.113.9 50000 typ srflx\r\n"
                         "a=sendrecv\r\n"
                         "m=message 2855 TCP/MSRP *\r\n";

    for (const sdpcheck::Finding& finding : sdpcheck::report(answer)) {
        std::cout << finding.line << ": " << finding.text << "\n";
        std::cout << "    " << sdpcheck::word(finding.kind->outcome) << ": " << finding.kind->reason << "\n";
    }
}

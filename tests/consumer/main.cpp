#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>
#include <sdpcheck/report.h>
#include <tovik/LineAdapter.h>
#include <tovik/NamedList.h>
#include <tovik/PRegEx.h>
#include <tovik/warning.h>

int main()
{
    ym::SDP::SDPDescEx session;
    session.setOrig("a", "1", "2", ym::SDP::NetworkTypeIN, ym::SDP::AddressTypeIP4, "192.0.2.1");
    ym::String text;
    session.generate(&text);
    if (!ym::sdpcheck::report(text.chars()).empty())
        return 1;
    ym::SDP::SDPDesc lines("\n");
    ym::PRegEx blank(R"(\s+)", 0);
    return lines.parse(text) == 0 && lines.get('o', &text) == 0 && blank.split(text, 0) == 6 ? 0 : 1;
}

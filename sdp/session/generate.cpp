// The text of a session object, line by line.
#include <sdp/SDPDescEx.h>

#include "sdp/line/text.h"
#include "sdp/media/SDPMedia_impl.h"
#include "sdp/media/attributes.h"
#include "sdp/media/fields.h"
#include "sdp/session/SDPDescEx_impl.h"
#include "support/view.h"

namespace ym::SDP {

namespace {

// So that most texts do not have to grow step by step.
constexpr unsigned long usualLength = 1000;

void putOrigin(Writer& out, const Origin& origin)
{
    putLine(out, 'o', origin.username, " ", origin.sessionId, " ", origin.version, " ", networkTypeStr(origin.netType),
            " ", addressTypeStr(origin.addrType), " ", origin.address);
}

// What stands behind the address: nothing, /127 or /127/3
void putSessionConnection(Writer& out, const SessionFields& s)
{
    String suffix;
    if (s.connectionTTL != 0)
        put(suffix, "/", number(s.connectionTTL));
    if (s.connectionTTL != 0 && s.connectionNumAddr != 0)
        put(suffix, "/", number(s.connectionNumAddr));
    putConnection(out, s.connection, view(suffix));
}

void putSections(Writer& out, OwnedList<SDPMedia>& sections)
{
    for (const SDPMedia& section : sections)
        section.state().putLines(out);
}

} // namespace

int SDPDescEx::generate(String* text)
{
    if (!text)
        return SDP_INVALID_ARGUMENT;
    Writer out(usualLength);
    putLine(out, 'v', number(impl_->version));
    putOrigin(out, impl_->origin);
    putText(out, 's', impl_->sessionName);
    putText(out, 'i', impl_->sessionDesc);
    putText(out, 'u', impl_->uri);
    putText(out, 'e', impl_->email);
    putText(out, 'p', impl_->phone);
    putSessionConnection(out, *impl_);
    putBandwidth(out, impl_->bandwidth);
    putText(out, 'z', impl_->timezoneAjust);
    putEncryption(out, impl_->encryption);
    putLine(out, 't', number(impl_->startTime), " ", number(impl_->stopTime));
    putText(out, 'r', impl_->repeat);
    putAttrLines(out, impl_->attrs);
    putSections(out, impl_->audios);
    putSections(out, impl_->videos);
    putSections(out, impl_->applications);
    out.moveTo(text);
    return 0;
}

void SDPDescEx::dump()
{
    String text;
    generate(&text);
}

} // namespace ym::SDP

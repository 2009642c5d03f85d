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

void putOrigin(String& out, const Origin& origin)
{
    putLine(out, 'o', origin.username, " ", origin.sessionId, " ", origin.version, " ", networkTypeStr(origin.netType),
            " ", addressTypeStr(origin.addrType), " ", origin.address);
}

// What stands behind the address: nothing, /127 or /127/3
void putSessionConnection(String& out, const SessionFields& s)
{
    String suffix;
    if (s.connectionTTL != 0)
        put(suffix, "/", number(s.connectionTTL));
    if (s.connectionTTL != 0 && s.connectionNumAddr != 0)
        put(suffix, "/", number(s.connectionNumAddr));
    putConnection(out, s.connection, view(suffix));
}

void putSections(String& out, OwnedList<SDPMedia>& sections)
{
    for (const SDPMedia& section : sections)
        section.state().putLines(out);
}

} // namespace

int SDPDescEx::generate(String* text)
{
    if (!text)
        return SDP_INVALID_ARGUMENT;
    text->assign("");
    text->reserve(usualLength);
    putLine(*text, 'v', number(impl_->version));
    putOrigin(*text, impl_->origin);
    putText(*text, 's', impl_->sessionName);
    putText(*text, 'i', impl_->sessionDesc);
    putText(*text, 'u', impl_->uri);
    putText(*text, 'e', impl_->email);
    putText(*text, 'p', impl_->phone);
    putSessionConnection(*text, *impl_);
    putBandwidth(*text, impl_->bandwidth);
    putText(*text, 'z', impl_->timezoneAjust);
    putEncryption(*text, impl_->encryption);
    putLine(*text, 't', number(impl_->startTime), " ", number(impl_->stopTime));
    putText(*text, 'r', impl_->repeat);
    putAttrLines(*text, impl_->attrs);
    putSections(*text, impl_->audios);
    putSections(*text, impl_->videos);
    putSections(*text, impl_->applications);
    return 0;
}

void SDPDescEx::dump()
{
    String text;
    generate(&text);
}

} // namespace ym::SDP

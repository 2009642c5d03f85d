// SDPDescEx::parse: a text becomes lines, and the lines of the session level its fields. Each reader takes one value
// apart, returns where it has not the form of the line, and stores.
#include <sdp/SDPDescEx.h>

#include <cstdint>

#include "sdp/line/Scanner.h"
#include "sdp/parser/parser.h"
#include "sdp/session/SDPDescEx_impl.h"
#include "sdp/vocabulary/words.h"
#include "support/make.h"
#include "support/number.h"
#include "support/view.h"

namespace ym::SDP {

namespace {

using Session = SessionFields;

// v=0
void readVersion(std::string_view value, Session& s)
{
    s.version = toNumber<std::uint16_t>(value);
}

// o=- 2890844526 2890842807 IN IP4 10.47.16.5
bool readOrigin(std::string_view value, Session& s)
{
    std::string_view words[6];
    Scanner at(value);
    at.space();
    for (std::string_view& word : words) {
        if (!at.word(&word))
            return false;
        at.space();
    }
    if (!at.isEnd())
        return false;
    s.origin.username.assign(words[0]);
    s.origin.sessionId.assign(words[1]);
    s.origin.version.assign(words[2]);
    s.origin.netType = networkTypeOf(words[3]);
    s.origin.addrType = addressTypeOf(words[4]);
    s.origin.address.assign(words[5]);
    return true;
}

// c=IN IP4 224.2.36.42/127
void readSessionConnection(std::string_view value, Session& s)
{
    ConnectionLine line;
    if (!readConnection(value, &line))
        return;
    s.connection.netType = line.netType;
    s.connection.addrType = line.addrType;
    s.connection.address.assign(line.address);
    s.connectionTTL = toNumber<std::uint32_t>(line.ttl);
    s.connectionNumAddr = toNumber<std::uint32_t>(line.numAddr);
}

// b=AS:128, b=X:Y:128
void readBandwidth(std::string_view value, Session& s)
{
    const std::size_t colon = value.rfind(':');
    if (colon == std::string_view::npos)
        return;
    std::string_view modifier;
    std::string_view number;
    Scanner name(value.substr(0, colon));
    Scanner rest(behind(value, colon + 1));
    if (!name.word(&modifier) || !name.isEnd() || !rest.digits(&number) || !rest.isEnd())
        return;
    s.bandwidth.modifier.assign(modifier);
    s.bandwidth.value = toNumber<std::uint32_t>(number);
}

// k=prompt, k=clear:key
void readEncryption(std::string_view value, Session& s)
{
    const NameValue pair = cut(value);
    std::string_view key;
    if (pair.name.empty() || !Scanner(pair.value).lastWord(&key))
        return;
    s.encryption.method = encryptionMethodOf(pair.name);
    s.encryption.key.assign(key);
}

// t=2873397496 2873404696
void readTime(std::string_view value, Session& s)
{
    std::string_view start;
    std::string_view stop;
    Scanner at(value);
    if (!at.digits(&start) || !at.space() || !at.digits(&stop) || !at.isEnd())
        return;
    s.startTime = toNumber<std::uint32_t>(start);
    s.stopTime = toNumber<std::uint32_t>(stop);
}

// All lines but attributes. False for an "o=" line that can not be read.
bool readField(char type, std::string_view value, Session& s)
{
    switch (type) {
    case 'v':
        readVersion(value, s);
        break;
    case 'o':
        return readOrigin(value, s);
    case 's':
        s.sessionName.assign(value);
        break;
    case 'i':
        s.sessionDesc.assign(value);
        break;
    case 'u':
        s.uri.assign(value);
        break;
    case 'e':
        s.email.assign(value);
        break;
    case 'p':
        s.phone.assign(value);
        break;
    case 'c':
        readSessionConnection(value, s);
        break;
    case 'b':
        readBandwidth(value, s);
        break;
    case 'z':
        s.timezoneAjust.assign(value);
        break;
    case 'k':
        readEncryption(value, s);
        break;
    case 't':
        readTime(value, s);
        break;
    case 'r':
        s.repeat.assign(value);
        break;
    default:
        break;
    }
    return true;
}

// Goes to the first "m=" line, or to the end. False if there is an "o=" line that can not be read.
bool readSession(Lines& lines, Session& s)
{
    bool isUsable = true;
    FirstLines first;
    Run attributes('a');
    for (; !lines.isEnd() && !lines.isMedia(); lines.next()) {
        if (attributes.takes(lines.type())) {
            const NameValue attribute = cut(lines.value());
            s.attrs.add(attribute.name, attribute.value); // names may repeat
        } else if (first.takes(lines.type())) {
            isUsable = readField(lines.type(), untilNul(lines.value()), s) && isUsable;
        }
    }
    return isUsable;
}

} // namespace

int SDPDescEx::parse(const String& text)
{
    if (!impl_->isNew) {
        String copy; // the text may be one of the fields
        copy.assign(view(text));
        impl_ = make<SDPDescEx_impl>();
        return parse(copy);
    }
    SDPDescEx_impl& session = edit();
    Lines lines(view(text));
    if (lines.areReadable() && readSession(lines, session)) {
        parseSections(lines, session);
        return 0;
    }
    const std::uint32_t version = session.version; // known even where the origin is not
    session.clear();
    setVersion(version);
    return -1;
}

} // namespace ym::SDP

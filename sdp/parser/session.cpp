// SDPDescEx::parse: a text becomes lines, and the lines of the session level its fields. Each reader takes one value
// apart, returns where it has not the form of the line, and stores.
#include <sdp/SDPDescEx.h>

#include <tovik/PRegEx.h>

#include "sdp/parser/parser.h"
#include "sdp/session/SDPDescEx_impl.h"

namespace ym::SDP {

namespace {

using Session = SessionFields;

// v=0
void readVersion(const String& value, Session& s)
{
    s.version = value.toUInt16(nullptr, 10);
}

// o=- 2890844526 2890842807 IN IP4 10.47.16.5
bool readOrigin(const String& value, Session& s)
{
    PRegEx pattern(R"(^\s*(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s*$)", 0);
    if (!pattern.match(value, 0))
        return false;
    s.origin.username = pattern[1];
    s.origin.sessionId = pattern[2];
    s.origin.version = pattern[3];
    s.origin.netType = networkTypeId(pattern[4].chars());
    s.origin.addrType = addressTypeId(pattern[5].chars());
    s.origin.address = pattern[6];
    return true;
}

// c=IN IP4 224.2.36.42/127
void readSessionConnection(const String& value, Session& s)
{
    ConnectionLine line;
    if (!readConnection(value, &line))
        return;
    s.connection = line.connection;
    s.connectionTTL = uint32(line.ttl.toUInt32(nullptr, 10));
    s.connectionNumAddr = uint32(line.numAddr.toUInt32(nullptr, 10));
}

// b=AS:128
void readBandwidth(const String& value, Session& s)
{
    PRegEx pattern(R"(^(\S+):(\d+)$)", 0);
    if (!pattern.match(value, 0))
        return;
    s.bandwidth = {pattern[1], uint32(pattern[2].toUInt32(nullptr, 10))};
}

// k=prompt, k=clear:key
void readEncryption(const String& value, Session& s)
{
    PRegEx pattern(R"(^([^:]+):{0,1}(\S*)$)", 0);
    if (!pattern.match(value, 0))
        return;
    s.encryption = {encryptionMethodId(pattern[1].chars()), pattern[2]};
}

// t=2873397496 2873404696
void readTime(const String& value, Session& s)
{
    PRegEx pattern(R"(^(\d+)\s+(\d+)$)", 0);
    if (!pattern.match(value, 0))
        return;
    s.startTime = uint32(pattern[1].toUInt32(nullptr, 10));
    s.stopTime = uint32(pattern[2].toUInt32(nullptr, 10));
}

// Names that repeat are all kept, unlike with addAttr.
void readAttributes(const SDPDesc& desc, Session& s)
{
    String name;
    String value;
    for (int i = 0; desc.attr(i, &name, &value) == 0; ++i)
        s.attrs.insert(name, value, -1);
}

// False for an "o=" line that can not be read; the lines behind it are not looked at then.
bool readSession(const SDPDesc& desc, Session& s)
{
    String value;
    if (desc.get(FieldVersion, &value) == 0)
        readVersion(value, s);
    if (desc.get(FieldOrigin, &value) == 0 && !readOrigin(value, s))
        return false;
    desc.get(FieldSessionName, &s.sessionName);
    desc.get(FieldInformation, &s.sessionDesc);
    desc.get(FieldUri, &s.uri);
    desc.get(FieldEmail, &s.email);
    desc.get(FieldPhone, &s.phone);
    if (desc.get(FieldConnection, &value) == 0)
        readSessionConnection(value, s);
    if (desc.get(FieldBandwidth, &value) == 0)
        readBandwidth(value, s);
    desc.get(FieldTimezone, &s.timezoneAjust);
    if (desc.get(FieldEncryption, &value) == 0)
        readEncryption(value, s);
    if (desc.get(FieldTime, &value) == 0)
        readTime(value, s);
    desc.get(FieldRepeat, &s.repeat);
    readAttributes(desc, s);
    return true;
}

} // namespace

int SDPDescEx::parse(const String& text)
{
    SDPDesc desc("\r\n");
    const int result = desc.parse(text);
    impl_->clear(); // the text may have been one of the fields
    if (result != 0 || !readSession(desc, *impl_))
        return -1;
    parseSections(desc, *this);
    return 0;
}

} // namespace ym::SDP

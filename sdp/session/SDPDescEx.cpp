// Lifetime and session-level fields, in the order of the lines that they serve.
#include <sdp/SDPDescEx.h>

#include "sdp/line/text.h"
#include "sdp/media/attributes.h"
#include "sdp/session/SDPDescEx_impl.h"
#include "support/make.h"
#include "support/view.h"

namespace ym::SDP {

SDPDescEx::SDPDescEx() : impl_(make<SDPDescEx_impl>()) { }
SDPDescEx::~SDPDescEx() = default;

SDPDescEx& SDPDescEx::operator=(const SDPDescEx& other)
{
    if (this == &other)
        return *this;
    impl_->clear();
    SDPDescEx_impl& copy = edit();
    static_cast<SessionFields&>(copy) = *other.impl_;
    copy.videos.copy(other.impl_->videos);
    copy.audios.copy(other.impl_->audios);
    copy.applications.copy(other.impl_->applications);
    return *this;
}

void SDPDescEx::clear()
{
    impl_->clear();
}

SDPDescEx::SDPDescEx_impl& SDPDescEx::edit()
{
    impl_->isNew = false;
    return *impl_;
}

// v=

unsigned long SDPDescEx::version()
{
    return impl_->version;
}

void SDPDescEx::setVersion(unsigned long version)
{
    edit().version = uint32(version);
}

// o=

const String& SDPDescEx::origUsername() const
{
    return impl_->origin.username;
}

const String& SDPDescEx::origSessionId() const
{
    return impl_->origin.sessionId;
}

const String& SDPDescEx::origVersion() const
{
    return impl_->origin.version;
}

NetworkType SDPDescEx::origNetType()
{
    return impl_->origin.netType;
}

AddressType SDPDescEx::origAddrType()
{
    return impl_->origin.addrType;
}

const String& SDPDescEx::origAddress() const
{
    return impl_->origin.address;
}

int SDPDescEx::setOrig(const String& username, const String& sessionId, const String& version, NetworkType netType,
                       AddressType addrType, const String& address)
{
    if (!isKnown(netType) || !isKnown(addrType))
        return SDP_INVALID_ARGUMENT;
    edit().origin = {username, sessionId, version, netType, addrType, address};
    return 0;
}

// s=

bool SDPDescEx::hasSessionName()
{
    return !isEmpty(impl_->sessionName);
}

const String& SDPDescEx::sessionName() const
{
    return impl_->sessionName;
}

void SDPDescEx::setSessionName(const String& name)
{
    edit().sessionName = name;
}

// i=

bool SDPDescEx::hasSessionDesc()
{
    return !isEmpty(impl_->sessionDesc);
}

const String& SDPDescEx::sessionDesc() const
{
    return impl_->sessionDesc;
}

void SDPDescEx::setSessionDesc(const String& text)
{
    edit().sessionDesc = text;
}

// u=

bool SDPDescEx::hasUri()
{
    return !isEmpty(impl_->uri);
}

const String& SDPDescEx::uri() const
{
    return impl_->uri;
}

void SDPDescEx::setUri(const String& uri)
{
    edit().uri = uri;
}

// e=

bool SDPDescEx::hasEmail()
{
    return !isEmpty(impl_->email);
}

const String& SDPDescEx::email() const
{
    return impl_->email;
}

void SDPDescEx::setEmail(const String& email)
{
    edit().email = email;
}

// p=

bool SDPDescEx::hasPhone()
{
    return !isEmpty(impl_->phone);
}

const String& SDPDescEx::phone() const
{
    return impl_->phone;
}

void SDPDescEx::setPhone(const String& phone)
{
    edit().phone = phone;
}

// c=

bool SDPDescEx::hasConnection()
{
    return impl_->connection.isSet();
}

bool SDPDescEx::hasConnectionTTL()
{
    return impl_->connectionTTL != 0;
}

bool SDPDescEx::hasConnectionNumAddr()
{
    return impl_->connectionNumAddr != 0;
}

NetworkType SDPDescEx::connectionNetType()
{
    return impl_->connection.netType;
}

AddressType SDPDescEx::connectionAddrType()
{
    return impl_->connection.addrType;
}

const String& SDPDescEx::connectionAddress() const
{
    return impl_->connection.address;
}

unsigned long SDPDescEx::connectionTTL()
{
    return impl_->connectionTTL;
}

unsigned long SDPDescEx::connectionNumAddr()
{
    return impl_->connectionNumAddr;
}

int SDPDescEx::setConnection(NetworkType netType, AddressType addrType, const String& address, unsigned long ttl,
                             unsigned long numAddr)
{
    if (!isKnown(netType) || !isKnown(addrType) || isEmpty(address))
        return SDP_INVALID_ARGUMENT;
    edit().connection = {netType, addrType, address};
    edit().connectionTTL = uint32(ttl);
    edit().connectionNumAddr = uint32(numAddr);
    return 0;
}

// b=

bool SDPDescEx::hasBandwidth()
{
    return impl_->bandwidth.isSet();
}

const String& SDPDescEx::bandwidthModifire() const
{
    return impl_->bandwidth.modifier;
}

unsigned long SDPDescEx::bandwidth()
{
    return impl_->bandwidth.value;
}

void SDPDescEx::setBandwidth(const String& modifier, unsigned long value)
{
    edit().bandwidth = {modifier, uint32(value)};
}

// z=

bool SDPDescEx::hasTimezoneAjust()
{
    return !isEmpty(impl_->timezoneAjust);
}

const String& SDPDescEx::timezoneAjust()
{
    return impl_->timezoneAjust;
}

void SDPDescEx::setTimezoneAjust(const String& text)
{
    edit().timezoneAjust = text;
}

// k=

bool SDPDescEx::hasEncryption()
{
    return impl_->encryption.isSet();
}

EncryptionMethod SDPDescEx::encryptionMethod()
{
    return impl_->encryption.method;
}

const String& SDPDescEx::encryptionKey() const
{
    return impl_->encryption.key;
}

int SDPDescEx::setEncryption(EncryptionMethod method, const String& key)
{
    return edit().encryption.set(method, key) ? 0 : SDP_INVALID_ARGUMENT;
}

int SDPDescEx::setEncryption(const String& method, const String& key)
{
    return edit().encryption.set(method, key) ? 0 : SDP_INVALID_ARGUMENT;
}

// t=

unsigned long SDPDescEx::startTime()
{
    return impl_->startTime;
}

unsigned long SDPDescEx::stopTime()
{
    return impl_->stopTime;
}

void SDPDescEx::setTime(unsigned long start, unsigned long stop)
{
    edit().startTime = uint32(start);
    edit().stopTime = uint32(stop);
}

// r=

bool SDPDescEx::hasRepeat()
{
    return !isEmpty(impl_->repeat);
}

const String& SDPDescEx::repeat() const
{
    return impl_->repeat;
}

void SDPDescEx::setRepeat(const String& text)
{
    edit().repeat = text;
}

// a=

bool SDPDescEx::hasAttr()
{
    return impl_->attrs.lines() > 0;
}

unsigned int SDPDescEx::nAttr()
{
    return impl_->attrs.lines();
}

int SDPDescEx::attr(const String& name, String* value)
{
    return value ? findAttr(impl_->attrs, name, value) : SDP_INVALID_ARGUMENT;
}

int SDPDescEx::attr(unsigned int index, String* name, String* value)
{
    return value ? attrAt(impl_->attrs, index, name, value) : SDP_INVALID_ARGUMENT;
}

int SDPDescEx::addAttr(const String& name, const String& value)
{
    edit().attrs.put(view(name), view(value));
    return 0;
}

int SDPDescEx::removeAttr(const String& name)
{
    edit().attrs.remove(name, 0);
    return 0;
}

} // namespace ym::SDP

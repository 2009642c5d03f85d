// The operations in the order of the lines that they serve.
#include <sdp/SDPMedia.h>

#include <tovik/warning.h>

#include "sdp/line/text.h"
#include "sdp/media/SDPMediaPayload_impl.h"
#include "sdp/media/SDPMedia_impl.h"
#include "sdp/media/attributes.h"
#include "support/make.h"
#include "support/view.h"

namespace ym::SDP {

namespace {

// Of the text of a section.
constexpr unsigned long usualLength = 400;

} // namespace

SDPMedia::SDPMedia() : impl_(make<SDPMedia_impl>()) { }
SDPMedia::~SDPMedia() = default;

SDPMedia& SDPMedia::operator=(const SDPMedia& other)
{
    if (this == &other)
        return *this;
    impl_->clear();
    static_cast<MediaFields&>(*impl_) = *other.impl_;
    impl_->payloads.copy(other.impl_->payloads);
    return *this;
}

void SDPMedia::clear()
{
    impl_->clear();
}

// m=: media type, port and transport protocol

const String& SDPMedia::media() const
{
    return impl_->media;
}

void SDPMedia::setMediaType(const char* media)
{
    impl_->media = media;
}

bool SDPMedia::isVideo()
{
    return isText(view(impl_->media), "video");
}

bool SDPMedia::isAudio()
{
    return isText(view(impl_->media), "audio");
}

bool SDPMedia::isApplication()
{
    return isText(view(impl_->media), "application");
}

unsigned short SDPMedia::port()
{
    return impl_->port;
}

void SDPMedia::setPort(unsigned short port)
{
    impl_->port = port;
}

const String& SDPMedia::transport() const
{
    return impl_->transport;
}

void SDPMedia::setTransport(const char* transport)
{
    impl_->transport = transport;
}

// m=: payload formats

unsigned int SDPMedia::nMediaPayload()
{
    return impl_->payloads.size();
}

SDPMediaPayload* SDPMedia::mediaPayload(unsigned int index)
{
    return impl_->payloads.at(index);
}

SDPMediaPayload* SDPMedia::mediaPayload(unsigned short number)
{
    return impl_->payloads.find(number);
}

SDPMediaPayload* SDPMedia::mediaPayload(const String& mapping)
{
    String text;
    for (SDPMediaPayload& payload : impl_->payloads) {
        payload.payload(&text);
        if (isText(view(text), mapping.chars()) || text.compare(mapping, 0, mapping.length()) == 0)
            return &payload;
    }
    return nullptr;
}

SDPMediaPayload* SDPMedia::mediaPayload(const char* mapping)
{
    return mapping ? mediaPayload(String(mapping)) : nullptr;
}

int SDPMedia::addMediaPayload(SDPMediaPayload* payload)
{
    if (!payload)
        return -1;
    impl_->payloads.add(payload);
    return 0;
}

// a=: attributes of the section itself

unsigned int SDPMedia::nAttr()
{
    return impl_->attrs.lines();
}

int SDPMedia::attr(const String& name, String* value)
{
    return findAttr(impl_->attrs, name, value);
}

int SDPMedia::attr(unsigned int index, String* name, String* value)
{
    return attrAt(impl_->attrs, index, name, value);
}

int SDPMedia::addAttr(const String& name, const String& value)
{
    if (!isDirection(view(name), &impl_->direction))
        impl_->attrs.put(view(name), view(value));
    return 0;
}

int SDPMedia::removeAttr(const String& name)
{
    if (isDirection(view(name), nullptr))
        setSendRecv();
    else
        impl_->attrs.remove(name, 0);
    return 0;
}

// i=

bool SDPMedia::hasSessionDesc()
{
    return !isEmpty(impl_->sessionDesc);
}

const String& SDPMedia::sessionDesc() const
{
    return impl_->sessionDesc;
}

void SDPMedia::setSessionDesc(String& text)
{
    impl_->sessionDesc = text;
}

// c=

bool SDPMedia::hasConnection()
{
    return impl_->connection.isSet();
}

void SDPMedia::connection(NetworkType* netType, AddressType* addrType, String* address)
{
    if (address)
        *address = impl_->connection.address; // first, since it may need memory
    if (netType)
        *netType = impl_->connection.netType;
    if (addrType)
        *addrType = impl_->connection.addrType;
}

int SDPMedia::setConnection(NetworkType netType, AddressType addrType, const String& address)
{
    if (!isKnown(netType) || !isKnown(addrType))
        return -1;
    impl_->connection = {netType, addrType, address};
    return 0;
}

int SDPMedia::setConnection(const String& netType, const String& addrType, const String& address)
{
    const NetworkType net = networkTypeId(netType.chars());
    const AddressType addr = addressTypeId(addrType.chars());
    if (net != NetworkTypeNone && addr != AddressTypeNone)
        impl_->connection = {net, addr, address};
    return 0;
}

// b=

bool SDPMedia::hasBandwidth()
{
    return impl_->nBandwidth != 0;
}

const String* SDPMedia::bandwidthModifire(int slot) const
{
    return slot >= 0 && slot < MediaFields::nSlots ? &impl_->bandwidth[slot].modifier : nullptr;
}

unsigned long SDPMedia::bandwidth(int slot)
{
    return slot >= 0 && slot < MediaFields::nSlots ? impl_->bandwidth[slot].value : 0;
}

void SDPMedia::setBandwidth(const String& modifier, unsigned long value)
{
    if (impl_->nBandwidth == MediaFields::nSlots) {
        ym_warning_print("SDPMedia::setBandwidth no more set Bandwidth");
        return;
    }
    impl_->bandwidth[impl_->nBandwidth] = {modifier, uint32(value)};
    ++impl_->nBandwidth;
}

// k=

bool SDPMedia::hasEncryption()
{
    return impl_->encryption.isSet();
}

EncryptionMethod SDPMedia::encryptionMethod()
{
    return impl_->encryption.method;
}

const String& SDPMedia::encryptionKey() const
{
    return impl_->encryption.key;
}

int SDPMedia::setEncryption(EncryptionMethod method, const String& key)
{
    return impl_->encryption.set(method, key) ? 0 : -1;
}

int SDPMedia::setEncryption(const String& method, const String& key)
{
    return impl_->encryption.set(method, key) ? 0 : -1;
}

// a=sendrecv and its like

bool SDPMedia::sendrecv()
{
    return impl_->direction == Direction::sendrecv;
}

bool SDPMedia::sendonly()
{
    return impl_->direction == Direction::sendonly;
}

bool SDPMedia::recvonly()
{
    return impl_->direction == Direction::recvonly;
}

bool SDPMedia::inactive()
{
    return impl_->direction == Direction::inactive;
}

void SDPMedia::setSendRecv()
{
    impl_->direction = Direction::sendrecv;
}

void SDPMedia::setSendOnly()
{
    impl_->direction = Direction::sendonly;
}

void SDPMedia::setRecvOnly()
{
    impl_->direction = Direction::recvonly;
}

void SDPMedia::setInactive()
{
    impl_->direction = Direction::inactive;
}

// Text out

void SDPMedia::SDPMedia_impl::putLines(Writer& out) const
{
    putBare(out, 'm', media, " ", number(port), " ", transport);
    for (const SDPMediaPayload& payload : payloads)
        put(out, " ", number(payload.state().payloadNo.get()));
    putLineEnd(out);
    putText(out, 'i', sessionDesc);
    putConnection(out, connection);
    for (const Bandwidth& slot : bandwidth)
        putBandwidth(out, slot);
    putEncryption(out, encryption);
    for (const SDPMediaPayload& payload : payloads)
        payload.state().putLines(out);
    putAttrLines(out, attrs);
    if (direction != Direction::sendrecv)
        putLine(out, 'a', directionWord(direction));
}

int SDPMedia::generate(String* out)
{
    if (!out)
        return SDP_INVALID_ARGUMENT;
    Writer text(usualLength);
    impl_->putLines(text);
    text.moveTo(out);
    return 0;
}

void SDPMedia::dump()
{
    String text;
    generate(&text);
}

} // namespace ym::SDP

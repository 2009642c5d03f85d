// Fields, then payload formats and the way they are found, then the operations in the order of the lines that they
// serve.
#include <sdp/SDPMedia.h>

#include <bitset>
#include <cstdint>
#include <unordered_map>
#include <utility>

#include <tovik/NamedList.h>
#include <tovik/warning.h>

#include "sdp/line/text.h"
#include "sdp/media/OwnedList.h"
#include "sdp/media/SDPMediaPayload_impl.h"
#include "sdp/media/attributes.h"
#include "sdp/media/direction.h"
#include "sdp/media/fields.h"
#include "support/make.h"
#include "support/view.h"

namespace ym::SDP {

namespace {

constexpr int nSlots = 2;

struct Fields {
    Direction direction = Direction::sendrecv;
    String media = "unknown";
    std::uint16_t port = 0;
    String transport = "RTP/AVP";
    String sessionDesc;
    Connection connection;
    Bandwidth bandwidth[nSlots];
    int nBandwidth = 0;
    Encryption encryption;
    NamedList attrs = NamedList(": ");
};

using Payloads = OwnedList<SDPMediaPayload>;

} // namespace

struct SDPMedia::SDPMedia_impl : Fields {
    Payloads payloads;

    SDPMediaPayload* find(unsigned short number);
    void add(std::unique_ptr<SDPMediaPayload> payload);
    std::unique_ptr<SDPMediaPayload> giveBack(const SDPMediaPayload* payload);
    void copyPayloads(const SDPMedia_impl& other);
    bool holds(const SDPMediaPayload* payload) const { return payload->state().payloadNo.isWatchedBy(&renumbered_); }
    void clear() { *this = SDPMedia_impl(); }

private:
    using Numbers = std::unordered_map<unsigned short, SDPMediaPayload*>;

    static constexpr unsigned int shortList = 64;

    SDPMediaPayload* findByWalk(unsigned short number);
    SDPMediaPayload* findByIndex(unsigned short number);

    bool renumbered_ = false; // set by the payloads when their number changes: numbers_ may be wrong

    // As long as no number ever changed, all are different, and a short list makes use of that.
    bool asAdded_ = true;
    std::bitset<128> seen_;      // where a number is not in, modulo 128, a short list does not have it
    unsigned int lastFound_ = 0; // lines of the same number and of the next one are likely to follow

    // The first payload of each number, for lists that are too long to be walked for every line that names a number.
    std::unique_ptr<Numbers> numbers_;
};

SDPMediaPayload* SDPMedia::SDPMedia_impl::findByWalk(unsigned short number)
{
    const auto hasNumber = [number](const SDPMediaPayload* p) { return p && p->state().payloadNo.get() == number; };
    asAdded_ = asAdded_ && !renumbered_;
    if (asAdded_ && !seen_[number % seen_.size()])
        return nullptr;
    if (asAdded_)
        for (const unsigned int likely : {lastFound_, lastFound_ + 1})
            if (hasNumber(payloads.at(likely)))
                return payloads.at(lastFound_ = likely);
    unsigned int index = 0;
    for (SDPMediaPayload& payload : payloads) {
        if (hasNumber(&payload)) {
            lastFound_ = index;
            return &payload;
        }
        ++index;
    }
    return nullptr;
}

SDPMediaPayload* SDPMedia::SDPMedia_impl::findByIndex(unsigned short number)
{
    if (!numbers_ || renumbered_) {
        auto numbers = std::make_unique<Numbers>();
        for (SDPMediaPayload& payload : payloads)
            numbers->emplace(payload.state().payloadNo.get(), &payload);
        numbers_ = std::move(numbers);
        asAdded_ = asAdded_ && !renumbered_;
        renumbered_ = false;
    }
    const auto found = numbers_->find(number);
    return found == numbers_->end() ? nullptr : found->second;
}

SDPMediaPayload* SDPMedia::SDPMedia_impl::find(unsigned short number)
{
    return payloads.size() > shortList ? findByIndex(number) : findByWalk(number);
}

void SDPMedia::SDPMedia_impl::add(std::unique_ptr<SDPMediaPayload> payload)
{
    const unsigned short number = payload->payloadNo();
    const SDPMediaPayload* const replaced = find(number);
    const bool isIndexed = numbers_ && !renumbered_ && numbers_->size() == payloads.size();
    std::unique_ptr<Numbers> numbers = std::move(numbers_); // away until it is right again
    if (replaced)
        payloads.take(replaced);
    payload->state().payloadNo.watch(&renumbered_);
    SDPMediaPayload* const added = payload.get();
    payloads.add(std::move(payload));
    seen_.set(number % seen_.size());
    if (!isIndexed)
        return;
    numbers->insert_or_assign(number, added);
    numbers_ = std::move(numbers);
}

std::unique_ptr<SDPMediaPayload> SDPMedia::SDPMedia_impl::giveBack(const SDPMediaPayload* payload)
{
    numbers_.reset();
    return payloads.take(payload);
}

void SDPMedia::SDPMedia_impl::copyPayloads(const SDPMedia_impl& other)
{
    payloads.copy(other.payloads);
    for (SDPMediaPayload& payload : payloads)
        payload.state().payloadNo.watch(&renumbered_);
    renumbered_ = true;
}

SDPMedia::SDPMedia() : impl_(make<SDPMedia_impl>()) { }
SDPMedia::~SDPMedia() = default;

SDPMedia& SDPMedia::operator=(const SDPMedia& other)
{
    if (this == &other)
        return *this;
    impl_->clear();
    static_cast<Fields&>(*impl_) = *other.impl_;
    impl_->copyPayloads(*other.impl_);
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
    return impl_->find(number);
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
    impl_->add(impl_->holds(payload) ? impl_->giveBack(payload) : std::unique_ptr<SDPMediaPayload>(payload));
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
    if (netType)
        *netType = impl_->connection.netType;
    if (addrType)
        *addrType = impl_->connection.addrType;
    if (address)
        *address = impl_->connection.address;
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
    return slot >= 0 && slot < nSlots ? &impl_->bandwidth[slot].modifier : nullptr;
}

unsigned long SDPMedia::bandwidth(int slot)
{
    return slot >= 0 && slot < nSlots ? impl_->bandwidth[slot].value : 0;
}

void SDPMedia::setBandwidth(const String& modifier, unsigned long value)
{
    if (impl_->nBandwidth == nSlots) {
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

int SDPMedia::generate(String* out)
{
    if (!out)
        return SDP_INVALID_ARGUMENT;
    out->assign("");
    putBare(*out, 'm', impl_->media, " ", number(impl_->port), " ", impl_->transport);
    for (const SDPMediaPayload& payload : impl_->payloads)
        put(*out, " ", number(payload.state().payloadNo.get()));
    putLineEnd(*out);
    putText(*out, 'i', impl_->sessionDesc);
    putConnection(*out, impl_->connection);
    for (const Bandwidth& bandwidth : impl_->bandwidth)
        putBandwidth(*out, bandwidth);
    putEncryption(*out, impl_->encryption);
    for (const SDPMediaPayload& payload : impl_->payloads)
        payload.state().putLines(*out);
    putAttrLines(*out, impl_->attrs);
    if (!sendrecv())
        putLine(*out, 'a', directionWord(impl_->direction));
    return 0;
}

void SDPMedia::dump()
{
    String text;
    generate(&text);
}

} // namespace ym::SDP

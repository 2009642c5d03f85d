#include <sdp/SDPMediaPayload.h>

#include <cstdint>

#include <tovik/NamedList.h>
#include <tovik/PRegEx.h>

#include "sdp/line/text.h"
#include "sdp/media/attributes.h"
#include "sdp/media/fields.h"

namespace ym::SDP {

namespace {

// A payload number that tells when it changes. Who is told belongs to the place of the number, not to its value, and
// stays when another number is assigned.
class PayloadNumber {
public:
    PayloadNumber() = default;
    PayloadNumber(const PayloadNumber& other) : number_(other.number_) { }

    PayloadNumber& operator=(const PayloadNumber& other)
    {
        set(other.number_);
        return *this;
    }

    unsigned short get() const { return number_; }

    void set(unsigned short number)
    {
        if (changed_ && number != number_)
            *changed_ = true;
        number_ = number;
    }

    void watch(bool* changed) { changed_ = changed; }
    bool isWatchedBy(const bool* changed) const { return changed_ == changed; }

private:
    unsigned short number_ = 0;
    bool* changed_ = nullptr;
};

} // namespace

struct SDPMediaPayload::SDPMediaPayload_impl {
    PayloadNumber payloadNo;
    String encoding;
    std::uint32_t clockRate = 0;
    String encodingParam;
    NamedList attrs = NamedList(": ");
    NamedList formatParams = NamedList(": ");

    bool hasMapping() const { return !isEmpty(encoding) && clockRate != 0; }

    // 96 L16/44100/2
    void putMapping(String& out) const
    {
        put(out, nameValue(encoding, "/", number(clockRate)));
        if (!isEmpty(encodingParam)) {
            put(out, "/");
            put(out, encodingParam);
        }
    }

    // a=1;b;c=3
    String joinedParams() const
    {
        String joined;
        const char* separator = "";
        eachAttr(formatParams, [&](const String& name, const String& value) {
            put(joined, separator);
            put(joined, nameValue(name, "=", value));
            separator = ";";
        });
        return joined;
    }

    void clear() { *this = SDPMediaPayload_impl(); }
};

SDPMediaPayload::SDPMediaPayload() : impl_(std::make_unique<SDPMediaPayload_impl>()) { }
SDPMediaPayload::~SDPMediaPayload() = default;

SDPMediaPayload& SDPMediaPayload::operator=(const SDPMediaPayload& other)
{
    *impl_ = *other.impl_;
    return *this;
}

void SDPMediaPayload::clear()
{
    impl_->clear();
}

void SDPMediaPayload::dump()
{
    String text;
    generate(&text);
}

void SDPMediaPayload::watchNumber(bool* changed)
{
    impl_->payloadNo.watch(changed);
}

bool SDPMediaPayload::isWatchedBy(const bool* changed) const
{
    return impl_->payloadNo.isWatchedBy(changed);
}

// m=

unsigned short SDPMediaPayload::payloadNo()
{
    return impl_->payloadNo.get();
}

void SDPMediaPayload::setPayloadNo(unsigned short number)
{
    impl_->payloadNo.set(number);
}

// a=rtpmap

const String& SDPMediaPayload::encoding() const
{
    return impl_->encoding;
}

void SDPMediaPayload::setEncoding(const String& encoding)
{
    impl_->encoding = encoding;
}

void SDPMediaPayload::setEncoding(const String& encoding, unsigned long clockRate)
{
    setEncoding(encoding);
    setClockRate(clockRate);
}

unsigned long SDPMediaPayload::clockRate()
{
    return impl_->clockRate;
}

void SDPMediaPayload::setClockRate(unsigned long clockRate)
{
    impl_->clockRate = uint32(clockRate);
}

const String& SDPMediaPayload::encodingParam() const
{
    return impl_->encodingParam;
}

void SDPMediaPayload::setEncodingParam(const String& param)
{
    impl_->encodingParam = param;
}

bool SDPMediaPayload::hasEncodingParam()
{
    return !isEmpty(impl_->encodingParam);
}

int SDPMediaPayload::payload(String* out)
{
    if (!out)
        return -1;
    out->assign("");
    if (impl_->hasMapping())
        impl_->putMapping(*out);
    return 0;
}

// PCMU/8000, L16/44100/2
int SDPMediaPayload::setPayload(const String& mapping)
{
    PRegEx pattern(R"(^(\S+)/([^/]\d+)/{0,1}(\S*)$)", 0);
    if (!pattern.match(mapping, 0))
        return -1;
    setEncoding(pattern[1], pattern[2].toUInt32(nullptr, 10));
    setEncodingParam(pattern[3]);
    return 0;
}

int SDPMediaPayload::setPayload(unsigned short number, const String& mapping)
{
    if (setPayload(mapping) == 0)
        setPayloadNo(number);
    return 0;
}

// a=

unsigned int SDPMediaPayload::nAttr()
{
    return impl_->attrs.lines();
}

int SDPMediaPayload::attr(const String& name, String* value)
{
    return findAttr(impl_->attrs, name, value);
}

int SDPMediaPayload::attr(unsigned int index, String* name, String* value)
{
    return attrAt(impl_->attrs, index, name, value);
}

int SDPMediaPayload::addAttr(const String& name, const String& value)
{
    putAttr(impl_->attrs, name, value);
    return 0;
}

int SDPMediaPayload::removeAttr(const String& name)
{
    return dropAttr(impl_->attrs, name);
}

int SDPMediaPayload::cat(String* value)
{
    return attr("cat", value);
}

int SDPMediaPayload::keywds(String* value)
{
    return attr("keywds", value);
}

int SDPMediaPayload::tool(String* value)
{
    return attr("tool", value);
}

int SDPMediaPayload::ptime(String* value)
{
    return attr("ptime", value);
}

int SDPMediaPayload::orient(String* value)
{
    return attr("orient", value);
}

int SDPMediaPayload::type(String* value)
{
    return attr("type", value);
}

int SDPMediaPayload::charset(String* value)
{
    return attr("charset", value);
}

int SDPMediaPayload::sdplang(String* value)
{
    return attr("sdplang", value);
}

int SDPMediaPayload::lang(String* value)
{
    return attr("lang", value);
}

int SDPMediaPayload::framerate(String* value)
{
    return attr("framerate", value);
}

int SDPMediaPayload::quality(String* value)
{
    return attr("quality", value);
}

// a=fmtp

unsigned int SDPMediaPayload::nFormatParam()
{
    return impl_->formatParams.lines();
}

int SDPMediaPayload::formatParam(const String& name, String* value)
{
    return findAttr(impl_->formatParams, name, value);
}

int SDPMediaPayload::formatParam(unsigned int index, String* name, String* value)
{
    return attrAt(impl_->formatParams, index, name, value);
}

int SDPMediaPayload::addFormatParam(const String& name, const String& value)
{
    putAttr(impl_->formatParams, name, value);
    return 0;
}

int SDPMediaPayload::removeFormatParam(const String& name)
{
    return dropAttr(impl_->formatParams, name);
}

int SDPMediaPayload::clearFormatParam()
{
    impl_->formatParams.clear();
    return 0;
}

// Text out

int SDPMediaPayload::generate(String* out)
{
    if (!out)
        return -1;
    out->assign("");
    const String payloadNo = number(impl_->payloadNo.get());
    if (impl_->hasMapping()) {
        String mapping;
        impl_->putMapping(mapping);
        putLine(*out, 'a', "rtpmap:", payloadNo, " ", mapping);
    }
    if (impl_->formatParams.lines() > 0)
        putLine(*out, 'a', "fmtp:", payloadNo, " ", impl_->joinedParams());
    putAttrLines(*out, impl_->attrs);
    return -1;
}

} // namespace ym::SDP

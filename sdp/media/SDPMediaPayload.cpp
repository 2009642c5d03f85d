#include <sdp/SDPMediaPayload.h>

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>

#include "sdp/line/text.h"
#include "sdp/media/SDPMediaPayload_impl.h"
#include "sdp/media/attributes.h"
#include "sdp/media/fields.h"
#include "support/ascii.h"
#include "support/make.h"
#include "support/number.h"
#include "support/view.h"

namespace ym::SDP {

namespace {

using State = SDPMediaPayload::SDPMediaPayload_impl;

// Of the text of a payload.
constexpr unsigned long usualLength = 100;

bool hasMapping(const State& s)
{
    return !isEmpty(s.encoding) && s.clockRate != 0;
}

// Whether a slash with a clock rate behind it stands at a place: any byte but a slash, and at least a digit.
bool isRateAt(std::string_view text, std::size_t slash)
{
    return slash + 2 < text.size() && text[slash] == '/' && text[slash + 1] != '/' && isDigit(text[slash + 2]);
}

// The place of the slash before the clock rate, which is the last that there can be, or 0.
std::size_t findRate(std::string_view text)
{
    const auto space = static_cast<std::size_t>(std::find_if(text.begin(), text.end(), isSpace) - text.begin());
    std::size_t slash = text.size() < 3 ? 0 : text.size() - 3;
    if (space < text.size()) // which only may be the first byte of the clock rate, and alone
        slash = space > 0 && isRateAt(text, space - 1) && std::none_of(text.begin() + space + 1, text.end(), isSpace)
            ? space - 1
            : 0;
    while (slash > 0 && !isRateAt(text, slash))
        --slash;
    return slash;
}

struct Mapping {
    std::string_view encoding;
    std::string_view clockRate;
    std::string_view param;
};

// PCMU/8000, L16/44100/2
bool readMapping(std::string_view text, Mapping* mapping)
{
    const std::size_t slash = findRate(text);
    if (slash == 0)
        return false;
    std::size_t end = slash + 2;
    while (end < text.size() && isDigit(text[end]))
        ++end;
    mapping->encoding = text.substr(0, slash);
    mapping->clockRate = behind(text.substr(0, end), slash + 1);
    mapping->param = behind(text, end < text.size() && text[end] == '/' ? end + 1 : end);
    return true;
}

// 44100/2
NameValue rateAndParam(const Digits& clockRate, const State& s)
{
    return nameValue(bytesOf(clockRate), "/", view(s.encodingParam));
}

// a=1;b;c=3
void putParams(Writer& out, const NamedList& params)
{
    const char* separator = "";
    eachAttr(params, [&](std::string_view name, std::string_view value) {
        put(out, separator, nameValue(name, "=", value));
        separator = ";";
    });
}

} // namespace

bool State::setMapping(std::string_view text)
{
    Mapping mapping;
    if (!readMapping(text, &mapping))
        return false;
    // What may fail comes first, and what the text may be is overwritten last.
    const auto newRate = toNumber<std::uint32_t>(mapping.clockRate);
    String newEncoding;
    newEncoding.assign(mapping.encoding);
    encodingParam.assign(mapping.param);
    encoding = std::move(newEncoding);
    clockRate = newRate;
    return true;
}

void State::putLines(Writer& out) const
{
    if (hasMapping(*this)) {
        const Digits rate = number(clockRate);
        putLine(out, 'a', "rtpmap:", number(payloadNo.get()), " ", encoding, "/", rateAndParam(rate, *this));
    }
    if (formatParams.lines() > 0) {
        putBare(out, 'a', "fmtp:", number(payloadNo.get()), " ");
        putParams(out, formatParams);
        putLineEnd(out);
    }
    putAttrLines(out, attrs);
}

SDPMediaPayload::SDPMediaPayload() : impl_(make<SDPMediaPayload_impl>()) { }
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
    const Digits rate = number(impl_->clockRate);
    Writer text(0);
    if (hasMapping(*impl_))
        put(text, impl_->encoding, "/", rateAndParam(rate, *impl_));
    text.moveTo(out);
    return 0;
}

int SDPMediaPayload::setPayload(const String& mapping)
{
    return impl_->setMapping(view(mapping)) ? 0 : -1;
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
    impl_->attrs.put(view(name), view(value));
    return 0;
}

int SDPMediaPayload::removeAttr(const String& name)
{
    impl_->attrs.remove(name, 0);
    return 0;
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
    impl_->formatParams.put(view(name), view(value));
    return 0;
}

int SDPMediaPayload::removeFormatParam(const String& name)
{
    impl_->formatParams.remove(name, 0);
    return 0;
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
    Writer text(usualLength);
    impl_->putLines(text);
    text.moveTo(out);
    return -1;
}

} // namespace ym::SDP

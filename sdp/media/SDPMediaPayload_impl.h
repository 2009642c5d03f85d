// The state of a payload format, which its media section and the parser look into.
#pragma once

#include <cstdint>
#include <string_view>

#include <sdp/SDPMediaPayload.h>
#include <tovik/NamedList.h>
#include <tovik/String.h>

#include "sdp/line/Writer.h"

namespace ym::SDP {

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

struct SDPMediaPayload::SDPMediaPayload_impl {
    PayloadNumber payloadNo;
    std::uint32_t clockRate = 0;
    String encoding;
    String encodingParam;
    NamedList attrs = NamedList(": ");
    NamedList formatParams = NamedList(": ");

    void clear() { *this = SDPMediaPayload_impl(); }

    // False for a text that is no mapping; nothing changes then. The text may be one of the fields.
    bool setMapping(std::string_view text);

    // Adds the lines of this payload: "a=rtpmap:", "a=fmtp:" and one for each attribute.
    void putLines(Writer& out) const;
};

} // namespace ym::SDP

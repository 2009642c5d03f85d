// Values that a session and a media section hold alike.
#pragma once

#include <cstdint>
#include <limits>
#include <string_view>

#include <sdp/vocabulary.h>
#include <tovik/String.h>

#include "sdp/line/Writer.h"
#include "sdp/line/text.h"

namespace ym::SDP {

// A number as the fields hold it. `unsigned long` is wider than 32 bits on some hosts only, and a description must
// not depend on the host.
inline std::uint32_t uint32(unsigned long n)
{
    constexpr std::uint32_t most = std::numeric_limits<std::uint32_t>::max();
    return n > most ? most : static_cast<std::uint32_t>(n);
}

// Whether an enumeration names the value. The comparison is unsigned, so that negative values are not known either.
inline bool isKnown(NetworkType type)
{
    return static_cast<unsigned int>(type) <= NetworkTypeIN;
}

inline bool isKnown(AddressType type)
{
    return static_cast<unsigned int>(type) <= AddressTypeIP6;
}

inline bool isKnown(EncryptionMethod method)
{
    return static_cast<unsigned int>(method) <= EncryptionMethodPrompt;
}

// c=IN IP4 224.2.36.42
struct Connection {
    NetworkType netType = NetworkTypeNone;
    AddressType addrType = AddressTypeNone;
    String address;

    bool isSet() const { return netType != NetworkTypeNone && addrType != AddressTypeNone && !isEmpty(address); }
};

// b=AS:128
struct Bandwidth {
    String modifier;
    std::uint32_t value = 0;

    bool isSet() const { return !isEmpty(modifier) && value != 0; }
};

// k=clear:key
struct Encryption {
    EncryptionMethod method = EncryptionMethodNone;
    String key;

    bool isSet() const { return method != EncryptionMethodNone; }

    // False if the enumeration does not name the method; nothing is stored then.
    bool set(EncryptionMethod newMethod, const String& newKey)
    {
        if (!isKnown(newMethod))
            return false;
        key = newKey;
        method = newMethod;
        return true;
    }

    bool set(const String& word, const String& newKey)
    {
        const EncryptionMethod newMethod = encryptionMethodId(word.chars());
        return newMethod != EncryptionMethodNone && set(newMethod, newKey);
    }
};

// Their lines, each written only if it is set. What stands behind the address of a session's connection is `suffix`.
void putConnection(Writer& out, const Connection& connection, std::string_view suffix = {});
void putBandwidth(Writer& out, const Bandwidth& bandwidth);
void putEncryption(Writer& out, const Encryption& encryption);

// A line that is a single text.
void putText(Writer& out, char type, const String& text);

} // namespace ym::SDP

// One table for each enumeration, two walks over any of them, and the lookups.
#include <sdp/vocabulary.h>

#include "sdp/vocabulary/words.h"

namespace ym::SDP {

namespace {

// The first row of a table is the value 0 with no text of its own, the last one its end.
struct Row {
    int value;
    std::string_view text;

    constexpr bool isEnd() const { return value < 0; }
};

constexpr Row fields[] = {
    {FieldNone, ""},
    {FieldVersion, "v"},
    {FieldOrigin, "o"},
    {FieldSessionName, "s"},
    {FieldInformation, "i"},
    {FieldUri, "u"},
    {FieldEmail, "e"},
    {FieldPhone, "p"},
    {FieldConnection, "c"},
    {FieldBandwidth, "b"},
    {FieldTimezone, "z"},
    {FieldEncryption, "k"},
    {FieldAttribute, "a"},
    {FieldTime, "t"},
    {FieldRepeat, "r"},
    {FieldMedia, "m"},
    {-1, {}},
};

constexpr Row networkTypes[] = {
    {NetworkTypeNone, ""},
    {NetworkTypeIN, "IN"},
    {-1, {}},
};

constexpr Row addressTypes[] = {
    {AddressTypeNone, ""},
    {AddressTypeIP4, "IP4"},
    {AddressTypeIP6, "IP6"},
    {-1, {}},
};

constexpr Row encryptionMethods[] = {
    {EncryptionMethodNone, ""},   {EncryptionMethodClear, "clear"},   {EncryptionMethodBase64, "base64"},
    {EncryptionMethodUri, "uri"}, {EncryptionMethodPrompt, "prompt"}, {-1, {}},
};

const char* textOf(const Row* row, int value)
{
    while (!row->isEnd() && row->value != value)
        ++row;
    return row->isEnd() ? "" : row->text.data();
}

template <class Enumeration> Enumeration valueOf(const Row* row, std::string_view text)
{
    while (!row->isEnd() && row->text != text)
        ++row;
    return static_cast<Enumeration>(row->isEnd() ? 0 : row->value);
}

} // namespace

const char* fieldStr(Field field)
{
    return textOf(fields, field);
}

char fieldChar(Field field)
{
    return *fieldStr(field);
}

Field fieldId(char type)
{
    const char text[] = {type, '\0'};
    return fieldId(text);
}

Field fieldId(const char* text)
{
    return valueOf<Field>(fields, text);
}

const char* networkTypeStr(NetworkType type)
{
    return textOf(networkTypes, type);
}

NetworkType networkTypeId(const char* text)
{
    return networkTypeOf(text);
}

NetworkType networkTypeOf(std::string_view word)
{
    return valueOf<NetworkType>(networkTypes, word);
}

const char* addressTypeStr(AddressType type)
{
    return textOf(addressTypes, type);
}

AddressType addressTypeId(const char* text)
{
    return addressTypeOf(text);
}

AddressType addressTypeOf(std::string_view word)
{
    return valueOf<AddressType>(addressTypes, word);
}

const char* encryptionMethodStr(EncryptionMethod method)
{
    return textOf(encryptionMethods, method);
}

EncryptionMethod encryptionMethodId(const char* text)
{
    return encryptionMethodOf(text);
}

EncryptionMethod encryptionMethodOf(std::string_view word)
{
    return valueOf<EncryptionMethod>(encryptionMethods, word);
}

} // namespace ym::SDP

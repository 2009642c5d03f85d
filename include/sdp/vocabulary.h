// The words of the Session Description Protocol (RFC 4566, RFC 8866) as enumerations, and the way from words to values
// and back. Value 0 of each enumeration means none or not known, and has no word of its own.
#pragma once

#include <tovik/export.h>

namespace ym {

// What this library is. The library itself never reads these.
extern YM_EXPORT const char* SDP_version; // "2.0"
extern YM_EXPORT const char* SDP_update;  // the date of this version
extern YM_EXPORT const char* SDP_libinfo; // a banner of three lines

namespace SDP {

// The result of an operation that refuses an argument, -2147483636.
constexpr int SDP_INVALID_ARGUMENT = static_cast<int>(0x8000000CU);

// The type of a line (RFC 8866, section 5), named by the character before its "=".
enum Field : int {
    FieldNone = 0,
    FieldVersion = 1,     // v
    FieldOrigin = 2,      // o
    FieldSessionName = 3, // s
    FieldInformation = 4, // i
    FieldUri = 5,         // u
    FieldEmail = 6,       // e
    FieldPhone = 7,       // p
    FieldConnection = 8,  // c
    FieldBandwidth = 9,   // b
    FieldTimezone = 10,   // z
    FieldEncryption = 11, // k
    FieldAttribute = 12,  // a
    FieldTime = 13,       // t
    FieldRepeat = 14,     // r
    FieldMedia = 15,      // m
};

// The network type of an "o=" or "c=" line.
enum NetworkType : int {
    NetworkTypeNone = 0,
    NetworkTypeIN = 1, // IN
};

// The address type of an "o=" or "c=" line.
enum AddressType : int {
    AddressTypeNone = 0,
    AddressTypeIP4 = 1, // IP4
    AddressTypeIP6 = 2, // IP6
};

// The method of a "k=" line (RFC 4566, section 5.12).
enum EncryptionMethod : int {
    EncryptionMethodNone = 0,
    EncryptionMethodClear = 1,  // clear
    EncryptionMethodBase64 = 2, // base64
    EncryptionMethodUri = 3,    // uri
    EncryptionMethodPrompt = 4, // prompt
};

// The word for a value: a constant of the library, never null. The empty text for value 0 and for any value that the
// enumeration does not name.
YM_EXPORT const char* fieldStr(Field field);
YM_EXPORT const char* networkTypeStr(NetworkType type);
YM_EXPORT const char* addressTypeStr(AddressType type);
YM_EXPORT const char* encryptionMethodStr(EncryptionMethod method);

// The character of a line type, or the NUL character where fieldStr gives the empty text.
YM_EXPORT char fieldChar(Field field);

// The value for a word, which must match as a whole and with case; 0 for every other text. A text must not be null.
YM_EXPORT Field fieldId(char type);
YM_EXPORT Field fieldId(const char* text);
YM_EXPORT NetworkType networkTypeId(const char* text);
YM_EXPORT AddressType addressTypeId(const char* text);
YM_EXPORT EncryptionMethod encryptionMethodId(const char* text);

} // namespace SDP
} // namespace ym

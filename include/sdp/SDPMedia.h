#pragma once

#include <memory>

#include <sdp/SDPMediaPayload.h>
#include <sdp/vocabulary.h>
#include <tovik/String.h>
#include <tovik/export.h>

namespace ym::SDP {

// One media section of a session description (RFC 8866, section 5.14): what an "m=" line opens, and the lines under it.
//
// A section owns its payload formats. Optional fields have no flag of their own: an empty text or a 0 means that the
// line is absent; the has... tests say so, and the getters give the stored values all the same. Results are 0 for
// success and -1 for a miss or a refusal, on which nothing changes and outputs are left alone. A null `String*` means
// that the output is not wanted. References and pointers to fields stay valid until the field next changes.
//
// Texts are written as they stand, line ends too: see SDPDescEx.
//
// Where memory runs out, std::bad_alloc passes through. Nothing changes then, but for assignment and a payload that was
// handed over, and of two outputs the first one may be written.
class YM_EXPORT SDPMedia {
public:
    // A section of the type "unknown" on port 0 with the transport "RTP/AVP", sendrecv, and nothing else.
    SDPMedia();
    ~SDPMedia(); // destroys the payloads

    SDPMedia(const SDPMedia&) = delete;

    // Makes this section a copy of the other, with payloads of its own. Its present payloads are destroyed first. Where
    // memory runs out, it holds what was copied so far.
    SDPMedia& operator=(const SDPMedia& other);

    // Makes this section like a new one. Its payloads are destroyed.
    void clear();

    // Replaces `*out` by the lines of this section, each ended by "\r\n": m, i, c, b, k as far as they are set, then
    // the lines of each payload, the attributes of the section, and the direction unless it is sendrecv.
    // SDP_INVALID_ARGUMENT if `out` is null.
    int generate(String* out);

    // Generates the text and drops it. Prints nothing.
    void dump();

    // m=: media type, port and transport protocol. Null reads as the empty text.
    const String& media() const;
    void setMediaType(const char* media);
    bool isVideo();       // the type is exactly "video"
    bool isAudio();       // "audio"
    bool isApplication(); // "application"
    unsigned short port();
    void setPort(unsigned short port);
    const String& transport() const;
    void setTransport(const char* transport);

    // m=: payload formats, in the order of the line. The pointers stay the section's property, until clear, assignment,
    // or a payload of the same number takes its place; null if there is no such payload. Mind the type of a number:
    // `unsigned int` is a position, `unsigned short` a payload number.
    unsigned int nMediaPayload();
    SDPMediaPayload* mediaPayload(unsigned int index);
    SDPMediaPayload* mediaPayload(unsigned short number);

    // The first payload whose mapping (see SDPMediaPayload::payload) begins with the text. Null if the text is null.
    SDPMediaPayload* mediaPayload(const String& mapping);
    SDPMediaPayload* mediaPayload(const char* mapping);

    // Adds a payload at the end and takes it over: it must have been made by `new`, and is destroyed by the section. A
    // payload of the same number that is there already is destroyed, so that a number keeps its last payload. A payload
    // that is in this section already moves to the end. -1 if `payload` is null.
    //
    // Where memory runs out, the list stays as it is. The payload is destroyed, unless it is in the list.
    int addMediaPayload(SDPMediaPayload* payload);

    // a=: attributes of the section itself, each name once, in the order in which they were added. The directions are
    // no entries of this list. SDPDescEx::parse gives attributes to payloads and leaves this list empty.
    unsigned int nAttr();
    int attr(const String& name, String* value);
    int attr(unsigned int index, String* name, String* value);

    // Adds an attribute at the end, or changes the value of the one of this name. "sendrecv", "sendonly", "recvonly"
    // and "inactive" set the direction instead, and their value is ignored. Always 0.
    int addAttr(const String& name, const String& value);

    // Removes the attribute of this name. 0 as well if there is none. Each of the four directions sets sendrecv.
    int removeAttr(const String& name);

    // i=: title of the section
    bool hasSessionDesc();
    const String& sessionDesc() const;
    void setSessionDesc(String& text);

    // c=: connection. It is set if neither type is 0 and the address is not empty. The address holds what stands behind
    // it on the line, too ("224.2.1.1/127").
    bool hasConnection();

    // Copies the three fields out; a null pointer is skipped.
    void connection(NetworkType* netType, AddressType* addrType, String* address);

    // -1 for a type that its enumeration does not name; 0 of either is taken.
    int setConnection(NetworkType netType, AddressType addrType, const String& address);

    // The same with the words of the line. Stores nothing if one of the words is unknown. Always 0.
    int setConnection(const String& netType, const String& addrType, const String& address);

    // b=: two slots for bandwidths, in kilobits per second for the modifiers CT and AS. Values are at most 4294967295;
    // more is held as that.
    bool hasBandwidth();                             // a slot is in use
    const String* bandwidthModifire(int slot) const; // of slot 0 or 1, in use or not; null for any other number
    unsigned long bandwidth(int slot);               // of slot 0 or 1, in use or not; 0 for any other number

    // Fills the next slot, whatever stands in the others. With both in use nothing changes, and a warning is printed to
    // the standard error stream. A slot with an empty modifier or the value 0 is not written by generate.
    void setBandwidth(const String& modifier, unsigned long value);

    // k=: encryption (RFC 4566, section 5.12). It is set if the method is not 0, whatever the key.
    bool hasEncryption();
    EncryptionMethod encryptionMethod();
    const String& encryptionKey() const;

    // -1 for a method that the enumeration does not name; 0 is taken, and the key stored beside it.
    int setEncryption(EncryptionMethod method, const String& key);

    // The same with the word of the line. -1 for an unknown word.
    int setEncryption(const String& method, const String& key);

    // a=sendrecv and its like: the direction (RFC 3264, section 5.1), one of four
    bool sendrecv();
    bool sendonly();
    bool recvonly();
    bool inactive();
    void setSendRecv();
    void setSendOnly();
    void setRecvOnly();
    void setInactive();

    // The private state, and the way of the library itself to it, which is not exported.
    struct YM_HIDDEN SDPMedia_impl;
    YM_HIDDEN SDPMedia_impl& state() { return *impl_; }
    YM_HIDDEN const SDPMedia_impl& state() const { return *impl_; }

private:
    std::unique_ptr<SDPMedia_impl> impl_;
};

} // namespace ym::SDP

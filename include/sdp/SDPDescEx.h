#pragma once

#include <memory>

#include <sdp/SDPMedia.h>
#include <sdp/vocabulary.h>
#include <tovik/String.h>
#include <tovik/export.h>

namespace ym::SDP {

// A session description (RFC 8866) as typed fields, with an SDPMedia object for each media section.
//
// The object view keeps what it has fields for. Sections are held by kind, so that the order of sections of different
// kinds is not kept, and a section's attributes belong to its payload formats. Use SDPDesc where every line has to be
// kept.
//
// Optional fields have no flag of their own: an empty text or a 0 means that the line is absent; the has... tests say
// so, and the getters give the stored values all the same. Operations give 0 for success, -1 for a miss and
// SDP_INVALID_ARGUMENT for an argument that is refused; on either nothing changes and outputs are left alone. Numbers
// are at most 4294967295; more is held as that. References stay valid until the field next changes.
//
// Texts are written as they stand, up to their first NUL byte: a line end in one that a setter is given begins a line
// of its own in the text. Look for "\r" and "\n" in what others send.
//
// Where memory runs out, std::bad_alloc passes through. Nothing changes then, but for parse, assignment and an object
// that was handed over, and of two outputs the first one may be written.
//
// Objects are independent; one object is used by one thread at a time.
class YM_EXPORT SDPDescEx {
public:
    // A description with the user name "-", the session id and version "0", the session name "session", and nothing
    // else.
    SDPDescEx();
    ~SDPDescEx(); // destroys the media sections

    SDPDescEx(const SDPDescEx&) = delete;

    // Makes this description a copy of the other, with media sections of its own. Its present sections are destroyed
    // first. Where memory runs out, it holds what was copied so far.
    SDPDescEx& operator=(const SDPDescEx& other);

    // Makes this description like a new one. Its media sections are destroyed.
    void clear();

    // Text in, text out

    // Replaces the whole description by what a text says. All media sections are destroyed first, also if the text is
    // refused. Each of "\r\n", "\n" and "\r" ends a line; empty lines are refused like others, but for those at the
    // end.
    //
    // -1 if a line does not begin with one of "vosiuepcbzktram" and "=", or if the first "o=" line does not have six
    // words; the description is cleared then, except for the version in the second case. Any other line that can not be
    // read is dropped, and so is a media section whose "m=" line can not be read or whose type is not video, audio or
    // application. No line has to be there; of a line that may stand once, the first one counts.
    //
    // In a section, the directions go to the SDPMedia; "rtpmap" and "fmtp" go to the payload of their number; every
    // other attribute goes to the payload that the last rtpmap or fmtp line named, or to the last one of the "m=" line
    // before any such line. What finds no payload is dropped, and so are the "i=" and "k=" lines of a section.
    //
    // Where memory runs out, the description is as before, or it holds what was read so far.
    int parse(const String& text);

    // Replaces `*text` by the whole description, each line ended by "\r\n": the session lines in canonical order, then
    // the audio sections, the video sections and the application sections. "v=", "o=" and "t=" are always written,
    // other lines as far as they are set. SDP_INVALID_ARGUMENT if `text` is null.
    //
    // The text can be read again only if the origin is complete: both types known, no field empty or with a blank in
    // it.
    int generate(String* text);

    // Generates the text and drops it. Prints nothing.
    void dump();

    // The session level, line by line

    // v=: protocol version
    unsigned long version();
    void setVersion(unsigned long version);

    // o=: origin. Session id and version are texts, since they may have more digits than any number here.
    const String& origUsername() const;
    const String& origSessionId() const;
    const String& origVersion() const;
    NetworkType origNetType();
    AddressType origAddrType();
    const String& origAddress() const;

    // Refuses a type that its enumeration does not name; 0 of either and empty texts are taken.
    int setOrig(const String& username, const String& sessionId, const String& version, NetworkType netType,
                AddressType addrType, const String& address);

    // s=: session name
    bool hasSessionName();
    const String& sessionName() const;
    void setSessionName(const String& name);

    // i=: session information
    bool hasSessionDesc();
    const String& sessionDesc() const;
    void setSessionDesc(const String& text);

    // u=: URI of the description
    bool hasUri();
    const String& uri() const;
    void setUri(const String& uri);

    // e=: e-mail address, the whole value of the line
    bool hasEmail();
    const String& email() const;
    void setEmail(const String& email);

    // p=: phone number, the whole value of the line
    bool hasPhone();
    const String& phone() const;
    void setPhone(const String& phone);

    // c=: connection. It is set if neither type is 0 and the address is not empty. A time to live or a number of
    // addresses of 0 means none; the number is written only behind a time to live.
    bool hasConnection();
    bool hasConnectionTTL();
    bool hasConnectionNumAddr();
    NetworkType connectionNetType();
    AddressType connectionAddrType();
    const String& connectionAddress() const;
    unsigned long connectionTTL();
    unsigned long connectionNumAddr();

    // Refuses a type that its enumeration does not name, and an empty address; 0 of either type is taken.
    int setConnection(NetworkType netType, AddressType addrType, const String& address, unsigned long ttl,
                      unsigned long numAddr);

    // b=: bandwidth, in kilobits per second for the modifiers CT and AS. It is set if neither is empty or 0.
    bool hasBandwidth();
    const String& bandwidthModifire() const;
    unsigned long bandwidth();
    void setBandwidth(const String& modifier, unsigned long value);

    // z=: time zone adjustments, the whole value of the line
    bool hasTimezoneAjust();
    const String& timezoneAjust();
    void setTimezoneAjust(const String& text);

    // k=: encryption (RFC 4566, section 5.12). It is set if the method is not 0, whatever the key.
    bool hasEncryption();
    EncryptionMethod encryptionMethod();
    const String& encryptionKey() const;

    // Refuses a method that the enumeration does not name; 0 is taken, and the key stored beside it.
    int setEncryption(EncryptionMethod method, const String& key);

    // The same with the word of the line. Refuses an unknown word.
    int setEncryption(const String& method, const String& key);

    // t=: start and stop time, as on the line: seconds since 1900, 0 for no bound
    unsigned long startTime();
    unsigned long stopTime();
    void setTime(unsigned long start, unsigned long stop);

    // r=: repeat times, the whole value of the line
    bool hasRepeat();
    const String& repeat() const;
    void setRepeat(const String& text);

    // a=: session attributes, in the order in which they were added. parse keeps names that repeat, addAttr does not
    // add any. A null `value` is refused; a null `name` means that it is not wanted.
    bool hasAttr();
    unsigned int nAttr();
    int attr(const String& name, String* value); // the first one of the name
    int attr(unsigned int index, String* name, String* value);

    // Adds an attribute at the end, or changes the value of the first one of this name. An empty value gives "a=name".
    int addAttr(const String& name, const String& value);

    // Removes the first attribute of this name. Always 0.
    int removeAttr(const String& name);

    // The media sections

    // m=: three lists of sections. The list that holds a section decides its place in the text, whatever its
    // type.
    bool hasMedia();
    unsigned int nMedia();
    bool hasMediaVideo();
    bool hasMediaAudio();
    bool hasMediaApplication();
    unsigned int nMediaVideo();
    unsigned int nMediaAudio();
    unsigned int nMediaApplication();

    // The section at a position, counted from 0, or null. It stays the property of the description.
    SDPMedia* mediaVideo(unsigned int index);
    SDPMedia* mediaAudio(unsigned int index);
    SDPMedia* mediaApplication(unsigned int index);

    // Adds a section at the end of the list and takes it over: it must have been made by `new`, must not be in a list
    // of any description already, and is destroyed by the description, at once if memory runs out. Refuses null.
    int addMediaVideo(SDPMedia* media);
    int addMediaAudio(SDPMedia* media);
    int addMediaApplication(SDPMedia* media);

    // Destroys a section of the list. -1 if the list does not hold it.
    int removeMediaVideo(SDPMedia* media);
    int removeMediaAudio(SDPMedia* media);
    int removeMediaApplication(SDPMedia* media);

    // The private state.
    struct YM_HIDDEN SDPDescEx_impl;

private:
    YM_HIDDEN SDPDescEx_impl& edit(); // the state, for a change: it is no longer new

    std::unique_ptr<SDPDescEx_impl> impl_;
};

} // namespace ym::SDP

#pragma once

#include <memory>

#include <tovik/String.h>
#include <tovik/export.h>

namespace ym::SDP {

// One payload format of a media section: a number of the "m=" line, what "a=rtpmap:" and "a=fmtp:" say about that
// number (RFC 8866, sections 6.6 and 6.15), and the attributes that belong to it.
//
// An empty encoding or a clock rate of 0 means that the payload has no mapping; the getters give the stored values all
// the same. Results are 0 for success and -1 for a miss, on which outputs are left alone. A null `String*` means that
// the output is not wanted, unless an operation says otherwise. References stay valid until the field next changes.
//
// Texts are written as they stand, line ends, semicolons and equals signs too: see SDPDescEx.
//
// Where memory runs out, std::bad_alloc passes through. Nothing changes then, but for assignment, and of two outputs
// the first one may be written.
class YM_EXPORT SDPMediaPayload {
public:
    // A payload with the number 0, no mapping, no parameters and no attributes.
    SDPMediaPayload();
    ~SDPMediaPayload();

    SDPMediaPayload(const SDPMediaPayload&) = delete;

    // Makes this payload a copy of the other, number and both lists included. Where memory runs out, some fields are
    // those of the other, and some are as before.
    SDPMediaPayload& operator=(const SDPMediaPayload& other);

    // Makes this payload like a new one.
    void clear();

    // Generates the text and drops it. Prints nothing.
    void dump();

    // m=: the number, 0 to 65535. A payload in a media section may be given another number at any time.
    unsigned short payloadNo();
    void setPayloadNo(unsigned short number);

    // a=rtpmap: the mapping, encoding "/" clock rate and, if any, "/" parameter. The clock rate is in Hz and at most
    // 4294967295; more is held as that.
    const String& encoding() const;
    void setEncoding(const String& encoding);
    void setEncoding(const String& encoding, unsigned long clockRate);
    unsigned long clockRate();
    void setClockRate(unsigned long clockRate);
    const String& encodingParam() const;
    void setEncodingParam(const String& param);
    bool hasEncodingParam();

    // Composes the mapping in `*out`, which becomes empty where the payload has none. -1 if `out` is null.
    int payload(String* out);

    // Takes a mapping apart and stores its three pieces, an empty parameter included.
    //
    // The clock rate is the last piece of two or more characters from which the rest can be read, so that "L16/44100/2"
    // has the rate 44100 and the parameter 2, but "L16/44100/22" the encoding "L16/44100" and the rate 22. -1 for a
    // text that is no mapping; nothing changes then.
    int setPayload(const String& mapping);

    // The same, and stores the number if the text was a mapping. Always 0, also where nothing was stored.
    int setPayload(unsigned short number, const String& mapping);

    // a=: attributes, each name once, in the order in which they were added
    unsigned int nAttr();
    int attr(const String& name, String* value);
    int attr(unsigned int index, String* name, String* value);

    // Adds an attribute at the end, or changes the value of the one of this name. An empty value gives a line "a=name".
    // Always 0.
    int addAttr(const String& name, const String& value);

    // Removes the attribute of this name. 0 as well if there is none.
    int removeAttr(const String& name);

    // The values of the attributes "cat", "keywds", "tool", ... (RFC 8866, section 6).
    int cat(String* value);
    int keywds(String* value);
    int tool(String* value);
    int ptime(String* value);
    int orient(String* value);
    int type(String* value);
    int charset(String* value);
    int sdplang(String* value);
    int lang(String* value);
    int framerate(String* value);
    int quality(String* value);

    // a=fmtp: format parameters, each name once, in the order in which they were added
    unsigned int nFormatParam();
    int formatParam(const String& name, String* value);
    int formatParam(unsigned int index, String* name, String* value);

    // Adds a parameter at the end, or changes the value of the one of this name. An empty value is written as the name
    // alone. Always 0.
    int addFormatParam(const String& name, const String& value);

    // Removes the parameter of this name. 0 as well if there is none.
    int removeFormatParam(const String& name);

    // Removes all parameters. Always 0.
    int clearFormatParam();

    // Replaces `*out` by the lines of this payload: "a=rtpmap:" if it has a mapping, "a=fmtp:" if it has parameters,
    // and one "a=" line for each attribute, each ended by "\r\n". Always -1, whether or not there was anything to
    // write.
    int generate(String* out);

    // The private state, and the way of the library itself to it, which is not exported.
    struct YM_HIDDEN SDPMediaPayload_impl;
    YM_HIDDEN SDPMediaPayload_impl& state() { return *impl_; }
    YM_HIDDEN const SDPMediaPayload_impl& state() const { return *impl_; }

private:
    std::unique_ptr<SDPMediaPayload_impl> impl_;
};

} // namespace ym::SDP

// A text, which is the whole input, through both views.
#include <cctype>

#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>

#include "fuzz/PlainList.h"
#include "fuzz/describe.h"
#include "fuzz/expect.h"

using namespace fuzz;
using namespace ym::SDP;
using test::bytes;
using test::str;
using ym::String;

namespace {

// Every line that is read is written again, up to the first one that is no line.
void linesComeBack(const String& text)
{
    const String head("v=\no=\ns=\n");
    SDPDesc list("\r\n");
    PlainList plain;
    expect(list.parse(head) == 0 && plain.parse(head) == 0, "three lines are read");
    expectEqual(plain.parse(text), list.parse(text), "parse");
    list.dump();
    String expected;
    String written;
    expect(plain.generate(&expected) == 0 && list.generate(&written) == 0, "the lines are written");
    expectEqual(str(expected), str(written), "generate");

    String name;
    String value;
    for (int i = 0; i < list.nMedia(); ++i)
        for (const char type : {'a', 'b', 'm'})
            for (int n = 0; list.mediaAttr(i, n, &name, &value, type) == 0 && n < 20; ++n)
                expect(list.hasMediaAttr(i, name, type) > 0, "a name that is read is there");
    list.clear();
    expectEqual(-1, list.generate(&written), "generate, cleared");
}

// The session's texts are the values of the lines, as far as there are such lines.
void viewsAgree(const String& text, SDPDescEx& objects)
{
    SDPDesc list("\n");
    expectEqual(0, list.parse(text), "parse of what the objects read");
    const auto agree = [&](char type, const String& field) {
        String value(type == 's' ? "session" : "");
        list.get(type, &value);
        expectEqual(str(value), str(field), std::string("the field of ") + type + "=");
    };
    agree('s', objects.sessionName());
    agree('i', objects.sessionDesc());
    agree('u', objects.uri());
    agree('e', objects.email());
    agree('p', objects.phone());
    agree('z', objects.timezoneAjust());
    agree('r', objects.repeat());
    String name;
    unsigned int nAttr = 0;
    while (list.attr(static_cast<int>(nAttr), &name, nullptr) == 0)
        ++nAttr;
    expectEqual(nAttr, objects.nAttr(), "nAttr");
    expect(objects.nMedia() <= static_cast<unsigned int>(list.nMedia()), "sections have lines");
}

std::string generated(SDPDescEx& objects)
{
    String text("untouched");
    expectEqual(0, objects.generate(&text), "generate");
    return str(text);
}

// Attributes belong to the payload whose line stands before them. "a/80!12" reads as the rate 80 with the parameter
// "!12", and is written as "a/80/!12", which reads as another mapping.
// A last parameter keeps the blanks behind it, until it is no longer the last one.
bool comesBack(SDPMediaPayload& payload)
{
    String name;
    for (unsigned int i = 0; payload.formatParam(i, &name, nullptr) == 0; ++i)
        if (name.length() > 0 && std::isspace(static_cast<unsigned char>(name.chars()[name.length() - 1])) != 0)
            return false;
    SDPMediaPayload again;
    String mapping;
    payload.payload(&mapping);
    if (mapping.length() == 0)
        return payload.nAttr() == 0 || payload.nFormatParam() > 0;
    return again.setPayload(mapping) == 0 && again.clockRate() == payload.clockRate()
        && str(again.encoding()) == str(payload.encoding());
}

// A section without formats is written, but not read.
bool comesBack(SDPMedia& media)
{
    for (unsigned int i = 0; i < media.nMediaPayload(); ++i)
        if (!comesBack(*media.mediaPayload(i)))
            return false;
    return media.nMediaPayload() > 0;
}

// A session without a name is read as one with the name "session".
bool comesBack(SDPDescEx& objects)
{
    SDPMedia* (SDPDescEx::*const lists[])(unsigned int)
        = {&SDPDescEx::mediaAudio, &SDPDescEx::mediaVideo, &SDPDescEx::mediaApplication};
    for (const auto list : lists)
        for (unsigned int i = 0; SDPMedia* const media = (objects.*list)(i); ++i)
            if (!comesBack(*media))
                return false;
    return objects.hasSessionName();
}

// What the objects write they read again, if only the origin is complete, and then they tell the same. A value that was
// cut at a NUL byte may have blanks at its end, which are gone the next time.
void objectsComeBack(SDPDescEx& objects, bool isCut)
{
    SDPDescEx again;
    const std::string told = describe(objects);
    const std::string text = generated(objects);
    if (again.parse(bytes(text)) != 0)
        expect(objects.origNetType() == NetworkTypeNone || objects.origAddrType() == AddressTypeNone
                   || objects.origAddress().length() == 0,
               "a description with a complete origin is read again");
    else if (!isCut && comesBack(objects))
        expectEqual(text, generated(again), "generate, a second time");

    again = objects;
    expectEqual(told, describe(again), "a copy");
    expectEqual(text, generated(again), "the text of a copy");
    objects.clear();
    SDPDescEx fresh;
    expectEqual(describe(fresh), describe(objects), "clear");
    expectEqual(told, describe(again), "a copy of what is cleared");
    again.parse(again.sessionName());
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const String text = bytes({data, data + size});
    linesComeBack(text);
    SDPDescEx objects;
    if (objects.parse(text) == 0)
        viewsAgree(text, objects);
    objects.dump();
    objectsComeBack(objects, text.find('\0', 0) != String::npos);
    return 0;
}

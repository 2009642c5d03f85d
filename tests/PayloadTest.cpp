// Payload formats: numbers, mappings, and their lines.
#include <sdp/SDPMediaPayload.h>

#include "support.h"

using namespace test;
using ym::String;
using Payload = ym::SDP::SDPMediaPayload;

namespace {

// Number, encoding, clock rate and parameter as they are stored, and the mapping that is composed of them.
std::string fields(Payload& p)
{
    String mapping("untouched");
    EXPECT_EQ(p.encodingParam().length() > 0, p.hasEncodingParam());
    return std::to_string(p.payloadNo()) + "," + str(p.encoding()) + "," + std::to_string(p.clockRate()) + ","
        + str(p.encodingParam()) + "," + (p.payload(&mapping) == 0 ? str(mapping) : "failed");
}

TEST(Payload, TakesMappingsApart)
{
    const struct {
        const char* mapping;
        const char* fields; // null for no mapping
    } rows[] = {{"PCMU/8000", "PCMU,8000,,PCMU/8000"},
                {"L16/44100/2", "L16,44100,2,L16/44100/2"},
                {"L16/44100/22", "L16/44100,22,,L16/44100/22"},
                {"L16/44100/2/3", "L16,44100,2/3,L16/44100/2/3"},
                {"PCMU/8000x", "PCMU,8000,x,PCMU/8000/x"},
                {"PCMU/8000/", "PCMU,8000,,PCMU/8000"},
                {"X/a9", "X,0,,"},
                {"X/4294967296/2", "X,4294967295,2,X/4294967295/2"},

                // No mappings
                {"X/9", nullptr},
                {"/8000", nullptr},
                {"X/8000 ", nullptr},
                {"", nullptr}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.mapping);
        const std::string old = "old,8000,1,old/8000/1";
        Payload p;
        p.setPayloadNo(7);
        p.setPayload("old/8000/1");
        p.addAttr("a", "");
        EXPECT_EQ(row.fields ? 0 : -1, p.setPayload(row.mapping));
        EXPECT_EQ("7," + (row.fields ? row.fields : old), fields(p));
        EXPECT_EQ(0, p.setPayload(65535, row.mapping));
        EXPECT_EQ(row.fields ? std::string("65535,") + row.fields : "7," + old, fields(p));
        EXPECT_EQ(1U, p.nAttr());
    }
}

TEST(Payload, GeneratesItsLines)
{
    const struct {
        void (*fill)(Payload& p);
        const char* fields;
        const char* lines;
    } rows[] = {
        {[](Payload&) {}, "0,,0,,", ""},
        {[](Payload& p) { p.setPayloadNo(65535), p.setEncoding("X"), p.addAttr("x", ""); }, "65535,X,0,,", "a=x|"},
        {[](Payload& p) { p.setClockRate(8000), p.addFormatParam("x", ""); }, "0,,8000,,", "a=fmtp:0 x|"},
        {[](Payload& p) { p.setEncoding("", 1), p.setEncodingParam("2"); }, "0,,1,2,", ""},
        {[](Payload& p) { p.setEncoding("X", tooMuch); }, "0,X,4294967295,,X/4294967295", "a=rtpmap:0 X/4294967295|"},
        {[](Payload& p) {
             p.addAttr("ptime", "20"), p.addAttr("rtpmap", "x"), p.addAttr("sendonly", "");
             p.addFormatParam("a", "1"), p.addFormatParam("b", ""), p.addFormatParam("c", "3=4");
             p.setEncodingParam("2"), p.setEncoding("L16", 44100), p.setPayloadNo(96);
         },
         "96,L16,44100,2,L16/44100/2",
         "a=rtpmap:96 L16/44100/2|a=fmtp:96 a=1;b;c=3=4|a=ptime:20|a=rtpmap:x|a=sendonly|"}};
    for (const auto& row : rows) {
        Payload p;
        row.fill(p);
        p.dump();
        EXPECT_EQ(row.fields, fields(p));
        EXPECT_EQ(row.lines, generated(p));
        String text;
        for (const int result : {p.generate(&text), p.generate(nullptr), p.payload(nullptr)})
            EXPECT_EQ(-1, result);

        Payload copy;
        copy.addAttr("gone", "");
        copy = p;
        const Payload& self = copy;
        copy = self;
        p.addAttr("later", "");
        p.addFormatParam("later", "");
        EXPECT_EQ(row.fields, fields(copy));
        EXPECT_EQ(row.lines, generated(copy));
        EXPECT_EQ(0, p.clearFormatParam());
        EXPECT_EQ(copy.nAttr() + 1, p.nAttr() + p.nFormatParam());
        p.clear();
        EXPECT_EQ("0,,0,,", fields(p) + generated(p));
    }
}

TEST(Payload, ReadsAttributesByTheirOwnNames)
{
    const struct {
        const char* name;
        int (Payload::*read)(String*);
    } getters[] = {{"cat", &Payload::cat},
                   {"keywds", &Payload::keywds},
                   {"tool", &Payload::tool},
                   {"ptime", &Payload::ptime},
                   {"orient", &Payload::orient},
                   {"type", &Payload::type},
                   {"charset", &Payload::charset},
                   {"sdplang", &Payload::sdplang},
                   {"lang", &Payload::lang},

                   // Of video
                   {"quality", &Payload::quality},
                   {"framerate", &Payload::framerate}};
    Payload p;
    for (const auto& getter : getters) {
        String value("untouched");
        p.addFormatParam(getter.name, "not looked at");
        EXPECT_EQ(-1, (p.*getter.read)(&value));
        EXPECT_EQ("untouched", str(value));
        p.addAttr(getter.name, getter.name);
        EXPECT_EQ(0, (p.*getter.read)(&value) + (p.*getter.read)(nullptr));
        EXPECT_EQ(getter.name, str(value));
    }
}

} // namespace

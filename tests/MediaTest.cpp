// Payload formats and media sections: fields and lines.
#include <algorithm>
#include <random>

#include <sdp/SDPMedia.h>

#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::String;

namespace {

constexpr NetworkType IN = NetworkTypeIN;
constexpr AddressType IP4 = AddressTypeIP4;

// Number, encoding, clock rate and parameter as they are stored, and the mapping that is composed of them.
std::string fields(SDPMediaPayload& p)
{
    String mapping("untouched");
    EXPECT_EQ(p.encodingParam().length() > 0, p.hasEncodingParam());
    return std::to_string(p.payloadNo()) + "," + str(p.encoding()) + "," + std::to_string(p.clockRate()) + ","
        + str(p.encodingParam()) + "," + (p.payload(&mapping) == 0 ? str(mapping) : "failed");
}

TEST(Payload, TakesMappingsApart)
{
    const std::string old = "old,8000,1,old/8000/1";
    for (const std::string row :
         {// Where there is no arrow, the text is no mapping.
          "PCMU/8000 => PCMU,8000,,PCMU/8000", "L16/44100/2 => L16,44100,2,L16/44100/2", "X/a9 => X,0,,", "X/9",
          "L16/44100/22 => L16/44100,22,,L16/44100/22", "L16/44100/2/3 => L16,44100,2/3,L16/44100/2/3", "/8000",
          "PCMU/8000x => PCMU,8000,x,PCMU/8000/x", "PCMU/8000/ => PCMU,8000,,PCMU/8000", "X/8000 ", "",
          "X/4294967296/2 => X,4294967295,2,X/4294967295/2"}) {
        const auto [mapping, parts] = sidesOf(row);
        const bool is = parts != mapping;
        SDPMediaPayload p;
        p.setPayloadNo(7);
        p.setPayload("old/8000/1");
        p.addAttr("a", "");
        EXPECT_EQ(is ? 0 : -1, p.setPayload(bytes(mapping)));
        EXPECT_EQ("7," + (is ? parts : old), fields(p)) << row;
        EXPECT_EQ(0, p.setPayload(65535, bytes(mapping)));
        EXPECT_EQ(is ? "65535," + parts : "7," + old, fields(p)) << row;
        EXPECT_EQ(1U, p.nAttr());
        if (!is)
            continue;
        p.setEncoding(bytes(mapping));
        EXPECT_EQ(0, p.setPayload(p.encoding()));
        EXPECT_EQ("65535," + parts, fields(p)) << row;
        p.setEncodingParam(bytes(mapping));
        EXPECT_EQ(0, p.setPayload(p.encodingParam()));
        EXPECT_EQ("65535," + parts, fields(p)) << row;
    }
}

TEST(Payload, GeneratesItsLines)
{
    using P = SDPMediaPayload;
    const auto fillAll = [](P& p) {
        p.addAttr("ptime", "20"), p.addAttr("rtpmap", "x"), p.addAttr("sendonly", "");
        p.addFormatParam("a", "1"), p.addFormatParam("b", ""), p.addFormatParam("c", "3=4");
        p.setEncodingParam("2"), p.setEncoding("X", 80), p.setPayloadNo(96);
    };
    const auto expect = [&](void (*fill)(P&), const std::string& told) {
        const auto tell = [](P& p) { return fields(p) + " " + generated(p); };
        expectValue<P>(fill, fillAll, tell, told);
    };
    expect([](P&) {}, "0,,0,, ");
    expect([](P& p) { p.setPayloadNo(65535), p.setEncoding("X"), p.addAttr("x", ""); }, "65535,X,0,, a=x|");
    expect([](P& p) { p.setClockRate(8000), p.addFormatParam("x", ""); }, "0,,8000,, a=fmtp:0 x|");
    expect([](P& p) { p.setEncoding("", 1), p.setEncodingParam("2"); }, "0,,1,2, ");
    expect([](P& p) { p.setEncoding("X", tooMuch); }, "0,X,4294967295,,X/4294967295 a=rtpmap:0 X/4294967295|");
    expect(fillAll, "96,X,80,2,X/80/2 a=rtpmap:96 X/80/2|a=fmtp:96 a=1;b;c=3=4|a=ptime:20|a=rtpmap:x|a=sendonly|");
    P p;
    P copy;
    fillAll(p);
    copy = p;
    String text;
    expectAll(-1, {p.generate(&text), p.generate(nullptr), p.payload(nullptr), p.clearFormatParam() - 1});
    EXPECT_EQ("a=rtpmap:96 X/80/2|a=ptime:20|a=rtpmap:x|a=sendonly|", generated(p));
    EXPECT_EQ(3U, copy.nFormatParam());
}

TEST(Payload, ReadsAttributesByTheirOwnNames)
{
    using P = SDPMediaPayload;
    const std::pair<const char*, int (P::*)(String*)> getters[]
        = {{"cat", &P::cat},       {"keywds", &P::keywds},   {"tool", &P::tool},          {"ptime", &P::ptime},
           {"orient", &P::orient}, {"type", &P::type},       {"charset", &P::charset},    {"sdplang", &P::sdplang},
           {"lang", &P::lang},     {"quality", &P::quality}, {"framerate", &P::framerate}};
    P p;
    for (const auto& [name, get] : getters) {
        String value("untouched");
        p.addFormatParam(name, "not looked at");
        EXPECT_TRUE((p.*get)(&value) == -1 && str(value) == "untouched") << name;
        p.addAttr(name, name);
        EXPECT_EQ(0, (p.*get)(&value) + (p.*get)(nullptr)) << name;
        EXPECT_EQ(name, str(value));
    }
}

SDPMediaPayload* newPayload(unsigned int number, const char* mapping = "")
{
    auto* payload = new SDPMediaPayload;
    payload->setPayloadNo(static_cast<unsigned short>(number));
    payload->setPayload(mapping);
    return payload;
}

void addPayloads(SDPMedia& m, const std::string& numbers)
{
    std::istringstream in(numbers);
    for (unsigned int number; in >> number;)
        m.addMediaPayload(newPayload(number));
}

void fillAll(SDPMedia& m)
{
    String title("title");
    m.setMediaType("audio"), m.setPort(5004), m.setTransport("RTP/SAVP"), m.setSessionDesc(title);
    m.setConnection("IN", "IP4", "224.2.1.1/127"), m.setEncryption("clear", "secret");
    m.setBandwidth("AS", 64), m.setBandwidth("AS", tooMuch);
    m.addMediaPayload(newPayload(8, "PCMA/8000")), m.addMediaPayload(newPayload(0, "PCMU/8000"));
    m.mediaPayload(0U)->addFormatParam("x", "1"), m.mediaPayload(0U)->addAttr("ptime", "20");
    m.addAttr("label", "1"), m.setRecvOnly();
}

const std::string allLines = "m=audio 5004 RTP/SAVP 8 0|i=title|c=IN IP4 224.2.1.1/127|b=AS:64|b=AS:4294967295|"
                             "k=clear:secret|a=rtpmap:8 PCMA/8000|a=fmtp:8 x=1|a=ptime:20|a=rtpmap:0 PCMU/8000|"
                             "a=label:1|a=recvonly|";

// One letter for each part that is there, and one for the direction.
std::string presence(SDPMedia& m)
{
    std::string told;
    const char* letter = "VAPicbk=><-";
    for (const bool is : {m.isVideo(), m.isAudio(), m.isApplication(), m.hasSessionDesc(), m.hasConnection(),
                          m.hasBandwidth(), m.hasEncryption(), m.sendrecv(), m.sendonly(), m.recvonly(), m.inactive()})
        told.append(is, *letter++);
    return told;
}

TEST(Media, GeneratesItsLines)
{
    using M = SDPMedia;
    const auto expect = [](void (*fill)(M&), const std::string& parts, const std::string& lines = "") {
        const auto tell = [](M& m) { return presence(m) + " " + generated(m); };
        const std::string head = lines.substr(0, 2) == "m=" ? "" : "m=unknown 0 RTP/AVP|";
        expectValue(fill, fillAll, tell, parts + " " + head + lines);
    };
    expect([](M&) {}, "=");
    expect(fillAll, "Aicbk<", allLines);
    expect([](M& m) { m.setMediaType(nullptr), m.setTransport(nullptr); }, "=", "m= 0 |");
    expect([](M& m) { m.setPort(65535), m.setMediaType("video"); }, "V=", "m=video 65535 RTP/AVP|");
    expect([](M& m) { m.setMediaType("application"), m.setSendOnly(), m.setSendRecv(); },
           "P=", "m=application 0 RTP/AVP|");
    expect([](M& m) { m.setMediaType("videos"); }, "=", "m=videos 0 RTP/AVP|");
    expect([](M& m) { m.setConnection(NetworkTypeNone, IP4, "a"); }, "=");
    expect([](M& m) { m.setConnection(IN, IP4, ""); }, "=");
    expect([](M& m) { m.setConnection(IN, AddressTypeIP6, "::1"); }, "c=", "c=IN IP6 ::1|");
    expect([](M& m) { m.setBandwidth("", 5), m.setBandwidth("RR", 1); }, "b=", "b=RR:1|");
    expect([](M& m) { m.setBandwidth("RR", 0), m.setEncryption(EncryptionMethodNone, "key"); }, "b=");
    expect([](M& m) { m.setEncryption(EncryptionMethodPrompt, ""), m.addAttr("sendonly", "x"); }, "k>",
           "k=prompt|a=sendonly|");
    expect([](M& m) { m.setRecvOnly(), m.setInactive(), m.addAttr("SendOnly", ""); }, "-", "a=SendOnly|a=inactive|");
    expect([](M& m) { m.setSendOnly(), m.addAttr("sendrecv", ""); }, "=");
    expect([](M& m) { m.setSendOnly(), m.removeAttr("inactive"); }, "=");
    expect([](M& m) { addPayloads(m, "0 8 0"); }, "=", "m=unknown 0 RTP/AVP 8 0|");
    const auto addAgain = [](M& m) { // under the number of another one, which goes
        addPayloads(m, "1 2 3"), m.mediaPayload(0U)->setPayloadNo(3), m.addMediaPayload(m.mediaPayload(0U));
    };
    expect(addAgain, "=", "m=unknown 0 RTP/AVP 2 3|");
    expect([](M& m) { addPayloads(m, "1 2"), m.mediaPayload(1U)->setPayload(1, "b/80"); }, "=",
           "m=unknown 0 RTP/AVP 1 1|a=rtpmap:1 b/80|");
    M m;
    M copy;
    fillAll(m);
    copy = m;
    EXPECT_TRUE(copy.mediaPayload(0U) != m.mediaPayload(0U) && m.generate(nullptr) == SDP_INVALID_ARGUMENT);
}

TEST(Media, KeepsItsFieldsWhateverIsRefused)
{
    SDPMedia m;
    EXPECT_EQ(0U, m.bandwidthModifire(1)->length() + m.bandwidth(1));
    fillAll(m);
    expectAll(-1,
              {m.addMediaPayload(nullptr), m.setConnection(NetworkType(2), IP4, "a"),
               m.setConnection(NetworkType(-1), IP4, "a"), m.setConnection(IN, AddressType(3), "a"),
               m.setConnection(IN, AddressType(-1), "a"), m.setEncryption(EncryptionMethod(5), "x"),
               m.setEncryption(EncryptionMethod(-1), "x"), m.setEncryption("Clear", "x"), m.setEncryption("", "x")});
    expectAll(0, {m.setConnection("in", "IP4", "a"), m.setConnection("IN", "", "a"), m.removeAttr("Label")});
    EXPECT_FALSE(m.bandwidth(2) > 0 || m.bandwidth(-1) > 0 || m.bandwidthModifire(2) || m.bandwidthModifire(-1));
    testing::internal::CaptureStderr();
    m.setBandwidth("CT", 3);
    EXPECT_EQ("SDPMedia::setBandwidth no more set Bandwidth\n", testing::internal::GetCapturedStderr());
    EXPECT_EQ(allLines, generated(m));

    NetworkType netType = NetworkTypeNone;
    AddressType addrType = AddressTypeNone;
    String text;
    m.connection(&netType, &addrType, &text);
    m.connection(nullptr, nullptr, nullptr);
    std::string fields;
    for (const String& field :
         {m.media(), m.transport(), m.sessionDesc(), text, *m.bandwidthModifire(0), m.encryptionKey()})
        fields += str(field) + " ";
    for (const unsigned long field : {m.port() + 0UL, m.bandwidth(0), m.bandwidth(1)})
        fields += std::to_string(field) + " ";
    EXPECT_EQ("audio RTP/SAVP title 224.2.1.1/127 AS secret 5004 64 4294967295 ", fields);
    EXPECT_EQ(111, netType * 100 + addrType * 10 + m.encryptionMethod());
    m.setEncryption(EncryptionMethodNone, "kept");
    EXPECT_EQ("kept", str(m.encryptionKey()));
}

TEST(Media, FindsPayloadsByTheirMapping)
{
    SDPMedia m;
    EXPECT_EQ(nullptr, m.mediaPayload(""));
    m.addMediaPayload(newPayload(0, "PCMU/8000"));
    m.addMediaPayload(newPayload(9));
    m.addMediaPayload(newPayload(8, "PCMA/8000"));
    const std::pair<const char*, int> rows[] = {{"PCMU", 0},        {"PCM", 0},   {"PCMA/8000", 8}, {"", 0},
                                                {"PCMA/80000", -1}, {"pcmu", -1}, {"CMU/8000", -1}, {"PCMA/", 8}};
    for (const auto& [text, number] : rows) {
        SDPMediaPayload* found = m.mediaPayload(text);
        EXPECT_EQ(number, found ? found->payloadNo() : -1) << text;
        EXPECT_EQ(found, m.mediaPayload(String(text))) << text;
    }
    EXPECT_TRUE(!m.mediaPayload(static_cast<const char*>(nullptr)) && !m.mediaPayload(3U));
}

// Payloads come, move and change their numbers behind the section's back, in long lists too; and in one short list they
// keep their numbers, some of which are alike modulo 128.
TEST(Media, FindsPayloadsWhateverTheirNumbersBecome)
{
    std::mt19937 random{1};
    const auto below = [&](std::size_t n) { return static_cast<unsigned short>(random() % n); };
    const struct {
        unsigned int most;
        unsigned int stride;
        std::size_t chance; // one in so many steps changes a number
    } rows[] = {{5, 1, 4}, {300, 1, 4}, {40, 32, 1000000}, {5, 64, 300}};
    for (const auto& [most, stride, chance] : rows) {
        SDPMedia m;
        std::vector<SDPMediaPayload*> expected;
        const auto first = [&](unsigned int number) {
            return std::find_if(expected.begin(), expected.end(), [&](auto* p) { return p->payloadNo() == number; });
        };
        const auto anyNumber = [&, n = most, by = stride](unsigned int more) {
            return static_cast<unsigned short>(below(n + more) * by);
        };
        SDPMediaPayload other;
        for (int step = 0; step < 6000 && !testing::Test::HasFailure(); ++step) {
            const unsigned short number = anyNumber(0);
            SDPMediaPayload* some = expected.empty() ? nullptr : expected[below(expected.size())];
            if (some && below(chance) == 0) {
                below(4) == 0 ? void(some->setPayload(number, "x/80")) : some->setPayloadNo(number);
            } else if (some && below(5 * chance) == 0) {
                other.setPayloadNo(number);
                *some = other;
            } else if (some && below(10 * chance) == 0) {
                some->clear();
            } else {
                SDPMediaPayload* added = some && below(6) == 0 ? some : newPayload(number);
                expected.erase(std::remove(expected.begin(), expected.end(), added), expected.end());
                if (first(added->payloadNo()) != expected.end())
                    expected.erase(first(added->payloadNo()));
                expected.push_back(added);
                EXPECT_EQ(0, m.addMediaPayload(added));
            }
            const unsigned short asked = anyNumber(2);
            EXPECT_EQ(first(asked) == expected.end() ? nullptr : *first(asked), m.mediaPayload(asked));
            ASSERT_EQ(expected.size(), m.nMediaPayload());
            for (unsigned int i = below(50); i < expected.size(); i += 50)
                EXPECT_EQ(expected[i], m.mediaPayload(i));
            if (below(500) == 0) {
                SDPMedia copy;
                copy = m;
                EXPECT_EQ(generated(m), generated(copy));
                EXPECT_EQ(nullptr, copy.mediaPayload(static_cast<unsigned short>(9999)));
                for (unsigned int i = 0; i < copy.nMediaPayload(); ++i)
                    copy.mediaPayload(i)->setPayloadNo(9999);
                EXPECT_EQ(copy.mediaPayload(0U), copy.mediaPayload(static_cast<unsigned short>(9999)));
                EXPECT_EQ(nullptr, m.mediaPayload(static_cast<unsigned short>(9999)));
            }
        }
    }
}

} // namespace

// Media sections: fields, payloads, and their lines.
#include <algorithm>
#include <random>
#include <vector>

#include <sdp/SDPMedia.h>

#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::String;

namespace {

SDPMediaPayload* newPayload(unsigned int number, const char* mapping = "")
{
    auto* payload = new SDPMediaPayload;
    payload->setPayloadNo(static_cast<unsigned short>(number));
    payload->setPayload(mapping);
    return payload;
}

void fillAll(SDPMedia& m)
{
    String title("title");
    m.setMediaType("audio");
    m.setPort(5004);
    m.setTransport("RTP/SAVP");
    m.setSessionDesc(title);
    m.setConnection("IN", "IP4", "224.2.1.1/127");
    m.setBandwidth("AS", 64);
    m.setBandwidth("AS", tooMuch);
    m.setEncryption("clear", "secret");
    m.addMediaPayload(newPayload(8, "PCMA/8000"));
    m.addMediaPayload(newPayload(0, "PCMU/8000"));
    m.mediaPayload(0U)->addFormatParam("x", "1");
    m.mediaPayload(0U)->addAttr("ptime", "20");
    m.addAttr("label", "1");
    m.setRecvOnly();
}

const std::string allLines = "m=audio 5004 RTP/SAVP 8 0|i=title|c=IN IP4 224.2.1.1/127|b=AS:64|b=AS:4294967295|"
                             "k=clear:secret|a=rtpmap:8 PCMA/8000|a=fmtp:8 x=1|a=ptime:20|a=rtpmap:0 PCMU/8000|"
                             "a=label:1|a=recvonly|";

// One letter for each part that is there, and one for the direction.
std::string presence(SDPMedia& m)
{
    const bool is[]
        = {m.isVideo(),       m.isAudio(),  m.isApplication(), m.hasSessionDesc(), m.hasConnection(), m.hasBandwidth(),
           m.hasEncryption(), m.sendrecv(), m.sendonly(),      m.recvonly(),       m.inactive()};
    std::string told;
    for (std::size_t i = 0; i < std::size(is); ++i)
        told += is[i] ? std::string(1, "VAPicbk=><-"[i]) : "";
    return told;
}

TEST(Media, GeneratesItsLines)
{
    using M = SDPMedia;
    const struct {
        void (*fill)(M& m);
        const char* presence;
        std::string lines; // behind the first, which is that of a new section, or all
    } rows[]
        = {{[](M&) {}, "=", ""},
           {fillAll, "Aicbk<", allLines},
           {[](M& m) { m.setMediaType(nullptr), m.setTransport(nullptr); }, "=", "m= 0 |"},
           {[](M& m) { m.setPort(65535), m.setMediaType("video"); }, "V=", "m=video 65535 RTP/AVP|"},
           {[](M& m) { m.setMediaType("application"), m.setSendOnly(), m.setSendRecv(); },
            "P=", "m=application 0 RTP/AVP|"},
           {[](M& m) { m.setMediaType("Video"); }, "=", "m=Video 0 RTP/AVP|"},
           {[](M& m) { m.setMediaType("videos"); }, "=", "m=videos 0 RTP/AVP|"},
           {[](M& m) { m.setConnection(NetworkTypeNone, AddressTypeIP4, "a"); }, "=", ""},
           {[](M& m) { m.setConnection(NetworkTypeIN, AddressTypeIP4, ""); }, "=", ""},
           {[](M& m) { m.setConnection(NetworkTypeIN, AddressTypeIP6, "::1"); }, "c=", "c=IN IP6 ::1|"},
           {[](M& m) { m.setBandwidth("", 5), m.setBandwidth("RR", 1); }, "b=", "b=RR:1|"},
           {[](M& m) { m.setBandwidth("RR", 0); }, "b=", ""},
           {[](M& m) { m.setEncryption(EncryptionMethodNone, "key"); }, "=", ""},
           {[](M& m) { m.setEncryption(EncryptionMethodPrompt, ""); }, "k=", "k=prompt|"},

           // Directions and payloads
           {[](M& m) { m.addAttr("sendonly", "x"); }, ">", "a=sendonly|"},
           {[](M& m) { m.setRecvOnly(), m.setInactive(), m.addAttr("SendOnly", ""); }, "-", "a=SendOnly|a=inactive|"},
           {[](M& m) { m.setSendOnly(), m.addAttr("sendrecv", ""); }, "=", ""},
           {[](M& m) { m.setSendOnly(), m.removeAttr("inactive"); }, "=", ""},
           {[](M& m) {
                for (const unsigned int number : {0U, 8U, 0U})
                    m.addMediaPayload(newPayload(number));
            },
            "=", "m=unknown 0 RTP/AVP 8 0|"},
           {[](M& m) {
                for (const unsigned int number : {1U, 2U, 3U})
                    m.addMediaPayload(newPayload(number));
                m.mediaPayload(0U)->setPayloadNo(3); // the other one of this number goes
                EXPECT_EQ(0, m.addMediaPayload(m.mediaPayload(0U)));
            },
            "=", "m=unknown 0 RTP/AVP 2 3|"},
           {[](M& m) {
                m.addMediaPayload(newPayload(1, "a/80"));
                m.addMediaPayload(newPayload(2, "b/80"));
                m.mediaPayload(1U)->setPayloadNo(1);
                EXPECT_EQ(m.mediaPayload(0U), m.mediaPayload(static_cast<unsigned short>(1)));
            },
            "=", "m=unknown 0 RTP/AVP 1 1|a=rtpmap:1 a/80|a=rtpmap:1 b/80|"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(&row - rows);
        SDPMedia m;
        row.fill(m);
        m.dump();
        const std::string lines = (row.lines.substr(0, 2) == "m=" ? "" : "m=unknown 0 RTP/AVP|") + row.lines;
        EXPECT_EQ(row.presence + lines, presence(m) + generated(m));
        EXPECT_EQ(SDP_INVALID_ARGUMENT, m.generate(nullptr));
        SDPMedia copy;
        fillAll(copy);
        copy = m;
        const SDPMedia& self = copy;
        copy = self;
        for (unsigned int i = 0; i < m.nMediaPayload(); ++i)
            EXPECT_NE(m.mediaPayload(i), copy.mediaPayload(i));
        m.clear();
        EXPECT_EQ("=m=unknown 0 RTP/AVP|", presence(m) + generated(m));
        EXPECT_EQ(row.presence + lines, presence(copy) + generated(copy));
    }
}

TEST(Media, KeepsItsFieldsWhateverIsRefused)
{
    const auto network = [](int value) { return static_cast<NetworkType>(value); };
    const auto address = [](int value) { return static_cast<AddressType>(value); };
    const auto method = [](int value) { return static_cast<EncryptionMethod>(value); };
    SDPMedia m;
    EXPECT_EQ(0U, m.bandwidthModifire(1)->length() + m.bandwidth(1));
    fillAll(m);
    int row = 0;
    for (const int result :
         {m.addMediaPayload(nullptr), m.setConnection(network(2), address(1), "a"),
          m.setConnection(network(-1), address(1), "a"), m.setConnection(network(1), address(3), "a"),
          m.setConnection(network(1), address(-1), "a"), m.setEncryption(method(5), "x"),
          m.setEncryption(method(-1), "x"), m.setEncryption("Clear", "x"), m.setEncryption("", "x")})
        EXPECT_EQ(-1, result) << "row " << row++;
    for (const int result : {m.setConnection("in", "IP4", "a"), m.setConnection("IN", "", "a"), m.removeAttr("Label")})
        EXPECT_EQ(0, result) << "row " << row++;
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
    const struct {
        const char* text;
        int number; // -1 for none
    } rows[] = {{"PCMU", 0},
                {"PCM", 0},
                {"PCMA/8000", 8},
                {"", 0},

                // Not found
                {"PCMA/80000", -1},
                {"pcmu", -1},
                {"CMU/8000", -1},
                {"PCMA/", 8}};
    for (const auto& row : rows) {
        SDPMediaPayload* found = m.mediaPayload(row.text);
        EXPECT_EQ(row.number, found ? found->payloadNo() : -1) << row.text;
        EXPECT_EQ(found, m.mediaPayload(String(row.text))) << row.text;
    }
    EXPECT_TRUE(!m.mediaPayload(static_cast<const char*>(nullptr)) && !m.mediaPayload(3U));
}

// Payloads come, move and change their numbers behind the section's back, in long lists too.
TEST(Media, FindsPayloadsWhateverTheirNumbersBecome)
{
    std::mt19937 random{1};
    const auto below = [&](std::size_t n) { return static_cast<unsigned short>(random() % n); };
    for (const unsigned int most : {5, 300}) {
        SDPMedia m;
        std::vector<SDPMediaPayload*> expected;
        const auto first = [&](unsigned int number) {
            return std::find_if(expected.begin(), expected.end(), [&](auto* p) { return p->payloadNo() == number; });
        };
        SDPMediaPayload other;
        for (int step = 0; step < 6000 && !testing::Test::HasFailure(); ++step) {
            const unsigned short number = below(most);
            SDPMediaPayload* some = expected.empty() ? nullptr : expected[below(expected.size())];
            if (some && below(4) == 0) {
                some->setPayloadNo(number);
            } else if (some && below(20) == 0) {
                some->setPayload(number, "x/80");
            } else if (some && below(20) == 0) {
                other.setPayloadNo(number);
                *some = other;
            } else if (some && below(40) == 0) {
                some->clear();
            } else {
                SDPMediaPayload* added = some && below(6) == 0 ? some : newPayload(number);
                expected.erase(std::remove(expected.begin(), expected.end(), added), expected.end());
                if (first(added->payloadNo()) != expected.end())
                    expected.erase(first(added->payloadNo()));
                expected.push_back(added);
                EXPECT_EQ(0, m.addMediaPayload(added));
            }
            const unsigned short asked = below(most + 2);
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

// The session object: fields, lists of sections, and its lines.
#include <sdp/SDPDescEx.h>

#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::String;

namespace {

constexpr NetworkType None = NetworkTypeNone;
constexpr NetworkType IN = NetworkTypeIN;
constexpr AddressType IP4 = AddressTypeIP4;
constexpr AddressType IP6 = AddressTypeIP6;

SDPMedia* newMedia(const char* type, unsigned int port = 0)
{
    auto* media = new SDPMedia;
    media->setMediaType(type);
    media->setPort(static_cast<unsigned short>(port));
    return media;
}

void fillAll(SDPDescEx& d)
{
    d.setVersion(tooMuch), d.setOrig("u", "99999999999999999999", "v", IN, IP6, "::1");
    d.setSessionName("name"), d.setSessionDesc("text"), d.setUri("uri"), d.setEmail("mail"), d.setPhone("+1");
    d.setConnection(IN, IP4, "224.2.1.1", tooMuch, tooMuch), d.setBandwidth("AS", tooMuch);
    d.setTimezoneAjust("1 -1h"), d.setEncryption("uri", "key"), d.setTime(tooMuch, 1), d.setRepeat("7d 1h 0");
    d.addAttr("tool", "x:y");
    d.addMediaVideo(newMedia("video", 1)), d.addMediaApplication(newMedia("application", 2));
    d.addMediaAudio(newMedia("audio", 3)), d.addMediaVideo(newMedia("audio", 4));
    d.addAttr("recvonly", "");
}

const std::string allLines
    = "v=4294967295|o=u 99999999999999999999 v IN IP6 ::1|s=name|i=text|u=uri|e=mail|p=+1|"
      "c=IN IP4 224.2.1.1/4294967295/4294967295|b=AS:4294967295|z=1 -1h|k=uri:key|t=4294967295 1|r=7d 1h 0|"
      "a=tool:x:y|a=recvonly|m=audio 3 RTP/AVP|m=video 1 RTP/AVP|m=audio 4 RTP/AVP|m=application 2 RTP/AVP|";

// One letter for each part that is there: mostly the type of its line.
std::string presence(SDPDescEx& d)
{
    std::string told;
    const char* letter = "siuepcTNbzkramVAP";
    for (const bool is :
         {d.hasSessionName(), d.hasSessionDesc(), d.hasUri(), d.hasEmail(), d.hasPhone(), d.hasConnection(),
          d.hasConnectionTTL(), d.hasConnectionNumAddr(), d.hasBandwidth(), d.hasTimezoneAjust(), d.hasEncryption(),
          d.hasRepeat(), d.hasAttr(), d.hasMedia(), d.hasMediaVideo(), d.hasMediaAudio(), d.hasMediaApplication()})
        told.append(is, *letter++);
    return told;
}

TEST(Session, GeneratesItsLines)
{
    using D = SDPDescEx;
    const auto expect = [](void (*fill)(D&), const std::string& parts, const std::string& lines = cleared) {
        const auto tell = [](D& d) { return presence(d) + " " + generated(d); };
        expectValue(fill, fillAll, tell, parts + " " + lines);
    };
    const std::string head = "v=0|o=- 0 0   |s=session|";
    expect([](D&) {}, "s");
    expect(fillAll, "siuepcTNbzkramVAP", allLines);
    expect([](D& d) { d.setSessionName(""); }, "", "v=0|o=- 0 0   |t=0 0|");
    expect([](D& d) { d.setOrig("", "", "", None, IP6, ""); }, "s", "v=0|o=    IP6 |s=session|t=0 0|");
    expect([](D& d) { d.setConnection(IN, IP4, "a", 127, 0); }, "scT", head + "c=IN IP4 a/127|t=0 0|");
    expect([](D& d) { d.setConnection(IN, IP4, "a", 0, 3); }, "scN", head + "c=IN IP4 a|t=0 0|");
    expect([](D& d) { d.setConnection(None, AddressTypeNone, "a", 1, 2); }, "sTN");
    expect([](D& d) { d.setBandwidth("AS", 0); }, "s");
    expect([](D& d) { d.setBandwidth("", 1); }, "s");
    expect([](D& d) { d.setEncryption("uri", ""); }, "sk", head + "k=uri|t=0 0|");
    expect([](D& d) { d.setEncryption(EncryptionMethodNone, "x"); }, "s");
    D d;
    D copy;
    fillAll(d);
    copy = d;
    EXPECT_TRUE(copy.mediaVideo(0) != d.mediaVideo(0) && d.generate(nullptr) == SDP_INVALID_ARGUMENT);
}

// Whatever was set before, and also if that is where the text comes from.
TEST(Session, IsReplacedByWhatIsParsed)
{
    using D = SDPDescEx;
    void (*const changes[])(D&) = {[](D& d) { d.setVersion(1); },
                                   [](D& d) { d.setOrig("", "", "", IN, IP6, "a"); },
                                   [](D& d) { d.setSessionName("x"); },
                                   [](D& d) { d.setSessionDesc("x"); },
                                   [](D& d) { d.setUri("x"); },
                                   [](D& d) { d.setEmail("x"); },
                                   [](D& d) { d.setPhone("x"); },
                                   [](D& d) { d.setConnection(IN, IP4, "a", 1, 1); },
                                   [](D& d) { d.setBandwidth("AS", 1); },
                                   [](D& d) { d.setTimezoneAjust("x"); },
                                   [](D& d) { d.setEncryption(EncryptionMethodUri, "x"); },
                                   [](D& d) { d.setEncryption("uri", "x"); },
                                   [](D& d) { d.setTime(1, 1); },
                                   [](D& d) { d.setRepeat("x"); },
                                   [](D& d) { d.addAttr("x", ""); },
                                   [](D& d) { d.addMediaVideo(newMedia("x")); },
                                   [](D& d) { d.addMediaAudio(newMedia("x")); },
                                   [](D& d) { d.addMediaApplication(newMedia("x")); },
                                   [](D& d) { d.parse("e=x"); },
                                   [](D& d) {
                                       D other;
                                       fillAll(other);
                                       d = other;
                                   }};
    for (const auto& change : changes) {
        D d;
        change(d);
        EXPECT_NE(cleared, generated(d));
        EXPECT_EQ(0, d.parse("b=AS:0"));
        EXPECT_EQ(cleared, generated(d)) << &change - changes;
    }
    D d;
    d.setSessionName("s=inner\ni=text\nm=audio 9 x 0\n");
    EXPECT_EQ(0, d.parse(d.sessionName()));
    EXPECT_EQ("v=0|o=- 0 0   |s=inner|i=text|t=0 0|m=audio 9 x 0|", generated(d));
    d.mediaAudio(0)->setTransport("s=a text that is longer than a string itself\n");
    EXPECT_EQ(0, d.parse(d.mediaAudio(0)->transport()));
    EXPECT_EQ("v=0|o=- 0 0   |s=a text that is longer than a string itself|t=0 0|", generated(d));
}

TEST(Session, KeepsItsFieldsWhateverIsRefused)
{
    SDPDescEx d;
    fillAll(d);
    SDPMedia* const held = d.mediaVideo(0);
    SDPMedia stranger;
    expectAll(-2147483636,
              {d.setOrig("-", "0", "0", NetworkType(2), IP4, "a"), d.setOrig("-", "0", "0", NetworkType(-1), IP4, "a"),
               d.setOrig("-", "0", "0", IN, AddressType(3), "a"), d.setConnection(NetworkType(2), IP4, "a", 0, 0),
               d.setConnection(IN, AddressType(-1), "a", 0, 0), d.setConnection(IN, IP4, "", 0, 0),
               d.setEncryption(EncryptionMethod(5), "x"), d.setEncryption(EncryptionMethod(-1), "x"),
               d.setEncryption("Uri", "x"), d.setEncryption("", "x"), d.addMediaVideo(nullptr),
               d.addMediaAudio(nullptr), d.addMediaApplication(nullptr)});
    expectAll(-1,
              {d.removeMediaAudio(held), d.removeMediaApplication(held), d.removeMediaVideo(&stranger),
               d.removeMediaVideo(nullptr)});
    EXPECT_EQ(allLines, generated(d));

    std::string fields;
    for (const String& text : {d.origUsername(), d.origSessionId(), d.origVersion(), d.origAddress(), d.sessionName(),
                               d.sessionDesc(), d.uri(), d.email(), d.phone(), d.connectionAddress(),
                               d.bandwidthModifire(), d.timezoneAjust(), d.encryptionKey(), d.repeat()})
        fields += str(text) + "|";
    for (const unsigned long number :
         {d.version(), d.connectionTTL(), d.connectionNumAddr(), d.bandwidth(), d.startTime(), d.stopTime()})
        fields += std::to_string(number) + "|";
    EXPECT_EQ("u|99999999999999999999|v|::1|name|text|uri|mail|+1|224.2.1.1|AS|1 -1h|key|7d 1h 0|"
                  + repeated("4294967295|", 5) + "1|",
              fields);
    expectAll(1,
              {d.origNetType(), d.origAddrType() - 1, d.connectionNetType(), d.connectionAddrType(),
               d.encryptionMethod() - 2});
    d.setEncryption(EncryptionMethodNone, "kept");
    EXPECT_EQ("kept", str(d.encryptionKey()));
}

TEST(Session, KeepsSectionsInThreeLists)
{
    using D = SDPDescEx;
    const struct {
        int (D::*add)(SDPMedia*);
        int (D::*remove)(SDPMedia*);
        unsigned int (D::*count)();
        SDPMedia* (D::*at)(unsigned int);
    } lists[] = {{&D::addMediaVideo, &D::removeMediaVideo, &D::nMediaVideo, &D::mediaVideo},
                 {&D::addMediaAudio, &D::removeMediaAudio, &D::nMediaAudio, &D::mediaAudio},
                 {&D::addMediaApplication, &D::removeMediaApplication, &D::nMediaApplication, &D::mediaApplication}};
    const char* presences[] = {"smV", "smA", "smP"};
    for (const auto& list : lists) {
        SDPDescEx d;
        const auto has = [&] { return presence(d) == presences[&list - lists] && d.nMedia() == (d.*list.count)(); };
        SDPMedia* const sections[] = {newMedia("audio"), newMedia("video"), newMedia("x")};
        EXPECT_EQ(nullptr, (d.*list.at)(0));
        for (SDPMedia* section : sections)
            EXPECT_EQ(0, (d.*list.add)(section));
        EXPECT_TRUE(has() && d.nMedia() == 3);
        EXPECT_EQ(0, (d.*list.remove)(sections[1]));
        EXPECT_EQ(-1, (d.*list.remove)(sections[1]));
        EXPECT_TRUE((d.*list.at)(0) == sections[0] && (d.*list.at)(1) == sections[2] && !(d.*list.at)(2));
        SDPDescEx copy;
        copy = d;
        EXPECT_EQ(0, (d.*list.remove)(sections[0]) + (d.*list.remove)(sections[2]));
        EXPECT_EQ("s" + cleared, presence(d) + generated(d));
        EXPECT_EQ("x", str((copy.*list.at)(1)->media()));
    }
}

} // namespace

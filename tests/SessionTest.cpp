// The session object: fields, lists of sections, and its lines.
#include <sdp/SDPDescEx.h>

#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::String;

namespace {

SDPMedia* newMedia(const char* type, unsigned int port = 0)
{
    auto* media = new SDPMedia;
    media->setMediaType(type);
    media->setPort(static_cast<unsigned short>(port));
    return media;
}

void fillAll(SDPDescEx& d)
{
    d.setVersion(tooMuch);
    d.setOrig("u", "99999999999999999999", "v", NetworkTypeIN, AddressTypeIP6, "::1");
    d.setSessionName("name");
    d.setSessionDesc("text");
    d.setUri("uri");
    d.setEmail("mail");
    d.setPhone("+1");
    d.setConnection(NetworkTypeIN, AddressTypeIP4, "224.2.1.1", tooMuch, tooMuch);
    d.setBandwidth("AS", tooMuch);
    d.setTimezoneAjust("1 -1h");
    d.setEncryption("uri", "key");
    d.setTime(tooMuch, 1);
    d.setRepeat("7d 1h 0");
    d.addAttr("tool", "x:y");
    d.addMediaVideo(newMedia("video", 1));
    d.addMediaApplication(newMedia("application", 2));
    d.addMediaAudio(newMedia("audio", 3));
    d.addMediaVideo(newMedia("audio", 4));
    d.addAttr("recvonly", "");
}

const std::string allLines
    = "v=4294967295|o=u 99999999999999999999 v IN IP6 ::1|s=name|i=text|u=uri|e=mail|p=+1|"
      "c=IN IP4 224.2.1.1/4294967295/4294967295|b=AS:4294967295|z=1 -1h|k=uri:key|t=4294967295 1|r=7d 1h 0|"
      "a=tool:x:y|a=recvonly|m=audio 3 RTP/AVP|m=video 1 RTP/AVP|m=audio 4 RTP/AVP|m=application 2 RTP/AVP|";

// One letter for each part that is there: mostly the type of its line.
std::string presence(SDPDescEx& d)
{
    const bool is[] = {d.hasSessionName(),
                       d.hasSessionDesc(),
                       d.hasUri(),
                       d.hasEmail(),
                       d.hasPhone(),
                       d.hasConnection(),
                       d.hasConnectionTTL(),
                       d.hasConnectionNumAddr(),
                       d.hasBandwidth(),
                       d.hasTimezoneAjust(),
                       d.hasEncryption(),
                       d.hasRepeat(),
                       d.hasAttr(),
                       d.hasMedia(),
                       d.hasMediaVideo(),
                       d.hasMediaAudio(),
                       d.hasMediaApplication()};
    std::string told;
    for (std::size_t i = 0; i < std::size(is); ++i)
        told += is[i] ? std::string(1, "siuepcTNbzkramVAP"[i]) : "";
    return told;
}

TEST(Session, GeneratesItsLines)
{
    using D = SDPDescEx;
    const std::string head = "v=0|o=- 0 0   |s=session|";
    const struct {
        void (*fill)(D& d);
        const char* presence;
        std::string lines;
    } rows[]
        = {{[](D&) {}, "s", cleared},
           {fillAll, "siuepcTNbzkramVAP", allLines},
           {[](D& d) { d.setSessionName(""); }, "", "v=0|o=- 0 0   |t=0 0|"},
           {[](D& d) { d.setOrig("", "", "", NetworkTypeNone, AddressTypeIP6, ""); }, "s",
            "v=0|o=    IP6 |s=session|t=0 0|"},
           {[](D& d) { d.setConnection(NetworkTypeIN, AddressTypeIP4, "a", 127, 0); }, "scT",
            head + "c=IN IP4 a/127|t=0 0|"},
           {[](D& d) { d.setConnection(NetworkTypeIN, AddressTypeIP4, "a", 0, 3); }, "scN", head + "c=IN IP4 a|t=0 0|"},
           {[](D& d) { d.setConnection(NetworkTypeNone, AddressTypeNone, "a", 1, 2); }, "sTN", cleared},

           // Not enough for a line, or just enough
           {[](D& d) { d.setBandwidth("AS", 0); }, "s", cleared},
           {[](D& d) { d.setBandwidth("", 1); }, "s", cleared},
           {[](D& d) { d.setEncryption("uri", ""); }, "sk", head + "k=uri|t=0 0|"},
           {[](D& d) { d.setEncryption(EncryptionMethodNone, "x"); }, "s", cleared}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.lines);
        SDPDescEx d;
        row.fill(d);
        d.dump();
        EXPECT_EQ(SDP_INVALID_ARGUMENT, d.generate(nullptr));
        SDPDescEx copy;
        fillAll(copy);
        copy = d;
        const SDPDescEx& self = copy;
        copy = self;
        EXPECT_TRUE(!d.hasMediaAudio() || copy.mediaAudio(0) != d.mediaAudio(0));
        EXPECT_EQ(row.presence + row.lines, presence(d) + generated(d));
        d.clear();
        EXPECT_EQ("s" + cleared, presence(d) + generated(d));
        EXPECT_EQ(row.presence + row.lines, presence(copy) + generated(copy));
    }
}

TEST(Session, KeepsItsFieldsWhateverIsRefused)
{
    const auto network = [](int value) { return static_cast<NetworkType>(value); };
    const auto address = [](int value) { return static_cast<AddressType>(value); };
    const auto method = [](int value) { return static_cast<EncryptionMethod>(value); };
    SDPDescEx d;
    fillAll(d);
    SDPMedia* const held = d.mediaVideo(0);
    SDPMedia stranger;
    int row = 0;
    for (const int result :
         {d.setOrig("-", "0", "0", network(2), address(1), "a"), d.setOrig("-", "0", "0", network(-1), address(1), "a"),
          d.setOrig("-", "0", "0", network(1), address(3), "a"), d.setConnection(network(2), address(1), "a", 0, 0),
          d.setConnection(network(1), address(-1), "a", 0, 0), d.setConnection(network(1), address(1), "", 0, 0),
          d.setEncryption(method(5), "x"), d.setEncryption(method(-1), "x"), d.setEncryption("Uri", "x"),
          d.setEncryption("", "x"), d.addMediaVideo(nullptr), d.addMediaAudio(nullptr), d.addMediaApplication(nullptr)})
        EXPECT_EQ(-2147483636, result) << "row " << row++;
    for (const int result : {d.removeMediaAudio(held), d.removeMediaApplication(held), d.removeMediaVideo(&stranger),
                             d.removeMediaVideo(nullptr)})
        EXPECT_EQ(-1, result) << "row " << row++;
    EXPECT_EQ(allLines, generated(d));

    std::string fields;
    for (const String& text : {d.origUsername(), d.origSessionId(), d.origVersion(), d.origAddress(), d.sessionName(),
                               d.sessionDesc(), d.uri(), d.email(), d.phone(), d.connectionAddress(),
                               d.bandwidthModifire(), d.timezoneAjust(), d.encryptionKey(), d.repeat()})
        fields += str(text) + "|";
    EXPECT_EQ("u|99999999999999999999|v|::1|name|text|uri|mail|+1|224.2.1.1|AS|1 -1h|key|7d 1h 0|", fields);
    for (const unsigned long most :
         {d.version(), d.connectionTTL(), d.connectionNumAddr(), d.bandwidth(), d.startTime()})
        EXPECT_EQ(4294967295UL, most);
    EXPECT_EQ((std::vector<int>{1, 2, 1, 1, 3, 1}),
              (std::vector<int>{d.origNetType(), d.origAddrType(), d.connectionNetType(), d.connectionAddrType(),
                                d.encryptionMethod(), static_cast<int>(d.stopTime())}));
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

// Texts in, texts out.
#include <algorithm>
#include <random>

#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>
#include <tovik/PRegEx.h>

#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::PRegEx;
using ym::String;

namespace {

// Rows "in => out", with "$" for what a cleared session generates: what comes out of the objects after a text. It must
// be taken, and the objects held something else before.
template <class Rows> void expectThrough(const std::string& before, const Rows& rows, const std::string& head)
{
    for (const std::string row : rows) {
        const auto [in, out] = sidesOf(row);
        SDPDescEx d;
        EXPECT_EQ(0, d.parse("v=9\ns=old\ni=old\na=old\nm=audio 9 old 1 2\nm=video 9 old 1\nm=application 9 old 1\n"));
        EXPECT_EQ(0, d.parse(unbarred(before + in))) << row;
        EXPECT_EQ(replaced(head + out, "$", cleared), generated(d)) << row;
    }
}

TEST(Parser, ReadsSessionLines)
{
    const char* const rows[]
        = {" => $",
           "r=r 1|a=x|z=z|k=clear:key|t=1 2|b=X:1:2|c=IN IP4 1.2.3.4|p=p|e=e|u=u|i= i |s=s|o= a  b c IN IP4 d |v=1| => "
           "v=1|o=a b c IN IP4 d|s=s|i= i |u=u|e=e|p=p|c=IN IP4 1.2.3.4|b=X:1:2|z=z|k=clear:key|t=1 2|r=r 1|a=x|",
           "v=1|v=2|o=a b c IN IP4 d|o=e f|s=1|s=2|i=1|i=2|u=1|u=2|e=1|e=2|p=1|p=2|z=1|z=2|r=1|r=2|t=1 1|t=2 2|b=A:1|"
           "b=B:2|k=clear|k=uri:x|c=IN IP4 a|c=IN IP6 b| => "
           "v=1|o=a b c IN IP4 d|s=1|i=1|u=1|e=1|p=1|c=IN IP4 a|b=A:1|z=1|k=clear|t=1 1|r=1|",
           "m=audio 9 x 0|v=1|s=s|i=i|c=IN IP4 a|b=A:1|k=clear|t=1 2|r=r| => $m=audio 9 x 0|c=IN IP4 a|b=A:1|",
           "c=IN IP4 a|m=audio 9 x 0| => v=0|o=- 0 0   |s=session|c=IN IP4 a|t=0 0|m=audio 9 x 0|",

           // Values that are clamped, that are not of the form of their line, or that are kept as they are
           "s=| => v=0|o=- 0 0   |t=0 0|", "v=70000| => v=65535|o=- 0 0   |s=session|t=0 0|", "v=-1| => $",
           "o=a b c XX YY d| => v=0|o=a b c   d|s=session|t=0 0|", "t=1 2 | => $", "t= 1 2| => $", "t=1 a| => $",
           "t=4294967296 99999999999| => v=0|o=- 0 0   |s=session|t=4294967295 4294967295|", "b=AS:| => $",
           "b=AS:12a| => $", "b=AS:128 | => $", "b=AS:0| => $", "a=p|t=0 0|a=q| => $a=p|",
           "a=x:1|a=x:2:3|a=sendonly|a=:y|a=| => $a=x:1|a=x:2:3|a=sendonly|a=:y|a=|"};
    expectThrough("", rows, "");
}

TEST(Parser, ReadsConnectionsOnTwoLevels)
{
    // "value => line of the session => line of the section", which may be the same
    for (const std::string row :
         {"IN IP4 224.2.1.1", "  IN\tIP6  ::1/ => IN IP6 ::1", "IN IP4 a/127",
          "IN IP4 a/127/3 => IN IP4 a/127/3 => IN IP4 a/127",
          "IN IP4 a/4294967296/x => IN IP4 a/4294967295 => IN IP4 a/4294967296", "IN IP4 a//3 => IN IP4 a",
          // An address only, or no connection at all
          "IN IP4 a/x/3 => IN IP4 a => IN IP4 a/x", "IN IP4 a(3 => IN IP4 a", "IN IP4 a|3 => IN IP4 a => IN IP4 a/|3",
          "IN IP4 1.2.3.4  => ", "IN IP4 (a) => ", "IN IP4 => ", "XX IP4 a => ", "IN ip4 a => "}) {
        const auto [in, out] = sidesOf(row);
        const auto [session, section] = sidesOf(out);
        SDPDescEx d;
        ASSERT_EQ(0, d.parse(bytes("c=" + in + "\nm=audio 9 x 0\nc=" + in + "\nc=IN IP4 z\n")));
        const std::string lines = replaced(cleared, "t=", "c=" + session + "|t=") + "m=audio 9 x 0|c=" + section + "|";
        EXPECT_EQ(replaced(lines, "c=|", ""), generated(d)) << row;
    }
    SDPDescEx d;
    ASSERT_EQ(0, d.parse("c=XX YY a/1/2\nm=audio 9 x 0\nc=XX YY a/1/2\n"));
    EXPECT_EQ("a", str(d.connectionAddress()));
    EXPECT_EQ(12U, d.connectionTTL() * 10 + d.connectionNumAddr());
    String address;
    d.mediaAudio(0)->connection(nullptr, nullptr, &address);
    EXPECT_EQ("a/1", str(address));
}

TEST(Parser, ReadsKeys)
{
    const std::pair<const char*, const char*> rows[]
        = {{"prompt", "4"},       {"clear:xyz", "1xyz"}, {"uri:x:y", "3x:y"}, {"clear:a b", "0"},
           {"other:xyz", "0xyz"}, {"base64:", "2"},      {"a b", "0"},        {":xyz", "0"}};
    for (const auto& [in, key] : rows) {
        SDPDescEx d;
        ASSERT_EQ(0, d.parse((std::string("k=") + in + "\nm=audio 9 x 0\nk=clear:x\ni=x\n").c_str()));
        EXPECT_EQ(key, std::to_string(d.encryptionMethod()) + str(d.encryptionKey())) << in;
        EXPECT_FALSE(d.mediaAudio(0)->hasEncryption() || d.mediaAudio(0)->hasSessionDesc());
    }
}

TEST(Parser, RefusesATextAndIsClearedThen)
{
    for (const char* text : {"v=1|s=s|a=a|m=audio 9 x 0|x=1|", "x=1|v=1|", "v=1|s|", "v=1|s=s||t=1 1|", "v=1|\xf6=1|",
                             "t=1 1|s=s|a=x|v=1|o=a b c IN IP4|m=audio 9 x 0|", "o=a b c IN IP4 d e|s=s|", "o=|"}) {
        SDPDescEx d;
        EXPECT_EQ(0, d.parse("s=old\na=old\nm=audio 9 old 1 2\n"));
        EXPECT_EQ(-1, d.parse(unbarred(text))) << text;
        const bool isVersionRead = *text == 't'; // which stands before the origin, wherever its line is
        EXPECT_EQ(isVersionRead ? "v=1" + cleared.substr(3) : cleared, generated(d)) << text;
    }
}

TEST(Parser, ReadsSections)
{
    const char* const rows[] = {
        "m=audio 49170 RTP/AVP 0 8|",
        "m=application 1 udp 5|m=video 2 x 31|m=audio 3 x 0|m=video 4 x 31|m=audio 5 x 0| => "
        "m=audio 3 x 0|m=audio 5 x 0|m=video 2 x 31|m=video 4 x 31|m=application 1 udp 5|",
        "m=audio 1 x 0|a=x|m=Audio 9 x 0|a=y|c=IN IP4 a|m=text 9 x 0|m=video 2 x 0| => "
        "m=audio 1 x 0|a=x|m=video 2 x 0|",
        "m=video 49170/2 RTP/AVP 31|a=x|b=AS:1| => ", "m=audio 9 RTP/AVP|a=x| => ", "m= audio 9 RTP/AVP 0| => ",

        // Sections without some part, and formats
        "m=|m=audio 9| => ", "m=audio 9 RTP/AVP |a=x|a=sendonly|b=AS:1| => m=audio 9 RTP/AVP|b=AS:1|a=sendonly|",
        "m=audio 70000 x 70000| => m=audio 65535 x 65535|", "m=audio\t9 x  0   8 | => m=audio 9 x 0 8|",
        "m=audio 9 x 1\t2| => m=audio 9 x 0|", "m=audio 9 x 1\t 2| => m=audio 9 x 1 2|",
        "m=audio 9 x 7 8 7| => m=audio 9 x 8 7|",
        "m=application 9 UDP/DTLS/SCTP webrtc-datachannel * 5|a=x| => m=application 9 UDP/DTLS/SCTP 0 5|a=x|",
        "m=audio 9 x 0|s=s|t=1 1|i=i|k=clear:x|a=x| => m=audio 9 x 0|a=x|",
        "m=audio 9 x 0|b=AS:128|b=AS:+1| => m=audio 9 x 0|b=AS:128|", "m=audio 9 x 0|b=AS|b=X:1:2| => m=audio 9 x 0|",
        "m=audio 9 x 0|b=RR:0|b=AS:99999999999| => m=audio 9 x 0|b=AS:4294967295|",
        "m=audio 9 x 0|b=A:1|c=IN IP4 a|b=B:2| => m=audio 9 x 0|c=IN IP4 a|b=A:1|",
        "m=audio 9 x 0|a=p|b=AS:1|a=q| => m=audio 9 x 0|b=AS:1|a=p|"};
    expectThrough("", rows, "$");
}

TEST(Parser, GivesAttributesToPayloads)
{
    const char* const rows[]
        = {"a=rtpmap:0 PCMU/8000|a=ptime:20|a=rtpmap:8 PCMA/8000|a=maxptime:40|",
           "a=ptime:20|a=rtpmap:0 PCMU/8000|a=x| => a=rtpmap:0 PCMU/8000|a=x|a=ptime:20|",
           "a=x|a=fmtp:0 x=1|a=y| => a=fmtp:0 x=1|a=y|a=x|", "a=rtpmap:0 X/9|a=x| => a=x|",
           "a=rtpmap:0 a/80/1|a=rtpmap:0 b c|a=x|a=rtpmap:8 c/80| => a=rtpmap:0 a/80/1|a=x|a=rtpmap:8 c/80|",
           "a=rtpmap:0 a/80/1|a=rtpmap:0 b/90| => a=rtpmap:0 b/90|",
           "a=rtpmap:0 a/80|a=rtpmap: 8 b/90|a=rtpmap:8|a=fmtp:x 1|a=x| => a=rtpmap:0 a/80|a=x|",
           "a=rtpmap:0 a/80|a=rtpmap:9 b/90|a=lost|a=fmtp:8 p|a=x| => a=rtpmap:0 a/80|a=fmtp:8 p|a=x|",

           // Attributes of the section, and parameters
           "a=fmtp:65544 p|a=lost|a=sendonly| => a=sendonly|", "a=rtpmap:8 L16/44100/2|",
           "a=sendonly|a=recvonly:x|a=SendOnly| => a=SendOnly|a=recvonly|", "a=inactive|a=sendrecv| => ", "a=inactive|",
           "a=ptime:20|a=x|a=ptime:1:2|a=| => a=ptime:1:2|a=x|a=|", "a=fmtp:0 a=1; b=2| => a=fmtp:0 a=1;b=2|",
           "a=fmtp:0  a = 1 ; b =\t2 | => a=fmtp:0 a=1;b=2|",
           "a=fmtp:0 a=1;c;a=2|a=fmtp:0 b=3;c=4| => a=fmtp:0 a=2;c=4;b=3|", "a=fmtp:0 x=a=b;| => a=fmtp:0 x=a=b|",
           "a=fmtp:0 0-15 |", "a=fmtp:0 x=;y=1| => a=fmtp:0 x;y=1|", "a=fmtp:0 =x|",
           "a=fmtp:0 a=1;;b=2; ;| => a=fmtp:0 a=1;;b=2|", "a=fmtp:0  |a=x|a=rtpmap:8 b/90| => a=x|a=rtpmap:8 b/90|",
           "a=fmtp:8 p|a=rtpmap:8 b/90| => a=rtpmap:8 b/90|a=fmtp:8 p|"};
    expectThrough("m=audio 9 x 0 8|", rows, "$m=audio 9 x 0 8|");
}

TEST(Parser, WarnsOfMoreThanTwoBandwidths)
{
    SDPDescEx d;
    testing::internal::CaptureStderr();
    ASSERT_EQ(0, d.parse(bytes("m=audio 9 x 0\nb=A:1\nb=A:0\n" + repeated("b=B:2\n", 30000))));
    const std::string warning = "SDPMedia::setBandwidth no more set Bandwidth\n";
    EXPECT_EQ(repeated(warning, 30000), testing::internal::GetCapturedStderr());
    EXPECT_EQ(cleared + "m=audio 9 x 0|b=A:1|", generated(d));
    EXPECT_EQ("A0", str(*d.mediaAudio(0)->bandwidthModifire(1)) + std::to_string(d.mediaAudio(0)->nAttr()));
}

// The groups of a match, each on a line of its own; empty without a match.
std::string groups(const char* pattern, const std::string& text, const std::vector<int>& which)
{
    PRegEx expression(pattern, 0);
    std::string result;
    if (expression.match(bytes(text), 0))
        for (const int group : which)
            result += str(expression[group]) + "\n";
    return result;
}

std::string fields(const std::vector<const String*>& texts)
{
    std::string result;
    for (const String* text : texts)
        result += str(*text) + "\n";
    return result;
}

// Each form of a line says its value as a pattern would, whatever the value is.
TEST(Parser, TakesValuesApartLikePatterns)
{
    const std::string pieces[]
        = {" ", "\t", "\v", "0", "1", "a", ":", "/", ";", "=", "(", "|", ")", "0 8", "a/80", "=b;"};
    std::mt19937 random{1};
    for (int i = 0; i < 20000 && !testing::Test::HasFailure(); ++i) {
        std::string value;
        for (auto n = random() % 9; n > 0; --n)
            value += pieces[random() % std::size(pieces)];
        SCOPED_TRACE(value);

        const std::string origin = "x 1 2 IN " + value;
        SDPDescEx d;
        d.parse(bytes("o=" + origin));
        const std::string words
            = groups(R"(^\s*(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s*$)", origin, {1, 2, 3, 6});
        EXPECT_EQ(words.empty() ? "-\n0\n0\n\n" : words,
                  fields({&d.origUsername(), &d.origSessionId(), &d.origVersion(), &d.origAddress()}));

        EXPECT_EQ(0, d.parse(bytes("b=" + value + "\nk=" + value + "\nt=" + value + "\nc=" + value)));
        EXPECT_EQ(groups(R"(^(\S+):(\d+)$)", value, {1}),
                  d.bandwidthModifire().length() > 0 ? fields({&d.bandwidthModifire()}) : "");
        const std::string key = groups(R"(^([^:]+):{0,1}(\S*)$)", value, {2});
        EXPECT_EQ(key.empty() ? "\n" : key, fields({&d.encryptionKey()}));
        PRegEx time(R"(^(\d+)\s+(\d+)$)", 0);
        const bool isTime = time.match(bytes(value), 0);
        EXPECT_EQ(isTime ? time[1].toUInt32(nullptr, 10) : 0, d.startTime());
        EXPECT_EQ(isTime ? time[2].toUInt32(nullptr, 10) : 0, d.stopTime());
        const std::string address = groups(R"(^\s*(\S+)\s+(\S+)\s+([^(/|\s)]+)/{0,1}(\S*)$)", value, {3});
        EXPECT_EQ(address.empty() ? "\n" : address, fields({&d.connectionAddress()}));

        const std::string section = "audio" + value;
        EXPECT_EQ(0, d.parse(bytes("m=" + section)));
        const std::string transport = groups(R"(^(\S+)\s+(\d+)\s+(\S+)\s+(.*)$)", section, {1, 3});
        EXPECT_EQ(transport.substr(0, 6) == "audio\n" ? transport : "",
                  d.hasMedia() ? fields({&d.mediaAudio(0)->media(), &d.mediaAudio(0)->transport()}) : "");

        SDPMediaPayload payload;
        const std::string mapping = groups(R"(^(\S+)/([^/]\d+)/{0,1}(\S*)$)", value, {1, 3});
        EXPECT_EQ(mapping.empty() ? -1 : 0, payload.setPayload(bytes(value)));
        EXPECT_EQ(mapping.empty() ? "\n\n" : mapping, fields({&payload.encoding(), &payload.encodingParam()}));

        payload.clear();
        PRegEx separator(R"(\s*;\s*)", 0);
        const std::string list = "x" + value;
        for (int n = separator.split(bytes(list), 0x7FFFFFFF), at = 0; at < n; ++at) {
            PRegEx pair(R"(^\s*([^=]*)=\s*(.*)$)", 0);
            PRegEx trim(R"((.*\S)\s*$)", 0);
            const bool isPair = pair.match(separator[at], 0);
            trim.match(pair[1], 0);
            const String name = isPair ? trim[1] : separator[at];
            trim.match(pair[2], 0);
            payload.addFormatParam(name, isPair ? trim[1] : "");
        }
        EXPECT_EQ(0, d.parse(bytes("m=audio 9 x 0\na=fmtp:0 " + list)));
        EXPECT_EQ(generated(payload), generated(*d.mediaAudio(0)->mediaPayload(0U)));
    }
}

// Texts of this kind, read in time that grows with the square of their length, would take minutes each.
TEST(Parser, TakesHostileTexts)
{
    const auto numbered = [](const std::string& before, const std::string& behind) {
        std::string text;
        for (int i = 0; i < 65536; ++i)
            text += before + std::to_string(i) + behind;
        return text;
    };
    const std::string line = "m=audio 9 x 0\n";
    const std::string nul(1, '\0');
    const std::string runs = repeated("a=x\nb=AS:1\n", 30000);
    constexpr std::size_t n = 300000;
    const struct {
        std::string text;
        unsigned int nMedia;
        int nLines; // of the text that comes out
    } rows[]
        = {{repeated("m=\n", n) + repeated(line + "c=IN IP4 a\na=x\n", 30000), 30000, 90004},
           {numbered("a=x", "\n") + line + numbered("a=x", "\n"), 1, 131077},
           {numbered("a=x:", "\n") + line + numbered("a=x:", "\n"), 1, 65542},
           {line + "a=rtpmap:0 x/80\n" + numbered("a=x", ":y\n"), 1, 65542},
           {"m=audio 9 x" + numbered(" ", "") + "\n" + numbered("a=rtpmap:", " x/80\n"), 1, 65541},
           {"m=audio 9 x" + repeated(" 7", n) + "\n" + repeated("a=rtpmap:7 x/80\n", 30000), 1, 6},
           {line + "a=fmtp:0 " + numbered("p", "=1;") + "\n" + numbered("a=fmtp:0 p=", "\n"), 1, 6},
           {line + "a=fmtp:0 x=1" + repeated(" ", n) + "y\na=rtpmap:0 " + repeated("/11", n) + " ", 1, 6},
           {"m=audio 9 x 0" + repeated("\t", n) + "1\nm=audio 9 x 0" + repeated(" ", n) + "1", 2, 6},
           {"c=IN IP4 " + repeated("1", n) + " \n" + line + "c=IN IP4 a/" + repeated("/", n) + "(", 1, 6},
           {"b=" + repeated("1:", n) + "\nt=" + repeated("1", n) + " \nk=" + repeated("x", n) + " :", 0, 4},
           {"s=" + repeated("x", n) + "\n" + runs + line + runs, 1, 9},
           {repeated("a=x:" + nul + "\n", n / 10) + line + "a=" + repeated(nul, n) + "\na=x" + nul + "y\n", 1, 30007}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text.substr(0, 80));
        SDPDescEx d;
        String text;
        EXPECT_EQ(0, d.parse(bytes(row.text)));
        EXPECT_EQ(0, d.generate(&text));
        EXPECT_EQ(row.nMedia, d.nMedia());
        EXPECT_EQ(row.nLines, std::count(text.chars(), text.chars() + text.length(), '\n'));
    }
    for (const std::string& text : {"o=" + repeated(" ", n), "o=" + repeated("x ", n), repeated("\n", n) + "s=x"})
        EXPECT_EQ(-1, SDPDescEx().parse(bytes(text)));
}

// Descriptions as programs have written them, through both views.
TEST(RealDescriptions, ComeThroughBothViews)
{
    int n = 0;
    for (const auto& entry : std::filesystem::directory_iterator(YM_TEST_DATA)) {
        std::filesystem::path path = entry.path();
        if (path.extension() != ".sdp")
            continue;
        SCOPED_TRACE(path.filename());
        ++n;
        const std::string text = contentOf(path);

        SDPDesc lines("\n");
        String out;
        EXPECT_EQ(0, lines.parse(bytes(text)));
        EXPECT_EQ(0, lines.generate(&out));
        EXPECT_EQ(replaced(text, "\r\n", "\n"), str(out));

        SDPDescEx objects;
        EXPECT_EQ(0, objects.parse(bytes(text)));
        EXPECT_EQ(0, objects.generate(&out));
        EXPECT_EQ(contentOf(path.replace_extension(".out")), str(out));
        EXPECT_EQ(0, objects.parse(out));
        EXPECT_EQ(replaced(str(out), "\r\n", "|"), generated(objects));
    }
    EXPECT_EQ(19, n);
}

} // namespace

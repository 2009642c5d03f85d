// Texts at the edges of what a reader has to take: cut off, damaged, empty, long and many. What both views make of them
// is judged by rules that are plainer than the library.
#include <algorithm>

#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>

#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::String;

namespace {

using Lines = std::vector<std::string>;

// Both views give it as it is.
const std::string rich = "v=0|o=u 1 2 IN IP4 h|s=s|i=i|u=u|e=e|p=p|c=IN IP4 h/127/3|b=AS:12|z=z|k=clear:k|t=1 2|r=r|"
                         "a=tool:x|m=audio 9 RTP 0 8|c=IN IP4 h/1|a=rtpmap:0 X/80|a=fmtp:0 p=1;q=2|a=ptime:20|"
                         "a=rtpmap:8 Y/90|a=lang|a=sendonly|m=video 9 RTP 96|a=x|";

// Each line end is one of three, and empty lines at the end are none.
Lines linesOf(const std::string& text)
{
    std::istringstream in(replaced(replaced(replaced(text, "\r\n", "\n"), "\r", "\n"), "|", "\n"));
    Lines lines;
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    while (!lines.empty() && lines.back().empty())
        lines.pop_back();
    return lines;
}

bool isOfType(const std::string& line, char type)
{
    return !line.empty() && line[0] == type;
}

bool isLine(const std::string& line)
{
    return line.size() > 1 && line[1] == '=' && std::string("vosiuepcbzktram").find(line[0]) != std::string::npos;
}

bool isOrigin(const std::string& line)
{
    std::istringstream words(line.c_str() + 2); // up to the first NUL
    return std::distance(std::istream_iterator<std::string>(words), {}) == 6;
}

// The objects of a text that they gave give nothing that is not there, but for a name that is left out; and then they
// give the same for ever.
void expectStable(const std::string& first)
{
    SDPDescEx d;
    EXPECT_EQ(isOrigin(linesOf(first)[1]) ? 0 : -1, d.parse(unbarred(first)));
    if (!isOrigin(linesOf(first)[1]))
        return;
    const std::string second = generated(d);
    Lines before = linesOf(first + "s=session");
    Lines after = linesOf(second);
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    EXPECT_TRUE(std::includes(before.begin(), before.end(), after.begin(), after.end()));
    EXPECT_EQ(0, d.parse(unbarred(second)));
    EXPECT_TRUE(second == generated(d));
}

// Reads a text with bars or other line ends into both views, and checks what has to hold of any text: the line view
// keeps all lines up to the first that is none; the objects take the text if all are lines and its origin is one.
// Gives what they give.
std::string throughBoth(const std::string& text)
{
    const Lines lines = linesOf(text);
    const auto wrong = std::find_if_not(lines.begin(), lines.end(), isLine);
    std::string kept = "v=|o=|s=|";
    std::for_each(lines.begin(), wrong, [&](auto& line) { kept.append(line).append("|"); });
    SDPDesc list("|");
    EXPECT_EQ(0, list.parse("v=\no=\ns="));
    EXPECT_EQ(wrong == lines.end() ? 0 : -1, list.parse(unbarred(text)));
    EXPECT_TRUE(kept == generated(list));

    const auto find = [&](auto end, char type) {
        return std::find_if(lines.begin(), end, [&](auto& line) { return isOfType(line, type); });
    };
    const auto section = find(lines.end(), 'm');
    const auto origin = find(section, 'o');
    const bool isTaken = wrong == lines.end() && (origin == section || isOrigin(*origin));
    SDPDescEx objects;
    EXPECT_EQ(isTaken ? 0 : -1, objects.parse(unbarred(text)));
    const std::string result = generated(objects);
    if (isTaken)
        expectStable(result);
    else
        EXPECT_EQ(cleared.substr(cleared.find('|')), result.substr(result.find('|'))); // the version may be there
    if (testing::Test::HasFailure())
        ADD_FAILURE() << testing::PrintToString(text.substr(0, 400));
    return isTaken ? result : "refused";
}

TEST(Extremes, TextsMayEndAnywhere)
{
    for (const auto& path : samples()) {
        const std::string text = contentOf(path);
        for (std::size_t n = 0; n <= text.size() && !HasFailure(); ++n)
            throughBoth(text.substr(0, n));
    }
}

TEST(Extremes, ShortLinesAreLinesOrNot)
{
    for (unsigned int n = 0; n < 1 + 256 + 65536 && !HasFailure(); ++n) { // none, one or two bytes
        std::string line(n == 0 ? 0 : 1, static_cast<char>(n - 1));
        if (n > 256)
            line = {static_cast<char>((n - 257) >> 8), static_cast<char>(n - 257)};
        throughBoth("v=0|" + line);
        throughBoth("v=0|" + line + "|t=1 1|");
    }
}

// What a session gives that has nothing but a line of a type, or not even that.
std::string withLine(char type, const std::string& line)
{
    std::string text;
    for (const char each : std::string("vosiuepcbzktra"))
        for (const std::string& other : linesOf(each == type && !line.empty() ? line : cleared))
            text += isOfType(other, each) ? other + "|" : "";
    return text;
}

// Lines with nothing, a colon, a slash, a semicolon, and an equals sign behind them. For each of these five, at session
// level and in a section: the line is written as it stands (+), without the sign (<), or with a slash before it (/); it
// is dropped (-), as if it was not there; or the text is refused (x).
TEST(Extremes, ValuesMayEndInAnySign)
{
    const char* const rows[] = {"s=x|i=x|u=x|e=x|p=x|z=x|r=x|k=clear:x|o=a b c IN IP4 d => +++++ => -----",
                                "o= => xxxxx => -----",
                                "i=|u=|e=|p=|z=|r= => -++++ => -----",
                                "v=7|t=1 2 => +---- => -----",
                                "v=|t=|k= => ----- => -----",
                                "k=prompt => +<--- => -----",
                                "c=IN IP4 a => ++<++ => ++<++",
                                "c=IN IP4  => -+-++ => -+-++",
                                "c=|b=A|b= => ----- => -----",
                                "b=A:1 => +---- => +----",
                                "a=x|a= => +<+++ => +<+++",
                                "a=x:y => +++++ => +++++",
                                "a=rtpmap|a=fmtp => +<+++ => --+++",
                                "a=rtpmap:0 X/80 => +++++ => +/<//",
                                "a=rtpmap:0 X/80/1 => +++++ => +++++",
                                "a=rtpmap:0 X|a=rtpmap:0 |a=rtpmap:0|a=fmtp:0 => +++++ => -----",
                                "a=fmtp:0 p=1 => +++++ => +++<+",
                                "a=fmtp:0 p => +++++ => +++<<"};
    const std::string section = "m=audio 9 x 0|";
    for (const char* row : rows) {
        const auto [lines, levels] = sidesOf(row);
        const auto [atSession, inSection] = sidesOf(levels);
        for (const std::string& line : linesOf(lines))
            for (std::size_t i = 0; i < 5; ++i) {
                const std::string sign(i > 0, " :/;="[i]);
                const auto written = [&, l = line](char code) {
                    return code == '-' ? "" : l + (code == '/' ? "/" : "") + (code == '<' ? "" : sign) + "|";
                };
                EXPECT_EQ(atSession[i] == 'x' ? "refused" : withLine(line[0], written(atSession[i])),
                          throughBoth(line + sign));
                EXPECT_EQ(cleared + section + written(inSection[i]), throughBoth(section + line + sign));
            }
    }
}

SDPMediaPayload& firstPayload(SDPDescEx& d)
{
    return *d.mediaAudio(0)->mediaPayload(0U);
}

// The format that has a mapping or parameters, or 0.
unsigned long described(SDPDescEx& d)
{
    unsigned long number = 0;
    for (unsigned int i = 0; i < d.mediaAudio(0)->nMediaPayload(); ++i)
        if (SDPMediaPayload* p = d.mediaAudio(0)->mediaPayload(i); p->clockRate() + p->nFormatParam() > 0)
            number = p->payloadNo();
    return number;
}

// What is no number is 0, and what is too large is the largest that its field holds.
TEST(Extremes, NumbersAreClampedToTheirFields)
{
    using D = SDPDescEx;
    const std::string formats = "m=audio 9 x 10 127 128 255 256 65535|";
    const struct {
        std::string text; // with "#" for the number
        int bits;
        std::string blanks; // where they may stand: before the number (<) and behind (>)
        unsigned long (*get)(D&);
    } rows[] = {{"v=#", 16, "<>", [](D& d) { return d.version(); }},
                {"t=# 7", 32, ">", [](D& d) { return d.startTime(); }},
                {"t=7 #", 32, "<", [](D& d) { return d.stopTime(); }},
                {"b=AS:#", 32, "", [](D& d) { return d.bandwidth(); }},
                {"m=audio 9 x 0|b=AS:#", 32, "<>", [](D& d) { return d.mediaAudio(0)->bandwidth(0); }},
                {"c=IN IP4 a/#", 32, "", [](D& d) { return d.connectionTTL(); }},
                {"c=IN IP4 a/1/#", 32, "", [](D& d) { return d.connectionNumAddr(); }},
                {"m=audio # x 0", 16, "<>", [](D& d) { return d.hasMedia() ? 0UL + d.mediaAudio(0)->port() : 0; }},
                {"m=audio 9 x #", 16, "<>", [](D& d) { return 0UL + firstPayload(d).payloadNo(); }},
                {formats + "a=rtpmap:# X/80", 16, ">", described},
                {formats + "a=fmtp:# p", 16, ">", described},
                {"m=audio 9 x 0|a=rtpmap:0 X/#", 32, "<", [](D& d) { return firstPayload(d).clockRate(); }}};
    for (const auto& row : rows)
        for (std::string digits :
             {"10", "127", "128", "255", "256", "65535", "65536", "2147483648", "4294967295", "4294967296",
              "18446744073709551626", "+10", "-10", "<10", "10>", "0x10", "1e2", "1.5"}) {
            const std::string text = replaced(replaced(replaced(row.text, "#", digits), "<", " "), ">", " ");
            for (const char c : row.blanks)
                digits = replaced(digits, std::string(1, c), "");
            const bool isNumber = digits.find_first_not_of("0123456789") == std::string::npos;
            const unsigned long long most = (1ULL << row.bits) - 1;
            const unsigned long long number = !isNumber ? 0 : digits.size() > 10 ? most : std::stoull(digits);
            SDPDescEx d;
            ASSERT_EQ(0, d.parse(unbarred(text)));
            EXPECT_EQ(std::min(number, most), row.get(d)) << text;
        }
}

// They hide what stands behind them in the line, but names and values of attributes and parameters, and encodings, end
// each at their own.
TEST(Extremes, NulBytesMayStandAnywhere)
{
    EXPECT_EQ(rich, throughBoth(rich));
    for (std::size_t at = 0; at <= rich.size() && !HasFailure(); ++at) {
        const std::string before = rich.substr(0, at);
        const bool isAttribute = before.substr(before.rfind('|') + 1).substr(0, 1) == "a";
        const std::size_t end = std::min(rich.find_first_of(isAttribute ? "|:/;=" : "|", at), rich.size());
        const std::string result = throughBoth(before + '\0' + rich.substr(at));
        EXPECT_TRUE(result == "refused" || result == throughBoth(before + rich.substr(end))) << at << " " << result;
    }
}

TEST(Extremes, BytesMayBeAboveTheAscii)
{
    for (std::size_t at = 0; at < rich.size(); ++at)
        for (int byte = 128; byte < 256 && !HasFailure(); ++byte)
            throughBoth(rich.substr(0, at) + static_cast<char>(byte) + rich.substr(at + 1));
}

TEST(Extremes, ThereMayBeManyOfAKind)
{
    using D = SDPDescEx;
    const struct {
        const char* before;
        const char* each; // with its number for a "#"
        unsigned int (*count)(D&);
        int (*countLines)(SDPDesc&); // in the line view, if they are lines
    } rows[] = {{"", "a=n:#|", [](D& d) { return d.nAttr(); }, [](SDPDesc& d) { return d.nAttr(); }},
                {"", "m=audio # x 0|", [](D& d) { return d.nMediaAudio(); }, [](SDPDesc& d) { return d.nMedia(); }},
                {"m=audio 9 x 0|", "a=#:v|", [](D& d) { return firstPayload(d).nAttr(); },
                 [](SDPDesc& d) { return d.nMediaAttr(0, 'a'); }},
                {"m=audio 9 x", " #", [](D& d) { return d.mediaAudio(0)->nMediaPayload(); }, nullptr},
                {"m=audio 9 x 0|a=fmtp:0 ", "p#=1;", [](D& d) { return firstPayload(d).nFormatParam(); }, nullptr}};
    for (const unsigned int n : {255U, 256U, 65535U, 65536U, 100000U}) {
        for (const auto& row : rows) {
            std::string text = row.before;
            for (unsigned int i = 0; i < n; ++i)
                text += replaced(row.each, "#", std::to_string(i));
            throughBoth(text);
            D objects;
            SDPDesc lines("");
            EXPECT_EQ(0, objects.parse(unbarred(text)) + lines.parse(unbarred(text)));
            EXPECT_EQ(row.each[0] == ' ' ? std::min(n, 65536U) : n, row.count(objects)) << row.each;
            EXPECT_TRUE(!row.countLines || row.countLines(lines) == static_cast<int>(n)) << row.each;
        }
        for (const std::string& line : linesOf(rich.substr(0, rich.find("a=tool"))))
            EXPECT_TRUE(withLine(line[0], line) == throughBoth(repeated(line + "|", n))) << n << " " << line;
    }
}

TEST(Extremes, LinesMayBeLong)
{
    const std::string begins = "v=~o=u 1 2 IN IP4 ~s=~i=~u=~e=~p=~c=IN IP4 ~b=AS:~z=~k=clear:~t=1 ~r=~a=~m=audio 9 x ~"
                               "m=audio 9 x 0|c=IN IP4 a/~m=audio 9 x 0|b=~m=audio 9 x 0|a=rtpmap:0 ~"
                               "m=audio 9 x 0|a=fmtp:0 ";
    std::istringstream in(begins);
    for (std::string begin; std::getline(in, begin, '~');) {
        for (const std::string filler : {" ", "1", "x", "\t", ":", "/", ";", "=", " 1", "/11", "p=1; "})
            throughBoth(begin + repeated(filler, 65536 / filler.size()) + "x");
        for (const char filler : {' ', '1', 'x'})
            throughBoth(begin + std::string(1U << 20, filler));
        const String longest = unbarred(begin + std::string(1U << 24, '1'));
        SDPDesc list("");
        SDPDescEx objects;
        EXPECT_EQ(0, list.parse(longest) + objects.parse(longest)) << begin;
        EXPECT_TRUE(generated(list) == "untouched" && generated(objects).size() < longest.length() + 100) << begin;
    }
}

// Both views write what they are given: a caller who takes values from others looks for line ends himself.
TEST(Extremes, SettersTakeLineEndsAsTheyStand)
{
    const auto nLines = [](const std::string& text) { return (text.size() - replaced(text, "|a=y", "").size()) / 4; };
    String v = unbarred("x|a=y");
    SDPDesc lines("\r\n");
    expectAll(0,
              {lines.parse("v=0\no=\n"), lines.parseLine(unbarred("s=x|a=y")), lines.set('i', v),
               lines.setAttr(0, v, v), lines.setMedia(0, 'm', v), lines.setMedia(0, FieldInformation, v),
               lines.setMediaAttr(0, 0, v, v, 'b')});
    EXPECT_EQ(8U, nLines(generated(lines)));

    SDPDescEx d;
    auto* m = new SDPMedia;
    auto* p = new SDPMediaPayload;
    d.addMediaAudio(m), m->addMediaPayload(p);
    const auto count = [&](std::size_t expected) { EXPECT_EQ(expected, nLines(generated(d))); };
    d.setOrig(v, v, v, NetworkTypeIN, AddressTypeIP4, v), count(4);
    d.setSessionName(v), d.setSessionDesc(v), d.setUri(v), d.setEmail(v), d.setPhone(v), count(9);
    d.setConnection(NetworkTypeIN, AddressTypeIP4, v, 0, 0), d.setBandwidth(v, 1), d.setTimezoneAjust(v), count(12);
    d.setEncryption("clear", v), d.setRepeat(v), d.addAttr(v, v), count(16);
    m->setMediaType(v.chars()), m->setTransport(v.chars()), m->setSessionDesc(v), count(19);
    m->setConnection("IN", "IP4", v), m->setBandwidth(v, 1), m->setEncryption("clear", v), m->addAttr(v, v), count(24);
    p->setEncoding(v, 1), p->setEncodingParam(v), p->addAttr(v, v), p->addFormatParam(v, v), count(30);
}

} // namespace

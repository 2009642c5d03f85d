// The report of what becomes of a description.
#include <algorithm>
#include <map>
#include <set>

#include <sdp/SDPDescEx.h>
#include <sdpcheck/report.h>

#include "support.h"

using namespace test;
using namespace ym::sdpcheck;

namespace {

using Texts = std::vector<std::string>;

Texts cut(const std::string& text)
{
    Texts lines;
    std::istringstream in(replaced(text, "\r", ""));
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

// What the objects write of a text, sorted.
std::multiset<std::string> through(const Texts& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    ym::SDP::SDPDescEx objects;
    EXPECT_EQ(0, objects.parse(bytes(text))) << text;
    ym::String out;
    objects.generate(&out);
    const Texts written = cut(str(out));
    return {written.begin(), written.end()};
}

// The text without a line. With an "m=" line its section goes, whose lines would otherwise become those of another one.
Texts without(Texts lines, std::size_t n)
{
    auto end = lines.begin() + static_cast<std::ptrdiff_t>(n) + 1;
    if (lines[n][0] == 'm')
        end = std::find_if(end, lines.end(), [](const std::string& line) { return line[0] == 'm'; });
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(n), end);
    return lines;
}

// Whether a line is lost is found out by taking it out; of lines that stand several times in a text, how many are.
TEST(Report, IsRightAboutEveryLineOfRealDescriptions)
{
    for (const auto& path : samples()) {
        SCOPED_TRACE(path.filename());
        const std::string text = contentOf(path);
        const Texts lines = cut(text);
        const std::multiset<std::string> whole = through(lines);

        std::vector<bool> isLost(lines.size());
        std::multiset<std::string> explained(lines.begin(), lines.end());
        std::map<std::string, std::size_t> nLost;
        for (const Finding& finding : report(text)) {
            for (std::size_t line = finding.line; line <= finding.lastLine && line > 0; ++line) {
                const bool isGone = finding.kind->outcome == Outcome::lost;
                isLost[line - 1] = isLost[line - 1] || isGone;
                nLost[lines[line - 1]] += isGone || finding.kind->outcome == Outcome::changed ? 1 : 0;
            }
            explained.insert(finding.became);
        }
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const std::string& line = lines[i];
            const std::size_t n = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), line));
            if (n > 1 || whole.count(line) > 0)
                EXPECT_EQ(n - whole.count(line), nLost[line]) << line;
            else
                EXPECT_EQ(through(without(lines, i)) == whole, isLost[i]) << line;
        }
        for (const std::string& line : whole)
            EXPECT_GE(explained.count(line), whole.count(line)) << line;
    }
}

// What is reported of a text, by code, and how the text is written so that all of it comes through.
TEST(Report, HasARepairForEachKind)
{
    const std::string head = "v=0|o=- 1 2 IN IP4 h|s=-|";
    const std::string media = head + "t=0 0|m=audio 9 x 0 8|";
    const std::string mapped = media + "a=rtpmap:0 x/80|";
    const struct {
        const char* code;
        std::string text;
        std::string repaired;
    } rows[] = {
        {"unknown-line-type", head + "t=0 0|x=1|", head + "t=0 0|a=x:1|"},
        {"not-a-line", head + "t=0 0|hello|", head + "t=0 0|a=hello|"},
        {"blank-line", head + "|t=0 0|", head + "t=0 0|"},
        {"malformed-origin", "v=0|o=- 1 2 IN IP4|s=-|t=0 0|", head + "t=0 0|"},
        {"repeated-line", head + "i=1|i=2|t=0 0|", head + "i=2|t=0 0|"},
        {"malformed-connection", head + "c=IN IP4 h |t=0 0|", head + "c=IN IP4 h|t=0 0|"},
        {"unknown-connection-type", mapped + "c=IN IP8 h|", replaced(mapped, "a=", "c=IN IP6 h|a=")},
        {"malformed-bandwidth", head + "b=AS:1 |t=0 0|", head + "b=AS:1|t=0 0|"},
        {"zero-bandwidth", mapped + "b=RR:0|", mapped + "b=RR:1|"},
        {"third-bandwidth", mapped + "b=A:1|b=B:2|b=C:3|", mapped + "b=B:2|b=C:3|"},
        {"malformed-key", head + "k=clear:a b|t=0 0|", head + "k=clear:a-b|t=0 0|"},
        {"unknown-key-method", head + "k=rot13:x|t=0 0|", head + "k=clear:x|t=0 0|"},
        {"malformed-time", head + "t=1 2 |", head + "t=1 2|"},
        {"empty-value", head + "u=|t=0 0|", head + "u=-|t=0 0|"},
        {"session-line-in-section", media + "t=0 0|", head + "t=0 0|m=audio 9 x 0 8|"},
        {"unread-in-section", media + "i=title|", mapped + "a=title:title|"},
        {"broken-run", head + "a=p|t=0 0|a=q|", head + "t=0 0|a=p|a=q|"},
        {"malformed-media", head + "t=0 0|m= audio 9 x 0|", head + "t=0 0|m=audio 9 x 0|"},
        {"media-port-count", head + "t=0 0|m=audio 9/2 x 0|", head + "t=0 0|m=audio 9 x 0|"},
        {"media-without-format", head + "t=0 0|m=audio 9 x|", head + "t=0 0|m=audio 9 x 0|"},
        {"unknown-media-type", head + "t=0 0|m=text 9 x 0|", head + "t=0 0|m=application 9 x 0|"},
        {"in-lost-section", head + "t=0 0|m=Audio 9 x 0|a=sendonly|", head + "t=0 0|m=audio 9 x 0|a=sendonly|"},
        {"malformed-mapping", media + "a=rtpmap:0 x/8|", media + "a=rtpmap:0 x/80|"},
        {"malformed-parameters", media + "a=fmtp: 0 p|", media + "a=fmtp:0 p|"},
        {"unlisted-format", media + "a=rtpmap:9 x/80|", replaced(media, " 8|", " 8 9|") + "a=rtpmap:9 x/80|"},
        {"repeated-mapping", mapped + "a=rtpmap:0 y/80|", media + "a=rtpmap:0 y/80|"},
        {"repeated-attribute", mapped + "a=p:1|a=p:2|", mapped + "a=p:2|"},
        {"attribute-without-format", media + "a=rtpmap:9 x/80|a=p|", mapped + "a=p|"},
        {"default-direction", media + "a=sendrecv|", media},
        {"repeated-direction", media + "a=sendonly|a=inactive|", media + "a=inactive|"},
        {"number-too-large", head + "t=0 0|m=audio 9 x 65536|", head + "t=0 0|m=audio 9 x 65535|"},
        {"not-a-number", replaced(media, "v=0", "v=one"), media},
        {"format-not-a-number", head + "t=0 0|m=application 9 x *|", head + "t=0 0|m=application 9 x 0|"},
        {"repeated-format", head + "t=0 0|m=audio 9 x 0 0|", head + "t=0 0|m=audio 9 x 0|"},
        {"unknown-origin-type", "v=0|o=- 1 2 IN IP8 h|s=-|t=0 0|", "v=0|o=- 1 2 IN IP6 h|s=-|t=0 0|"},
        {"connection-tail", media + "c=IN IP4 h/127/3|", media + "c=IN IP4 h/127|"},
        {"merged-parameters", media + "a=fmtp:0 a=1|a=fmtp:0 a=2|", media + "a=fmtp:0 a=2|"},
        {"rate-from-parameter", media + "a=rtpmap:0 L24/48000/16|", media + "a=rtpmap:0 L24/48000/8|"},
        {"nul-byte", media + std::string("a=fmtp:0 p\0q|", 13), media + "a=fmtp:0 p|"},
        {"spelling", media + "a=fmtp:0 a = 1; b=2 ;|", media + "a=fmtp:0 a=1;b=2|"},
        {"section-regrouped", media + "m=video 9 x 0|m=audio 9 x 0|", media + "m=audio 9 x 0|m=video 9 x 0|"},
        {"attribute-before-mapping", media + "a=p|a=fmtp:8 q|", media + "a=fmtp:8 q|a=p|"},
        {"attribute-of-other-format", mapped + "a=rtcp-fb:8 nack|", media + "a=rtpmap:8 x/80|a=rtcp-fb:8 nack|"},
        {"default-version", "o=- 1 2 IN IP4 h|s=-|t=0 0|", head + "t=0 0|"},
        {"default-origin", "v=0|s=-|t=0 0|", head + "t=0 0|"},
        {"default-session-name", "v=0|o=- 1 2 IN IP4 h|t=0 0|", head + "t=0 0|"},
        {"default-time", head, head + "t=0 0|"},
    };
    std::set<std::string> codes;
    for (const auto& row : rows) {
        const auto codesOf = [](const std::string& text) {
            std::set<std::string> found;
            for (const Finding& finding : report(replaced(text, "|", "\r\n")))
                found.insert(finding.kind->code);
            return found;
        };
        codes.insert(row.code);
        EXPECT_EQ(1U, codesOf(row.text).count(row.code)) << row.code << " in " << row.text;
        EXPECT_EQ(std::set<std::string>(), codesOf(row.repaired)) << row.code << " repaired, " << row.repaired;
    }
    for (const Kind* kind : kinds())
        EXPECT_EQ(1U, codes.count(kind->code)) << kind->code;
}

// Every finding holds its line: there must not be many of a line that is long.
TEST(Report, IsNoLongerThanTheTextAllows)
{
    std::string text = "v=0\no=a 1 2 IN IP4 192.0.2.1\ns=-\nt=0 0\nm=application 9 x";
    for (int i = 0; i < 1000; ++i)
        text += " 0 70000 *";
    std::size_t size = 0;
    for (const Finding& finding : report(text))
        size += finding.text.size() + finding.became.size();
    EXPECT_LE(size, 10 * text.size());
}

} // namespace

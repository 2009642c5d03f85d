#include "bench/hostile.h"

namespace bench {

namespace {

const std::string session = "v=0\r\no=- 1 1 IN IP4 192.0.2.1\r\ns=-\r\nt=0 0\r\n";
const std::string audio = session + "m=audio 9 RTP/AVP 0 96\r\n";
const std::string mapped = audio + "a=rtpmap:96 opus/48000/2\r\n";

std::string number(std::size_t n)
{
    return std::to_string(n);
}

// A head, pieces up to the size, and a tail. `piece` gives the text of a number.
template <class Piece>
std::string filled(std::size_t size, const std::string& head, Piece piece, const std::string& tail = "")
{
    std::string text = head;
    for (std::size_t i = 0; text.size() + tail.size() < size; ++i)
        text += piece(i);
    return text + tail;
}

std::string repeated(std::size_t size, const std::string& head, const std::string& piece, const std::string& tail = "")
{
    return filled(
        size, head, [&](std::size_t) { return piece; }, tail);
}

// A different line for each number: `before`, the number, `after`.
std::string counted(std::size_t size, const std::string& head, const std::string& before, const std::string& after)
{
    return filled(size, head, [&](std::size_t i) { return before + number(i) + after; });
}

// Numbers end at 65535, so that a mapping is 58 bytes long, and a text of 4 MB needs all of them but no more.
std::string mappingOfEachNumber(std::size_t size)
{
    std::string numbers;
    std::string mappings;
    for (std::size_t i = 0; session.size() + numbers.size() + mappings.size() < size; ++i) {
        numbers += ' ' + number(i);
        mappings += "a=rtpmap:" + number(i) + " encoding-with-a-very-long-name/90000/channels\r\n";
    }
    return session + "m=audio 9 RTP/AVP" + numbers + "\r\n" + mappings;
}

} // namespace

const std::vector<Shape>& hostileShapes()
{
    static const std::vector<Shape> shapes{
        {"empty-media-lines", [](std::size_t n) { return repeated(n, session, "m=\r\n"); }},
        {"sections",
         [](std::size_t n) {
             return repeated(n, session, "m=audio 9 RTP/AVP 0\r\nc=IN IP4 192.0.2.1\r\na=rtpmap:0 PCMU/8000\r\n");
         }},
        {"names-in-a-section", [](std::size_t n) { return counted(n, audio, "a=name", ":value\r\n"); }},
        {"names-at-session-level", [](std::size_t n) { return counted(n, session, "a=name", ":value\r\n"); }},
        {"names-on-a-payload", [](std::size_t n) { return counted(n, mapped, "a=name", ":value\r\n"); }},
        {"same-name-in-a-section", [](std::size_t n) { return counted(n, audio, "a=name:", "\r\n"); }},
        {"same-name-at-session-level", [](std::size_t n) { return counted(n, session, "a=name:", "\r\n"); }},
        {"numbers-with-mappings", mappingOfEachNumber},
        {"same-number", [](std::size_t n) { return repeated(n, session + "m=audio 9 RTP/AVP", " 96", "\r\n"); }},
        {"same-number-mapped", [](std::size_t n) { return counted(n, audio, "a=rtpmap:96 opus/", "\r\n"); }},
        {"fmtp-parameters",
         [](std::size_t n) { return counted(n, audio + "a=fmtp:96 first=0", "; name", "=value") + "\r\n"; }},
        {"fmtp-lines", [](std::size_t n) { return counted(n, audio, "a=fmtp:96 name", "=value\r\n"); }},
        {"blanks-in-fmtp", [](std::size_t n) { return repeated(n, audio + "a=fmtp:96 first", " ", "last=1\r\n"); }},
        {"tabs-in-formats", [](std::size_t n) { return repeated(n, session + "m=audio 9 RTP/AVP 0", "\t", "8\r\n"); }},
        {"slashes-and-digits", [](std::size_t n) { return repeated(n, audio + "a=rtpmap:96 x", "/12", " \r\n"); }},
        {"long-session-address", [](std::size_t n) { return repeated(n, session + "c=IN IP4 ", "1", " \r\n"); }},
        {"long-section-address", [](std::size_t n) { return repeated(n, audio + "c=IN IP4 ", "1", " \r\n"); }},
        {"origin-of-blanks", [](std::size_t n) { return repeated(n, "v=0\r\no=", " ", "\r\ns=-\r\nt=0 0\r\n"); }},
        {"one-long-value",
         [](std::size_t n) { return repeated(n, "v=0\r\no=- 1 1 IN IP4 192.0.2.1\r\ns=", "x", "\r\n"); }},
        {"bandwidth-lines", [](std::size_t n) { return repeated(n, audio, "b=AS:128\r\n"); }},
        {"broken-runs-at-session-level", [](std::size_t n) { return repeated(n, session, "a=x:1\r\nb=AS:1\r\n"); }},
        {"broken-runs-in-a-section", [](std::size_t n) { return repeated(n, audio, "a=x:1\r\nb=AS:1\r\n"); }},
        {"lines-with-NUL-bytes",
         [](std::size_t n) {
             static const char line[] = "a=na\0me:val\0ue\r\n";
             return repeated(n, audio, std::string(line, sizeof line - 1));
         }},
    };
    return shapes;
}

} // namespace bench

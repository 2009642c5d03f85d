// What an attribute says is kept only if it is known to be harmless, or known well enough to hide the rest of it.
#include <algorithm>
#include <cctype>
#include <map>
#include <set>

#include "commands.h"
#include "text.h"

namespace ymsdp {

namespace {

bool isAddress4(std::string_view word)
{
    return !word.empty() && word.find_first_not_of("0123456789.") == none && word.find('.') != none;
}

bool isAddress6(std::string_view word)
{
    return word.find_first_not_of("0123456789abcdefABCDEF:.") == none && word.find(':') != none;
}

bool isNumber(std::string_view word)
{
    return !word.empty() && word.find_first_not_of("0123456789") == none;
}

// Addresses that say nothing of whose they are.
bool isCommon(std::string_view address)
{
    static const std::set<std::string_view> common = {"0.0.0.0", "127.0.0.1", "::", "::1", "localhost", "*", "-"};
    return common.count(address) > 0;
}

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool isPrivate(std::string_view address)
{
    if (address.substr(0, 4) != "172.")
        return address.substr(0, 3) == "10." || address.substr(0, 8) == "192.168.";
    const std::string_view second = address.substr(4, address.find('.', 4) - 4);
    return second.size() == 2 && second >= "16" && second <= "31";
}

bool isMulticast(std::string_view address)
{
    const std::string_view first = address.substr(0, address.find('.'));
    return first.size() == 3 && first >= "224" && first <= "239";
}

std::string hex(std::size_t n)
{
    std::string text;
    for (; n > 0; n /= 16)
        text.insert(text.begin(), "0123456789abcdef"[n % 16]);
    return text;
}

std::string lastBytes(std::size_t n)
{
    return std::to_string(n / 65536 % 256) + "." + std::to_string(n / 256 % 256) + "." + std::to_string(n % 256);
}

// One of the addresses that RFC 5737 keeps for examples; behind them, one of a network that is nobody's own.
std::string exampleAddress(std::size_t n)
{
    static constexpr const char* networks[] = {"192.0.2.", "198.51.100.", "203.0.113."};
    return n <= 762 ? networks[(n - 1) / 254] + std::to_string((n - 1) % 254 + 1) : "0." + lastBytes(n);
}

// The address of number `n` in place of another one: private, multicast or public like that.
std::string newAddress4(std::string_view address, std::size_t n)
{
    if (isPrivate(address))
        return "10." + lastBytes(n);
    return isMulticast(address) ? "233." + lastBytes(0xFC0000 + n) : exampleAddress(n); // 233.252.0.0: RFC 6676
}

std::string newAddress6(std::string_view address, std::size_t n)
{
    if (beginsWith(address, "fe80:"))
        return "fe80::" + hex(n);
    return (beginsWith(address, "ff") ? "ff0e::db8:0:" : "2001:db8::") + hex(n);
}

std::string newHost(std::string_view host, std::size_t n)
{
    return "host" + std::to_string(n) + (endsWith(host, ".local") ? ".local" : ".example");
}

// A number in the shape of a key: the length, colons, dashes and the padding stay, and nothing else does.
std::string newKey(std::string_view key, std::size_t n)
{
    std::string text(key);
    for (std::size_t i = text.find_last_not_of('=') + 1; i-- > 0;) {
        if (text[i] == ':' || text[i] == '-')
            continue;
        text[i] = static_cast<char>('0' + n % 10);
        n /= 10;
    }
    return n == 0 ? text : std::to_string(n) + text;
}

std::string newUser(std::string_view, std::size_t n)
{
    return "user" + std::to_string(n);
}

std::string newMail(std::string_view, std::size_t n)
{
    return "user" + std::to_string(n) + "@mail.example";
}

std::string newPhone(std::string_view, std::size_t n)
{
    return "+" + newKey("00000000000", n);
}

std::string newText(std::string_view, std::size_t n)
{
    return "text" + std::to_string(n);
}

// The text with each word replaced by what `replace` makes of its number, from 0 on, and itself. Blanks stay.
template <class Replace> std::string eachWord(std::string_view text, Replace replace)
{
    std::string result;
    const char* done = text.data();
    std::size_t i = 0;
    for (const std::string_view word : words(text)) {
        result.append(done, word.data()).append(replace(i++, word));
        done = word.data() + word.size();
    }
    return result.append(done, text.data() + text.size());
}

class Hider {
public:
    std::string line(const std::string& line);

private:
    using Make = std::string (*)(std::string_view text, std::size_t n);

    // The same text of one kind gives the same, made from its number: 1, 2, and so on.
    std::string same(Make make, std::string_view text);

    std::string address(std::string_view word);
    std::string key(std::string_view word);
    std::string user(std::string_view word);
    std::string freeText(std::string_view text);
    std::string authority(std::string_view text);
    std::string uri(std::string_view text);
    std::string byWords(std::string_view pattern, std::string_view value);
    std::string connection(std::string_view value);
    std::string keyLine(std::string_view value);
    std::string crypto(std::string_view value);
    std::string candidate(std::string_view value);
    std::string source(std::string_view value);
    std::string attribute(std::string_view text);
    std::string attributeValue(std::string_view name, std::string_view value);

    std::map<Make, std::map<std::string, std::string, std::less<>>> known_;
};

std::string Hider::same(Make make, std::string_view text)
{
    auto& known = known_[make];
    const auto [entry, isNew] = known.emplace(text, std::string());
    if (isNew)
        entry->second = make(text, known.size());
    return entry->second;
}

std::string Hider::address(std::string_view word)
{
    if (isCommon(word))
        return std::string(word);
    return same(isAddress4(word) ? newAddress4 : isAddress6(word) ? newAddress6 : newHost, word);
}

std::string Hider::key(std::string_view word)
{
    return isCommon(word) ? std::string(word) : same(newKey, word);
}

std::string Hider::user(std::string_view word)
{
    return isCommon(word) ? std::string(word) : same(newUser, word);
}

std::string Hider::freeText(std::string_view text)
{
    return text.find_first_not_of(" -*") == none ? std::string(text) : same(newText, text);
}

// "alice@192.0.2.1:554", "[2001:db8::1]"
std::string Hider::authority(std::string_view text)
{
    std::string result;
    if (const std::size_t at = text.rfind('@'); at != none) {
        result = user(text.substr(0, at)) + "@";
        text.remove_prefix(at + 1);
    }
    const bool isBracketed = !text.empty() && text[0] == '[' && text.find(']') != none;
    const std::size_t end = std::min(text.find(isBracketed ? ']' : ':'), text.size());
    const std::string_view port = text.substr(end);
    const bool isPlain = port.find_first_not_of("]:0123456789") == none;
    result.append(isBracketed ? "[" : "").append(address(text.substr(isBracketed, end - isBracketed)));
    return result.append(isPlain ? port : port.substr(0, isBracketed));
}

// "rtsp://alice@192.0.2.1:554/stream?a" gives "rtsp://user1@192.0.2.1:554/text1"; what has no host is free text.
std::string Hider::uri(std::string_view text)
{
    const std::size_t slashes = text.find("://");
    if (slashes == none)
        return freeText(text);
    const std::size_t host = slashes + 3;
    const std::size_t path = std::min(text.find_first_of("/?#;", host), text.size());
    const std::string result = std::string(text.substr(0, host)) + authority(text.substr(host, path - host));
    return result + (path + 1 < text.size() ? "/" + freeText(text.substr(path)) : std::string(text.substr(path)));
}

// Hides the words of a value by a pattern of one character for each, the last one for all behind it as well:
// "." keeps a word, "A" is for an address, "K" for a key or a name of the sender's own, "U" for a user.
std::string Hider::byWords(std::string_view pattern, std::string_view value)
{
    return eachWord(value, [&](std::size_t i, std::string_view word) {
        const char how = pattern[std::min(i, pattern.size() - 1)];
        return how == 'A' ? address(word) : how == 'K' ? key(word) : how == 'U' ? user(word) : std::string(word);
    });
}

// "IN IP4 224.2.1.1/127/3"
std::string Hider::connection(std::string_view value)
{
    const std::size_t slash = std::min(value.find('/'), value.size());
    const std::string_view tail = value.substr(slash);
    const bool isKept = tail.find_first_not_of("0123456789/ ") == none;
    return byWords("..A", value.substr(0, slash)) + std::string(isKept ? tail : "");
}

// "clear:secret"
std::string Hider::keyLine(std::string_view value)
{
    const std::size_t colon = std::min(value.find(':'), value.size());
    const std::string_view secret = value.substr(std::min(colon + 1, value.size()));
    return std::string(value.substr(0, colon)) + (colon < value.size() ? ":" + key(secret) : "");
}

// "1 AES_CM_128_HMAC_SHA1_80 inline:KEY|2^20|1:4;inline:KEY UNENCRYPTED_SRTCP"
std::string Hider::crypto(std::string_view value)
{
    std::string result;
    while (true) {
        const std::size_t begin = value.find("inline:");
        if (begin == none)
            return result.empty() ? byWords("..K", value) : result.append(value);
        const std::size_t end = std::min(value.find_first_of("|; ", begin + 7), value.size());
        result.append(value.substr(0, begin + 7)).append(key(value.substr(begin + 7, end - begin - 7)));
        value.remove_prefix(end);
    }
}

// "1 1 udp 2113937151 192.0.2.1 50000 typ srflx raddr 10.0.0.1 rport 9 ufrag abcd". Some foundations are made of the
// address, so that they tell it.
std::string Hider::candidate(std::string_view value)
{
    std::string_view before;
    return eachWord(value, [&](std::size_t i, std::string_view word) {
        const bool isHost = i == 4 || before == "raddr";
        const bool isKey = i == 0 || before == "ufrag";
        before = word;
        return isHost ? address(word) : isKey ? key(word) : std::string(word);
    });
}

// "3735928559 cname:alice@example.com", "3735928559 msid:stream track"
std::string Hider::source(std::string_view value)
{
    const std::size_t blank = std::min(value.find(' '), value.size());
    const std::size_t colon = value.find(':', blank);
    if (colon == none)
        return isNumber(value) ? std::string(value) : freeText(value);
    const std::string_view name = value.substr(blank, colon - blank);
    const std::string_view rest = value.substr(colon + 1);
    return std::string(value.substr(0, colon + 1)) + (name == " fmtp" ? std::string(rest) : byWords("K", rest));
}

std::string Hider::attributeValue(std::string_view name, std::string_view value)
{
    static constexpr std::string_view harmless
        = " bundle-only charset connection content extmap extmap-allow-mixed fmtp framerate framesize group "
          "ice-options "
          "ice-pacing imageattr lang max-message-size maxptime mediaclk mid minptime orient ptime quality range rid "
          "rtcp-fb rtcp-xr rtpmap sctp-port sctpmap sdplang setup simulcast ssrc-group tool type ";
    static const std::map<std::string_view, const char*> patterns
        = {{"fingerprint", ".K"},   {"ice-pwd", "K"}, {"ice-ufrag", "K"},        {"key-mgmt", ".K"}, {"msid", "K"},
           {"msid-semantic", ".K"}, {"rtcp", "...A"}, {"source-filter", "...A"}, {"identity", "K"},  {"tls-id", "K"}};
    if (harmless.find(" " + std::string(name) + " ") != none)
        return std::string(value);
    if (const auto found = patterns.find(name); found != patterns.end())
        return byWords(found->second, value);
    if (name == "candidate")
        return candidate(value);
    if (name == "crypto")
        return crypto(value);
    if (name == "ssrc")
        return source(value);
    // "1 192.0.2.1 5000 2 192.0.2.1 5001"
    if (name == "remote-candidates")
        return eachWord(value, [&](std::size_t, std::string_view word) {
            return isNumber(word) ? std::string(word) : address(word);
        });
    return isNumber(value) ? std::string(value) : uri(value);
}

// What does not look like a name is free text as well.
std::string Hider::attribute(std::string_view text)
{
    const std::size_t colon = std::min(text.find(':'), text.size());
    const std::string_view name = text.substr(0, colon);
    if (std::any_of(name.begin(), name.end(), [](unsigned char c) { return !std::isalnum(c) && c != '-' && c != '_'; }))
        return freeText(text);
    const std::string_view value = text.substr(std::min(colon + 1, text.size()));
    return std::string(text.substr(0, colon + 1)) + (value.empty() ? "" : attributeValue(name, value));
}

std::string Hider::line(const std::string& line)
{
    const char type = line.size() >= 2 && line[1] == '=' ? line[0] : '\0';
    const std::string_view value = std::string_view(line).substr(std::min<std::size_t>(2, line.size()));
    const std::string begin = line.substr(0, 2);
    switch (type) {
    case 'v':
    case 'b':
    case 't':
    case 'r':
    case 'z':
    case 'm':
        return line;
    case 'o':
        return begin + byWords(words(value).size() == 6 ? "U....A" : "K", value);
    case 'c':
        return begin + connection(value);
    case 'u':
        return begin + uri(value);
    case 'e':
        return begin + same(newMail, value);
    case 'p':
        return begin + same(newPhone, value);
    case 'k':
        return begin + keyLine(value);
    case 'a':
        return begin + attribute(value);
    case '\0':
        return freeText(line);
    default:
        return begin + freeText(value);
    }
}

} // namespace

Result hide(const Description& description, const TextOptions& options)
{
    Hider hider;
    Lines lines = linesOf(description.text);
    for (std::string& line : lines)
        line = hider.line(line);
    return {textOf(lines, options.lf)};
}

} // namespace ymsdp

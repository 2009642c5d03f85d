// Lets every single allocation of an operation fail: what has to stay stays, all goes on as before, and nothing leaks.
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>
#include <tovik/DataIO.h>
#include <tovik/LineAdapter.h>
#include <tovik/NamedList.h>
#include <tovik/PRegEx.h>

#include "support.h"

namespace {

thread_local long nLive = 0;      // allocations that are not given back
thread_local long nLeft = -1;     // allocations until one fails; negative if none is to fail
thread_local bool isLast = false; // all others behind that one fail too
thread_local bool hasFailed = false;

void* allocate(std::size_t size) noexcept
{
    const bool fails = nLeft == 0;
    hasFailed = hasFailed || fails;
    if (nLeft > 0 || !isLast)
        nLeft = nLeft > 0 ? nLeft - 1 : -1;
    nLive += !fails;
    return fails ? nullptr : std::malloc(size);
}

void* allocateOrThrow(std::size_t size)
{
    void* const memory = allocate(size);
    return memory ? memory : throw std::bad_alloc();
}

void release(void* memory) noexcept
{
    nLive -= memory != nullptr;
    std::free(memory);
}

} // namespace

// All forms, since those of a sanitizer do not lead to each other; and weak, since Clang links its sanitizers' own in.
// clang-format off
[[gnu::weak]] void* operator new(std::size_t size) { return allocateOrThrow(size); }
[[gnu::weak]] void* operator new[](std::size_t size) { return allocateOrThrow(size); }
[[gnu::weak]] void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
[[gnu::weak]] void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return allocate(size); }
[[gnu::weak]] void operator delete(void* memory) noexcept { release(memory); }
[[gnu::weak]] void operator delete[](void* memory) noexcept { release(memory); }
[[gnu::weak]] void operator delete(void* memory, std::size_t) noexcept { release(memory); }
[[gnu::weak]] void operator delete[](void* memory, std::size_t) noexcept { release(memory); }
// clang-format on

using namespace test;
using namespace ym::SDP;
using ym::String;

namespace {

// Longer than what strings and lists hold without memory.
const char* const longText = "a/1/text that finds no room in a string itself";
const char* const twoLines
    = "a line that is shown in three parts and more\na line that is shown in three parts and more";
const std::string sections = "m=video 2 RTP/AVP 97|k=clear:a-key-of-some-length|a=rtpmap:97 H264/90000|a=mid:2|"
                             "m=audio 1 RTP/SAVPF-and-others 96 0 8 9|c=IN IP6 2001:db8:0:0:0:0:0:6|b=AS:64|"
                             "a=rtpmap:96 telephone-event/8000/parameter-of-some-length|a=fmtp:96 0-15,16-31,32-47|"
                             "a=candidate:1 1 UDP 2130706431 10.0.0.7 40000 typ host|a=sendonly|"
                             "m=application 3 UDP/DTLS/SCTP-and-others 5|";
const std::string offer = "v=0|o=a-long-name-of-a-user 2890844526 1 IN IP6 2001:db8:0:0:0:0:0:5|s=long name of a "
                          "session|b=AS:64|t=0 0|a=tool:made by hand in an editor|a=recvonly|"
    + repeated(sections, 4);

// What the operations work on.
struct World {
    const String text = longText;
    const String offerText = unbarred(offer);
    const String subject = bytes(repeated("x", 300) + repeated("yx", 40));
    String a;
    String b;
    ym::NamedList list{""};
    ym::PRegEx pattern{"(x*)y", 0};
    ym::MallocIO written;
    Trickle<20> stream{twoLines, static_cast<unsigned int>(std::strlen(twoLines))};
    ym::LineAdapter reader{&stream, ym::LineAdapter::LinebreakAny, ym::LineAdapter::LinebreakAny,
                           ym::LineAdapter::LinebreakAny};
    SDPDesc lines{"\r\n"};
    SDPDescEx session;
    SDPDescEx other;
    SDPMedia media;
    SDPMediaPayload payload;

    World() { fill(); }

    void fill()
    {
        a = b = "untouched";
        list.clear();
        for (int i = 0; i < 40; ++i)
            list.add(std::to_string(i), "value");
        pattern.match("", 0);
        written = ym::MallocIO();
        lines.clear();
        lines.parse(offerText);
        session.parse(offerText);
        other.parse("v=0\no=- 0 0 IN IP4 h\ns=another name of a session\nm=audio 1 a 8\na=rtpmap:8 another-one/8000/2");
        media = *session.mediaAudio(0);
        payload = *media.mediaPayload(0U);
    }

    // All that the objects say of themselves, and whether they find what they have.
    std::string tell()
    {
        std::string told
            = generated(lines) + generated(session) + generated(other) + generated(media) + generated(payload);
        told.append(static_cast<const char*>(written.buffer()), written.length());
        for (const String& each : {a, b, pattern[0], pattern[1]})
            told += str(each) + "|";
        String name;
        String value;
        for (int section = 0; section < lines.nMedia(); ++section)
            for (int n = 0; lines.mediaAttr(section, n, &name, &value, 'a') == 0; ++n)
                told += str(name) + std::to_string(lines.nMediaAttr(section, 'a'));
        for (unsigned int i = 0; i < media.nMediaPayload(); ++i)
            told += media.mediaPayload(media.mediaPayload(i)->payloadNo()) == media.mediaPayload(i) ? "+" : "-";
        for (unsigned int i = 0; list.get(&name, &value, i); ++i)
            told += list.exist(name) ? str(name) + str(value) : "-";
        return told;
    }
};

SDPMedia* newMedia()
{
    return new SDPMedia;
}

void addPayload(SDPMedia& media, unsigned int number)
{
    auto payload = std::make_unique<SDPMediaPayload>();
    payload->setPayloadNo(static_cast<unsigned short>(number));
    media.addMediaPayload(payload.release());
}

// With the numbers from 1000 on.
template <unsigned int n> void fillMedia(World& w)
{
    for (unsigned int i = w.media.nMediaPayload(); i < n; ++i)
        addPayload(w.media, 1000 + i);
}

template <class Object> void expectCopies(Object& object)
{
    const std::string told = generated(object);
    Object copy;
    copy = object;
    object = Object();
    object = copy;
    EXPECT_TRUE(told == generated(copy) && told == generated(object));
}

// Whatever an operation left: all of it can be edited, copied, cleared and filled again.
void use(World& w)
{
    static const std::string fresh = World().tell();
    w.lines.parseLine("m=text 1 RTP/AVP 2");
    w.lines.setMediaAttr(0, -1, "name", w.text, 'a');
    w.session.addAttr("name", w.text);
    w.session.addMediaAudio(newMedia());
    w.media.addAttr("name", w.text);
    addPayload(w.media, 96);
    w.payload.setPayload("name/8000");
    expectCopies(w.session);
    expectCopies(w.media);
    expectCopies(w.payload);
    w.fill();
    EXPECT_EQ(fresh, w.tell());
}

// What holds where an operation throws.
enum After {
    unchanged,
    usable
};

struct Row {
    const char* name;
    void (*operation)(World&);
    After after = unchanged;
    void (*prepare)(World&) = [](World&) {};
};

const Row rows[] = {
    {"SDPDesc()", [](World&) { SDPDesc desc(longText); }},
    {"parse lines", [](World& w) { w.lines.parse(w.offerText); }},
    {"parse lines anew", [](World& w) { w.lines.parse(w.offerText); }, unchanged, [](World& w) { w.lines.clear(); }},
    {"parse lines in vain", [](World& w) { w.lines.parse("a=a line that can be read\rno other"); }},
    {"parseLine", [](World& w) { w.lines.parseLine("m=audio 1 RTP/AVP 0 8 96"); }},
    {"set, there", [](World& w) { w.lines.set('s', w.text); }},
    {"set, new", [](World& w) { w.lines.set(FieldUri, w.text); }},
    {"setAttr, there", [](World& w) { w.lines.setAttr(0, "name", w.text); }},
    {"setAttr, new", [](World& w) { w.lines.setAttr(-1, "n", "v"); }},
    {"setMedia, section", [](World& w) { w.lines.setMedia(16, 'm', "x"); }, unchanged,
     [](World& w) { w.lines.parse("m=12\nm=13\nm=14\nm=15"); }},
    {"setMedia, there", [](World& w) { w.lines.setMedia(1, 'c', w.text); }},
    {"setMedia, new", [](World& w) { w.lines.setMedia(0, 'c', w.text); }},
    {"setMediaAttr, there", [](World& w) { w.lines.setMediaAttr(0, 1, "name", w.text, 'a'); }},
    {"setMediaAttr, new", [](World& w) { w.lines.setMediaAttr(0, -1, "n", "v", 'a'); }},
    {"setMediaAttr, first", [](World& w) { w.lines.setMediaAttr(0, 0, "n", "v", 'b'); }},
    {"removeMedia", [](World& w) { w.lines.removeMedia(0, 'm'); }},
    {"removeMedia, behind", [](World& w) { w.lines.removeMedia(1, 'k'); }},
    {"removeMediaAttr", [](World& w) { w.lines.removeMediaAttr(1, 0, 'a'); }},
    {"get", [](World& w) { w.lines.get('s', &w.a); }},
    {"attr", [](World& w) { w.lines.attr(0, &w.a, &w.b); }, usable},
    {"media", [](World& w) { w.lines.media(0, 'k', &w.a); }},
    {"mediaAttr", [](World& w) { w.lines.mediaAttr(1, 2, &w.a, &w.b, 'a'); }, usable},
    {"hasMedia", [](World& w) { w.lines.hasMedia(0, 'r'); }},
    {"hasMediaAttr", [](World& w) { w.lines.hasMediaAttr(0, "fmtp", 'a'); }},
    {"generate lines", [](World& w) { w.lines.generate(&w.a); }},

    {"new SDPDescEx", [](World& w) { std::make_unique<SDPDescEx>()->parse(w.offerText); }},
    {"parse", [](World& w) { w.session.parse(w.offerText); }, usable},
    {"parse, cleared", [](World& w) { w.session.parse(w.offerText); }, usable, [](World& w) { w.session.clear(); }},
    {"parse, refused", [](World& w) { w.session.parse("v=0\ra=a-name-that-is-long\ro=x"); }, usable},
    {"parse, a field", [](World& w) { w.session.setUri(w.offerText), w.session.parse(w.session.uri()); }, usable},
    {"session = other", [](World& w) { w.other = w.session; }, usable},
    {"addMediaAudio", [](World& w) { w.session.addMediaAudio(newMedia()); }},
    {"addMediaVideo", [](World& w) { w.session.addMediaVideo(newMedia()); }},
    {"addMediaApplication", [](World& w) { w.session.addMediaApplication(newMedia()); }},
    {"session, addAttr", [](World& w) { w.session.addAttr("name", w.subject); }},
    {"setOrig", [](World& w) { w.session.setOrig(w.text, w.text, w.text, NetworkTypeIN, AddressTypeIP4, w.text); }},
    {"session, setConnection", [](World& w) { w.session.setConnection(NetworkTypeIN, AddressTypeIP4, w.text, 1, 2); }},
    {"session, setBandwidth", [](World& w) { w.session.setBandwidth(w.text, 1); }},
    {"session, setEncryption", [](World& w) { w.session.setEncryption("clear", w.text); }},
    {"setUri", [](World& w) { w.session.setUri(w.text); }},
    {"session, attr", [](World& w) { w.session.attr("tool", &w.a); }},
    {"session, generate", [](World& w) { w.session.generate(&w.a); }},

    {"media = other", [](World& w) { *w.other.mediaAudio(0) = w.media; }, usable},
    {"addMediaPayload", [](World& w) { addPayload(w.media, 1); }},
    {"addMediaPayload, there", [](World& w) { addPayload(w.media, 8); }},
    {"addMediaPayload, held", [](World& w) { w.media.addMediaPayload(w.media.mediaPayload(1U)); }},
    {"addMediaPayload, 65th", [](World& w) { addPayload(w.media, 1); }, unchanged, fillMedia<64>},
    {"addMediaPayload, 129th", [](World& w) { addPayload(w.media, 1); }, unchanged, fillMedia<128>},
    {"addMediaPayload, 129th there", [](World& w) { addPayload(w.media, 1064); }, unchanged, fillMedia<128>},
    {"addMediaPayload, 129th held", [](World& w) { w.media.addMediaPayload(w.media.mediaPayload(1U)); }, unchanged,
     [](World& w) { fillMedia<128>(w), w.media.mediaPayload(9U)->setPayloadNo(0); }},
    {"mediaPayload", [](World& w) { w.media.mediaPayload("telephone-event/"); }},
    {"media, addAttr", [](World& w) { w.media.addAttr("name", w.text); }},
    {"setMediaType", [](World& w) { w.media.setMediaType(longText); }},
    {"media, setConnection", [](World& w) { w.media.setConnection("IN", "IP4", w.text); }},
    {"connection", [](World& w) { w.media.connection(nullptr, nullptr, &w.a); }},
    {"media, setBandwidth", [](World& w) { w.media.setBandwidth(w.text, 1); }},
    {"media, generate", [](World& w) { w.media.generate(&w.a); }},

    {"payload = other", [](World& w) { *w.media.mediaPayload(1U) = w.payload; }, usable},
    {"setPayload", [](World& w) { w.payload.setPayload(7, "an-encoding-with-a-long-name/16/a-long-parameter"); }},
    {"setPayload, a field", [](World& w) { w.payload.setPayload(w.payload.encoding()); }, unchanged,
     [](World& w) { w.payload.setEncoding("an-encoding-with-a-long-name/16/a-long-parameter"); }},
    {"setEncoding", [](World& w) { w.payload.setEncoding(w.subject, 1); }},
    {"payload, addAttr", [](World& w) { w.payload.addAttr("candidate", w.subject); }},
    {"addFormatParam", [](World& w) { w.payload.addFormatParam("name", w.subject); }},
    {"payload", [](World& w) { w.payload.payload(&w.a); }},
    {"payload, generate", [](World& w) { w.payload.generate(&w.a); }},

    {"list = other", [](World& w) { std::make_unique<ym::NamedList>("")->operator=(w.list); }},
    {"insert", [](World& w) { w.list.insert("name", w.subject, 3); }},
    {"replace", [](World& w) { w.list.replace("7", w.subject, 0); }},
    {"remove", [](World& w) { w.list.remove("7", 0); }},
    {"string = other", [](World& w) { w.a = w.text; }},
    {"append", [](World& w) { w.a.append(longText); }},
    {"PRegEx()", [](World&) { ym::PRegEx(repeated("[a][b]", 20).c_str(), 0); }},
    {"match", [](World& w) { w.pattern.match(w.subject, 0); }, usable},
    {"match by table", [](World& w) { ym::PRegEx(repeated("x*", 60).append("z").c_str(), 0).match(w.subject, 0); }},
    {"split", [](World& w) { w.pattern.split(w.subject, 0); }, usable},
    {"readLine", [](World& w) { w.reader.readLine(&w.a); }}, // if the first one is lost, the second reads the same
    {"write", [](World& w) { w.written.write(longText, 40); }},
};

// Whether the operation goes through. Allocation number n fails, counted from 0; none if n is negative.
bool runs(const Row& row, World& w, long n)
{
    bool isDone = true;
    hasFailed = false;
    nLeft = n;
    try {
        row.operation(w);
    } catch (const std::bad_alloc&) {
        isDone = false;
    }
    nLeft = -1;
    return isDone;
}

// What goes with a failure, bit by bit.
enum Mode : unsigned int {
    afterTelling = 1, // what look-ups keep is there
    forGood = 2,      // all allocations behind that one fail too
    withRepetition = 4,
    nModes = 8,
};

// False if the operation has fewer allocations.
bool failsAt(long n, unsigned int mode, const Row& row, const std::string& before, const std::string& done)
{
    World w;
    row.prepare(w);
    if (mode & afterTelling)
        w.tell();
    isLast = (mode & forGood) != 0;
    bool isDone = runs(row, w, n);
    const bool isHit = hasFailed;
    EXPECT_TRUE(isDone || row.after == usable || before == w.tell());
    if (mode & withRepetition)
        isDone = isDone || runs(row, w, -1);
    EXPECT_TRUE(!isDone || done == w.tell());
    if (!(mode & withRepetition))
        use(w);
    return isHit;
}

TEST(Allocation, MayFailAnywhere)
{
#ifdef __clang__
    if (nLive == 0)
        GTEST_SKIP() << "the operators are those of a sanitizer";
#endif
    for (const Row& row : rows) {
        World w;
        row.prepare(w);
        const std::string before = w.tell();
        EXPECT_TRUE(runs(row, w, -1));
        const std::string done = w.tell();
        use(w);
        const long nLiveBefore = nLive;
        long nFailures = 0;
        for (unsigned int mode = 0; mode < nModes; ++mode)
            for (long n = 0; !HasFailure() && failsAt(n, mode, row, before, done); ++n)
                ++nFailures;
        ASSERT_TRUE(nFailures > 0 && !HasFailure() && nLive == nLiveBefore) << row.name;
    }
}

} // namespace

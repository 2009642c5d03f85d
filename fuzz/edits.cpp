// A text, up to the first byte 255, and behind it a series of operations, first on its lines, then on its objects.
#include <climits>
#include <memory>
#include <sstream>

#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>

#include "fuzz/Input.h"
#include "fuzz/PlainList.h"
#include "fuzz/describe.h"
#include "fuzz/expect.h"

using namespace fuzz;
using namespace ym::SDP;
using test::bytes;
using test::str;
using ym::String;

namespace {

constexpr const char* const words[] = {"",   "x",   "n",   "p:q",          "ptime", "sendonly",  "sendrecv", "audio",
                                       "IN", "IP4", "a b", "opus/48000/2", "clear", "192.0.2.1", "a=1;b=2",  "-"};

String text(Input& input)
{
    const std::size_t choice = input.below(24);
    return choice < std::size(words) ? String(words[choice]) : bytes(input.bytes(40));
}

// Line view

// The numbers of operations that are asked for by name, and how many there are.
constexpr std::size_t generation = 23;
constexpr std::size_t beginning = 25; // lines without which nothing is generated
constexpr std::size_t nOperations = 26;

struct Call {
    std::size_t operation;
    int section;
    int n;
    char type;
    String name;
    String value;
};

Call nextCall(Input& input)
{
    const auto number = [&] {
        return input.below(32) == 1 ? INT_MIN : static_cast<int>(std::min<long long>(input.number(), INT_MAX));
    };
    const char types[] = {'a', 'a', 'a', 'm', 'm', 'c', 'b', 't', 'v', 'o', 's', 'i', 'k', 'r', 'x', '=', '\0', '\xe1'};
    const std::size_t operation = input.below(nOperations);
    return {operation, number(), number(), input.oneOf(types), text(input), text(input)};
}

// An operation on a list of either kind, with its outputs.
template <class List> int carryOut(List& list, const Call& call, String& a, String& b)
{
    const auto& [operation, section, n, type, name, value] = call;
    switch (operation) {
    case 0:
        return list.parse(value);
    case 1:
        return list.parseLine(bytes(std::string{type, '='} + str(value)));
    case 2:
        return list.parseLine(value);
    case 3:
        return list.set(type, value);
    case 4:
        return list.get(type, &a);
    case 5:
        return list.remove(type);
    case 6:
        return list.has(type);
    case 7:
        return list.nAttr();
    case 8:
        return list.setAttr(n, name, value);
    case 9:
        return list.attr(n, &a, &b);
    case 10:
        return list.removeAttr(n);
    case 11:
        return list.hasAttr(name);
    case 12:
        return list.nMedia();
    case 13:
        return list.setMedia(section, type, value);
    case 14:
        return list.media(section, type, &a);
    case 15:
        return list.removeMedia(section, type);
    case 16:
        return list.hasMedia(section, type);
    case 17:
        return list.nMediaAttr(section, type);
    case 18:
        return list.setMediaAttr(section, n, name, value, type);
    case 19:
        return list.mediaAttr(section, n, &a, &b, type);
    case 20:
        return list.removeMediaAttr(section, n, type);
    case 21:
        return list.hasMediaAttr(section, name, type);
    case 22:
        return list.setMedia(list.nMedia(), 'm', value);
    case generation:
        return list.generate(&a);
    case 24:
        return n == 0 && section == 0 ? list.clear(), 0 : 0;
    default:
        return list.set('v', "") + list.set('o', "") + list.set('s', "");
    }
}

// The result of an operation, and what it put into its outputs.
template <class List> std::string carryOut(List& list, const Call& call)
{
    String a("untouched");
    String b("untouched");
    const int result = carryOut(list, call, a, b);
    return std::to_string(result) + ": " + str(a) + ": " + str(b);
}
void linesAreEdited(const String& parsed, Input& input)
{
    SDPDesc list("\r\n");
    PlainList plain;
    expectEqual(plain.parse(parsed), list.parse(parsed), "parse");
    std::ostringstream log;
    const auto both = [&](const Call& call) {
        log << call.operation << ": section " << call.section << ", number " << call.n << ", type " << call.type
            << ", \"" << str(call.name) << "\", \"" << str(call.value) << "\"\n";
        const std::string expected = carryOut(plain, call);
        const std::string actual = carryOut(list, call);
        if (expected != actual)
            expectEqual(expected, actual, "the last of these operations,\n" + shown(log.str()));
    };
    for (int i = 0; i < 200 && !input.isEmpty(); ++i)
        both(nextCall(input));
    both({beginning, 0, 0, 'v', "", ""});
    both({generation, 0, 0, 'v', "", ""});
}

// Object view

unsigned long number(Input& input)
{
    return static_cast<unsigned long>(std::max(input.number(), 0LL));
}

// Adds or removes a name of a list by the operations of its owner, and looks whether it is there then.
template <class Owner, class Add, class Remove, class Get>
void pairsAreEdited(Owner& owner, Input& input, Add add, Remove remove, Get get)
{
    const String name = text(input);
    const String value = text(input);
    String found;
    (owner.*add)(name, value);
    expectEqual(0, (owner.*get)(name, &found), "the look-up of what was added");
    expectEqual(upToNul(str(value)), upToNul(str(found)), "the look-up of what was added");
    if (input.below(2) == 0) {
        (owner.*remove)(name);
        expect((owner.*get)(name, &found) != 0, "what was removed is gone");
    }
}

void payloadIsEdited(SDPMediaPayload& payload, Input& input)
{
    const String value = text(input);
    switch (input.below(9)) {
    case 0:
        return payload.setPayloadNo(static_cast<unsigned short>(number(input)));
    case 1:
        payload.setPayload(value);
        break;
    case 2:
        payload.setPayload(static_cast<unsigned short>(number(input)), value);
        break;
    case 3:
        return payload.setEncoding(value, number(input));
    case 4:
        return payload.setEncodingParam(value);
    case 5:
        return pairsAreEdited(
            payload, input, &SDPMediaPayload::addFormatParam, &SDPMediaPayload::removeFormatParam,
            static_cast<int (SDPMediaPayload::*)(const String&, String*)>(&SDPMediaPayload::formatParam));
    case 6:
        return pairsAreEdited(payload, input, &SDPMediaPayload::addAttr, &SDPMediaPayload::removeAttr,
                              static_cast<int (SDPMediaPayload::*)(const String&, String*)>(&SDPMediaPayload::attr));
    case 7:
        payload.clearFormatParam();
        break;
    default:
        return payload.clear();
    }
}

// A payload is found by its number if it is the first one that has it.
void payloadsAreFound(SDPMedia& media, unsigned short asked)
{
    SDPMediaPayload* expected = nullptr;
    for (unsigned int i = media.nMediaPayload(); i-- > 0;)
        if (media.mediaPayload(i)->payloadNo() == asked)
            expected = media.mediaPayload(i);
    expect(media.mediaPayload(asked) == expected, "a payload is found by its number");
}

void mediaIsEdited(SDPMedia& media, Input& input)
{
    String value = text(input);
    const auto at = static_cast<unsigned int>(input.below(8));
    SDPMediaPayload* const payload = media.mediaPayload(at);
    switch (input.below(12)) {
    case 0:
        return media.setMediaType(value.chars());
    case 1:
        return media.setPort(static_cast<unsigned short>(number(input)));
    case 2:
        return media.setSessionDesc(value);
    case 3:
        media.setConnection(text(input), text(input), value);
        break;
    case 4:
        if (!media.hasBandwidth()) // a third one is warned of
            media.setBandwidth(value, number(input));
        break;
    case 5:
        media.setEncryption(text(input), value);
        break;
    case 6:
        media.addAttr(value, "");
        break;
    case 7:
        media.removeAttr(value);
        break;
    case 8:
        media.addMediaPayload(payload);
        break;
    case 9: {
        auto added = std::make_unique<SDPMediaPayload>();
        payloadIsEdited(*added, input);
        expectEqual(0, media.addMediaPayload(added.release()), "addMediaPayload");
        break;
    }
    case 10:
        media.mediaPayload(value);
        break;
    default:
        if (payload)
            payloadIsEdited(*payload, input);
    }
    payloadsAreFound(media, static_cast<unsigned short>(number(input)));
}

// The three lists of sections
struct MediaList {
    int (SDPDescEx::*add)(SDPMedia*);
    int (SDPDescEx::*remove)(SDPMedia*);
    SDPMedia* (SDPDescEx::*at)(unsigned int);
};
constexpr MediaList mediaLists[]
    = {{&SDPDescEx::addMediaAudio, &SDPDescEx::removeMediaAudio, &SDPDescEx::mediaAudio},
       {&SDPDescEx::addMediaVideo, &SDPDescEx::removeMediaVideo, &SDPDescEx::mediaVideo},
       {&SDPDescEx::addMediaApplication, &SDPDescEx::removeMediaApplication, &SDPDescEx::mediaApplication}};

void sectionsAreEdited(SDPDescEx& session, Input& input)
{
    const MediaList& list = input.oneOf(mediaLists);
    const unsigned int n = session.nMedia();
    SDPMedia* const media = (session.*list.at)(static_cast<unsigned int>(input.below(4)));
    const std::size_t choice = input.below(8);
    if (choice == 0) {
        expectEqual(0, (session.*list.add)(new SDPMedia), "addMedia");
        expectEqual(n + 1, session.nMedia(), "nMedia");
    } else if (choice == 1) {
        expectEqual(media ? 0 : -1, (session.*list.remove)(media), "removeMedia");
        expectEqual(n - (media ? 1 : 0), session.nMedia(), "nMedia");
    } else if (choice == 2 && media) {
        SDPMedia copy;
        copy = *media;
        *media = copy;
    } else if (media) {
        mediaIsEdited(*media, input);
    }
}

void sessionIsEdited(SDPDescEx& session, Input& input)
{
    const String value = text(input);
    const auto netType = static_cast<NetworkType>(input.below(4));
    const auto addrType = static_cast<AddressType>(input.below(4));
    switch (input.below(24)) {
    case 0:
        return session.setVersion(number(input));
    case 1:
        session.setOrig(text(input), text(input), text(input), netType, addrType, value);
        break;
    case 2:
        return session.setSessionName(value);
    case 3:
        return session.setUri(value);
    case 4:
        session.setConnection(netType, addrType, value, number(input), number(input));
        break;
    case 5:
        return session.setBandwidth(value, number(input));
    case 6:
        session.setEncryption(text(input), value);
        break;
    case 7:
        return session.setTime(number(input), number(input));
    case 8:
        return pairsAreEdited(session, input, &SDPDescEx::addAttr, &SDPDescEx::removeAttr,
                              static_cast<int (SDPDescEx::*)(const String&, String*)>(&SDPDescEx::attr));
    case 9:
        session.parse(value);
        break;
    case 10:
        session.parse(bytes("m=audio 9 RTP/AVP 0 8 96\n" + str(value)));
        break;
    case 11:
        return session.clear();
    default:
        sectionsAreEdited(session, input);
    }
}

void objectsAreEdited(const String& parsed, Input& input)
{
    SDPDescEx session;
    session.parse(parsed);
    for (int i = 0; i < 200 && !input.isEmpty(); ++i)
        sessionIsEdited(session, input);
    SDPDescEx copy;
    copy = session;
    String written;
    String again;
    expect(session.generate(&written) == 0 && copy.generate(&again) == 0, "the objects are written");
    expectEqual(str(written), str(again), "the text of a copy");
    expectEqual(describe(session), describe(copy), "a copy");
    copy.parse(written);
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const String parsed = bytes(input.until(0xFF));
    Input sameAgain = input;
    linesAreEdited(parsed, input);
    objectsAreEdited(parsed, sameAgain);
    return 0;
}

#include <nlohmann/json.hpp>
#include <sdp/SDPDescEx.h>

#include "commands.h"
#include "text.h"

namespace ymsdp {

namespace {

using namespace ym::SDP;
using ym::String;
using Json = nlohmann::ordered_json;

std::string text(const String& value)
{
    return std::string(view(value));
}

// Fields without a value are left out.
void put(Json& object, const char* name, const String& value)
{
    if (value.length() > 0)
        object[name] = text(value);
}

// The network and address type of 0 stand for words that the library does not know.
Json address(NetworkType netType, AddressType addrType, const String& address)
{
    Json json;
    json["networkType"] = netType ? Json(networkTypeStr(netType)) : Json();
    json["addressType"] = addrType ? Json(addressTypeStr(addrType)) : Json();
    json["address"] = text(address);
    return json;
}

Json bandwidth(const String& modifier, unsigned long value)
{
    return {{"type", text(modifier)}, {"value", value}};
}

// Names and values that are found by a number, up to the first miss.
template <class Owner, class Getter> Json listOf(Owner& owner, Getter get)
{
    Json list = Json::array();
    String name, value;
    for (unsigned int i = 0; (owner.*get)(i, &name, &value) == 0; ++i)
        list.push_back({{"name", text(name)}, {"value", text(value)}});
    return list;
}

template <class Owner> Json attributesOf(Owner& owner)
{
    return listOf(owner, static_cast<int (Owner::*)(unsigned int, String*, String*)>(&Owner::attr));
}

Json payloadOf(SDPMediaPayload& payload)
{
    Json json = {{"number", payload.payloadNo()}};
    put(json, "encoding", payload.encoding());
    if (payload.clockRate() > 0)
        json["clockRate"] = payload.clockRate();
    put(json, "encodingParameter", payload.encodingParam());
    using Getter = int (SDPMediaPayload::*)(unsigned int, String*, String*);
    json["parameters"] = listOf(payload, static_cast<Getter>(&SDPMediaPayload::formatParam));
    json["attributes"] = attributesOf(payload);
    return json;
}

const char* direction(SDPMedia& media)
{
    if (media.sendonly())
        return "sendonly";
    if (media.recvonly())
        return "recvonly";
    return media.inactive() ? "inactive" : "sendrecv";
}

Json mediaOf(SDPMedia& media)
{
    Json json = {{"type", text(media.media())}, {"port", media.port()}, {"transport", text(media.transport())}};
    if (media.hasConnection()) {
        NetworkType netType = NetworkTypeNone;
        AddressType addrType = AddressTypeNone;
        String where;
        media.connection(&netType, &addrType, &where);
        json["connection"] = address(netType, addrType, where);
    }
    json["bandwidths"] = Json::array();
    for (int slot = 0; slot < 2; ++slot) {
        if (media.bandwidthModifire(slot)->length() > 0)
            json["bandwidths"].push_back(bandwidth(*media.bandwidthModifire(slot), media.bandwidth(slot)));
    }
    json["direction"] = direction(media);
    json["formats"] = Json::array();
    for (unsigned int i = 0; i < media.nMediaPayload(); ++i)
        json["formats"].push_back(payloadOf(*media.mediaPayload(i)));
    return json;
}

Json originOf(SDPDescEx& session)
{
    Json json = {{"userName", text(session.origUsername())},
                 {"sessionId", text(session.origSessionId())},
                 {"sessionVersion", text(session.origVersion())}};
    json.update(address(session.origNetType(), session.origAddrType(), session.origAddress()));
    return json;
}

Json connectionOf(SDPDescEx& session)
{
    Json json = address(session.connectionNetType(), session.connectionAddrType(), session.connectionAddress());
    if (session.hasConnectionTTL())
        json["timeToLive"] = session.connectionTTL();
    if (session.hasConnectionNumAddr())
        json["count"] = session.connectionNumAddr();
    return json;
}

Json mediaOf(SDPDescEx& session)
{
    Json list = Json::array();
    for (unsigned int i = 0; i < session.nMediaAudio(); ++i)
        list.push_back(mediaOf(*session.mediaAudio(i)));
    for (unsigned int i = 0; i < session.nMediaVideo(); ++i)
        list.push_back(mediaOf(*session.mediaVideo(i)));
    for (unsigned int i = 0; i < session.nMediaApplication(); ++i)
        list.push_back(mediaOf(*session.mediaApplication(i)));
    return list;
}

Json objectsOf(SDPDescEx& session)
{
    Json json = {{"version", session.version()}, {"origin", originOf(session)}};
    put(json, "name", session.sessionName());
    put(json, "information", session.sessionDesc());
    put(json, "uri", session.uri());
    put(json, "email", session.email());
    put(json, "phone", session.phone());
    if (session.hasConnection())
        json["connection"] = connectionOf(session);
    if (session.hasBandwidth())
        json["bandwidth"] = bandwidth(session.bandwidthModifire(), session.bandwidth());
    put(json, "timeZones", session.timezoneAjust());
    if (session.hasEncryption())
        json["key"] = {{"method", text(encryptionMethodStr(session.encryptionMethod()))},
                       {"key", text(session.encryptionKey())}};
    json["time"] = {{"start", session.startTime()}, {"stop", session.stopTime()}};
    put(json, "repeat", session.repeat());
    json["attributes"] = attributesOf(session);
    json["media"] = mediaOf(session);
    return json;
}

Json lineOf(const std::string& line, std::size_t number, std::size_t level)
{
    Json json = {{"line", number}, {"section", level == 0 ? Json() : Json(level - 1)}, {"text", line}};
    if (const auto attribute = attributeOf(line)) {
        json["attribute"] = attribute->name;
        json["value"] = attribute->value;
    }
    return json;
}

Json linesOf(const Description& description)
{
    Json list = Json::array();
    const Levels levels = levelsOf(description.text);
    for (std::size_t i = 0; i < levels.size(); ++i) {
        for (const std::string& line : levels[i])
            list.push_back(lineOf(line, description.skipped + list.size() + 1, i));
    }
    return list;
}

} // namespace

std::string showJson(const Descriptions& descriptions)
{
    Json all = Json::array();
    for (const Description& description : descriptions) {
        SDPDescEx session;
        const bool isRefused = session.parse(stringOf(description.text)) != 0;
        all.push_back({{"file", description.name},
                       {"lines", linesOf(description)},
                       {"objects", isRefused ? Json() : objectsOf(session)}});
    }
    return all.dump(2, ' ', true, Json::error_handler_t::replace) + "\n";
}

} // namespace ymsdp

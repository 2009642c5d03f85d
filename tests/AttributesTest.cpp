// The four lists of attributes and parameters, which behave alike.
#include <sdp/SDPDescEx.h>

#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::String;

namespace {

// The format parameters of a payload under the names that attributes go by.
struct Parameters {
    SDPMediaPayload payload;

    unsigned int nAttr() { return payload.nFormatParam(); }
    int addAttr(const String& name, const String& value) { return payload.addFormatParam(name, value); }
    int removeAttr(const String& name) { return payload.removeFormatParam(name); }
    int attr(const String& name, String* value) { return payload.formatParam(name, value); }
    int attr(unsigned int index, String* name, String* value) { return payload.formatParam(index, name, value); }
    int generate(String* out) { return payload.generate(out); }
};

template <class Owner> std::string run(Owner& o, const std::string& commands)
{
    return outcomes(commands, [&](const std::vector<std::string>& w, String* a, String* b) {
        return w[0] == "add"   ? o.addAttr(bytes(w[1]), bytes(w[2]))
            : w[0] == "remove" ? o.removeAttr(bytes(w[1]))
            : w[0] == "value"  ? o.attr(bytes(w[1]), a)
                               : o.attr(static_cast<unsigned int>(std::stoul(w[1])), a, b);
    });
}

template <class Owner> void expectEachNameOnceInItsFirstPlace(Owner& o, const std::string& lines)
{
    const struct {
        const char* commands;
        const char* results;
        std::string list; // afterwards
    } rows[] = {{"value x; at 0; remove x", "-1 -1 0", ""},
                {"add x 1; add y; add z 3:4; add x 5", "0 0 0 0", "x:5 y: z:3:4"},
                {"value x; value y; value X; remove X; at 3; at 4294967295", "5  -1 0 -1 -1", "x:5 y: z:3:4"},
                {"remove x; value x; add y 6; add x 7; add", "0 -1 0 0 0", "y:6 z:3:4 x:7 :"}};
    for (const auto& row : rows) {
        EXPECT_EQ(row.results, run(o, row.commands));
        std::string list;
        for (unsigned int i = 0; i < o.nAttr(); ++i)
            list += (i > 0 ? " " : "") + run(o, "at " + std::to_string(i));
        EXPECT_EQ(row.list, list) << row.commands;
    }
    EXPECT_EQ(lines, generated(o));
}

TEST(Attributes, HoldEachNameOnceInTheirFirstPlace)
{
    const std::string attributes = "a=y:6|a=z:3:4|a=x:7|a=|";
    SDPDescEx session;
    SDPMedia media;
    SDPMediaPayload payload;
    Parameters parameters;
    expectEachNameOnceInItsFirstPlace(session, cleared + attributes);
    expectEachNameOnceInItsFirstPlace(media, "m=unknown 0 RTP/AVP|" + attributes);
    expectEachNameOnceInItsFirstPlace(payload, attributes);
    expectEachNameOnceInItsFirstPlace(parameters, "a=fmtp:0 y=6;z=3:4;x=7;|");
    expectAll(0,
              {payload.attr("y", nullptr), media.attr("y", nullptr), parameters.attr("y", nullptr),
               payload.attr(0U, nullptr, nullptr), media.attr(0U, nullptr, nullptr)});
}

// The session alone refuses a null value, and finds the first of several entries that a text has left.
TEST(Attributes, OfASessionMayRepeatInAText)
{
    SDPDescEx session;
    ASSERT_EQ(0, session.parse("a=x:1\na=y\na=x:2\na=sendonly:z\na=rtpmap:0 a/80\n"));
    expectAll(SDP_INVALID_ARGUMENT, {session.attr("x", nullptr), session.attr(0U, nullptr, nullptr)});
    EXPECT_EQ("1 0", run(session, "value x; add x 3"));
    EXPECT_EQ(cleared + "a=x:3|a=y|a=x:2|a=sendonly:z|a=rtpmap:0 a/80|", generated(session));
    EXPECT_EQ("0 2", run(session, "remove x; value x"));
    EXPECT_EQ(cleared + "a=y|a=x:2|a=sendonly:z|a=rtpmap:0 a/80|", generated(session));
}

} // namespace

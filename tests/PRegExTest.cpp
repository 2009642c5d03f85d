// The matcher: tables of patterns and subjects.
#include <algorithm>

#include <tovik/PRegEx.h>

#include "support.h"

using namespace test;
using ym::PRegEx;

namespace {

// The patterns of the descriptions' lines.
const char* const mapping = R"(^(\S+)/([^/]\d+)/{0,1}(\S*)$)";
const char* const origin = R"(^\s*(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s*$)";
const char* const connection = R"(^\s*(\S+)\s+(\S+)\s+([^(/|\s)]+)/{0,1}(\S*)$)";
const char* const connectionTail = R"(^([^(/)]+)/{0,1}(\S*)$)";
const char* const startStop = R"(^(\d+)\s+(\d+)$)";
const char* const key = R"(^([^:]+):{0,1}(\S*)$)";
const char* const bandwidth = R"(^(\S+):(\d+)$)";
const char* const media = R"(^(\S+)\s+(\d+)\s+(\S+)\s+(.*)$)";
const char* const formatSplit = R"(\s* \s*)";
const char* const numbered = R"(^(\d+)\s+(.*)$)";
const char* const parameterSplit = R"(\s*;\s*)";
const char* const parameter = R"(^\s*([^=]*)=\s*(.*)$)";
const char* const trim = R"((.*\S)\s*$)";

// The parts from number `first` on, each with a bar behind it.
std::string partsOf(const PRegEx& pattern, int first, int n)
{
    std::string parts;
    for (int i = first; i < first + n; ++i)
        parts += str(pattern[i]) + "|";
    return parts;
}

TEST(PRegEx, FindsGroups)
{
    const struct {
        const char* pattern;
        std::vector<std::string> cases; // "subject => group|group|", or "subject => " for no match
    } rows[] = {
        {mapping, {"L16/44100/2 => L16|44100|2|", "L16/44100/22 => L16/44100|22||", "a/b/80/ => a/b|80||", "X/9 => "}},
        {origin, {" a b\tc  IN IP4 d  => a|b|c|IN|IP4|d|", "a b c IN IP4 => ", "a b c IN IP4 d e => "}},
        {connection, {" IN IP4 a.b/127/3 => IN|IP4|a.b|127/3|", "IN IP4 a(b)/3 => IN|IP4|a|(b)/3|", "IN IP4 |a => "}},
        {connectionTail, {"127/3 => 127|3|", "1 2 => 1 2||", "1(2 => 1|(2|", "/3 => "}},
        {startStop, {"1\t 2 => 1|2|", "1 2  => ", " 1 2 => "}},
        {key, {"prompt => prompt||", "uri:x:y => uri|x:y|", "clear:a b => ", ":xyz => "}},
        {bandwidth, {"X:1:2 => X:1|2|", "AS:12a => "}},
        {media, {"audio\t9 x  0 8 => audio|9|x|0 8|", "audio 9 x  => audio|9|x||", "a 9 x => ", "a 9 x y\nz => "}},
        {numbered, {"96  => 96||", "96 => "}},
        {parameter, {" a = 1  => a |1 |", "x=a=b => x|a=b|", "  = => ||", "x => "}},
        {trim, {" a b \t =>  a b|", "a\nb => b|", "    => ", " => "}},
        {"(a*)(a+)(a{0,1})", {"aaa => aa|a||", "b => "}},
        {"((a)(b*))c", {"abbc => abb|a|bb|", "abab => "}},
        {"([-.*+$]+)([^^]*).([\\d;a]+)", {"1.*+-$x^1;a^ => .*+-$|x|1;a|", "^x => "}},
        {"([[a-]+)", {"b[-a => [-a|"}},
        {"(\\s+)", {"a \t\n\v\f\rb =>  \t\n\v\f\r|", "\x85\xa0\x1c => "}},
        {"(.+)", {"\na\nb => a|", "\n => "}},
        {"^(A)", {"AA => A|", "aA => ", "a\nA => "}},
        {"(^A)", {"AA => A|", "aA => "}},
        {"(a)$", {"aa => a|", "ab => ", "a\n => "}},
    };
    for (const auto& row : rows)
        for (const std::string& text : row.cases) {
            const auto [in, out] = sidesOf(text);
            PRegEx pattern(row.pattern, 0);
            ym::String subject = bytes(in);
            EXPECT_EQ(!out.empty(), pattern.match(subject, 0)) << row.pattern << " on " << text;
            subject = "the groups outlive the subject";
            const int n = static_cast<int>(std::count(out.begin(), out.end(), '|'));
            EXPECT_EQ(out, partsOf(pattern, 1, n)) << row.pattern << " on " << text;
        }
}

TEST(PRegEx, MatchesNothingByOtherConstructs)
{
    for (const char* text : {"a|b", "(a|b)", "a?",   "a{2}", "a{0,2}",      "a{1,1}",     "(a)*",  "(a)+",  "(a){0,1}",
                             "\\w", "\\.",   "\\",   "(a",   "a)",          "a**",        "a+*",   "a*?",   "a+?",
                             "*a",  "+a",    "^*",   "$+",   "a{0,1}{0,1}", "{0,1}",      "[a-z]", "[\\w]", "[a",
                             "[]",  "[^]",   "[]a]", "\\b",  "(?:a)",       "[[:alpha:]]"}) {
        PRegEx pattern(text, 0);
        EXPECT_FALSE(pattern.match((std::string(text) + " aab").c_str(), 0)) << text;
        EXPECT_EQ(1, pattern.split("a b", 0)) << text;
    }
    for (const unsigned int n : {255U, 256U}) // the most groups that a pattern has, and one more
        EXPECT_EQ(n < 256, PRegEx(bytes(repeated("(a)", n)), 0).match(bytes(repeated("a", n)), 0)) << n;
    EXPECT_FALSE(PRegEx("a", 1).match("a", 0) || PRegEx(static_cast<const char*>(nullptr), 1).match("", 0));
}

TEST(PRegEx, StartsWhereItIsToldAndHasNoGroupsWhereThereAreNone)
{
    const struct {
        const char* pattern;
        int start;
        const char* whole; // null for no match
    } rows[] = {{"ab*", 0, "ab"},    {"ab*", 1, "abb"}, {"ab*", -3, "ab"},  {"ab*", 4, nullptr},
                {"^ab", 3, nullptr}, {"x*", 6, ""},     {"x*", 7, nullptr}, {"", 1, ""}};
    for (const auto& row : rows) {
        PRegEx pattern(row.pattern, 0);
        EXPECT_EQ(row.whole != nullptr, pattern.match("ab abb", row.start)) << row.pattern << " from " << row.start;
        EXPECT_EQ(row.whole ? row.whole : "", str(pattern[0])) << row.pattern << " from " << row.start;
    }
    PRegEx pattern("(a)(b*)", 0);
    EXPECT_EQ("", str(pattern[1]));
    ASSERT_TRUE(pattern.match(bytes(std::string("\0ab\0", 4)), 0));
    EXPECT_EQ("|ab|a|b||", partsOf(pattern, -1, 5));
    EXPECT_FALSE(pattern.match("b", 0));
    EXPECT_EQ("", str(pattern[1]));

    PRegEx many(repeated("(a)(.)", 40).c_str(), 0);
    ASSERT_TRUE(many.match(bytes(repeated(std::string("a\0", 2), 40)), 0));
    EXPECT_EQ(std::string(1, '\0'), str(many[80]));
}

TEST(PRegEx, Splits)
{
    const auto expect = [](const char* pattern, int limit, const std::vector<std::string>& cases) {
        for (const std::string& text : cases) { // "subject => piece|piece|"
            const auto [subject, pieces] = sidesOf(text);
            PRegEx separator(ym::String(pattern), 0);
            const int n = separator.split(bytes(subject), limit);
            EXPECT_EQ(pieces + "|", partsOf(separator, 0, n + 1)) << pattern << " on " << text;
        }
    };
    constexpr int most = 0x7FFFFFFF;
    expect(parameterSplit, most,
           {"a = 1 ;\tb=2  => a = 1|b=2 |", ";a;;b; ;  => |a||b|", " ;;  => ", " => ", "   =>   |"});
    expect(formatSplit, most, {"0   8 \t9\t 10  => 0|8|9|10|", " 0\t8 => |0\t8|"});
    expect(";", 2, {"a;b;c => a|b;c|"});
    expect(";", 1, {"a;b;c => a;b;c|"});
    expect(";", -1, {"a;b;c => a|b|c|"});
    expect("b*", 0, {"abbc => a|c|", "ac => a|c|"});
    expect("^a", 0, {"aab => |ab|"});
}

// A matcher whose time grows with the square of the subject would take minutes here.
TEST(PRegEx, TakesHostileSubjectsInLinearTime)
{
    const char* const patterns[] = {mapping, origin,   connection,  connectionTail, startStop, key,  bandwidth,
                                    media,   numbered, formatSplit, parameterSplit, parameter, trim, "a*a*a*a*a*b"};
    for (const char* text : patterns)
        for (const char* unit : {" ", "\t", "a", "1", "/", "a/", "/11", "1:", "a ", "1\t", ";", " ;", "= ", "("})
            for (const char* end : {"", " ", "\n", "/"}) {
                PRegEx pattern(text, 0);
                const bool small = pattern.match((repeated(unit, 200) + end).c_str(), 0);
                EXPECT_EQ(small, pattern.match((repeated(unit, 60000) + end).c_str(), 0)) << text << " on " << unit;
            }
    for (const char* text : {formatSplit, parameterSplit})
        for (const char* unit : {" ", "\t", "a ", "a;", "\t;"}) {
            const int pieces = PRegEx(text, 0).split((repeated(unit, 100000) + "a").c_str(), 0);
            EXPECT_TRUE(pieces == 1 || pieces == 2 || pieces == 100001) << text << " on " << unit << ": " << pieces;
        }
}

} // namespace

// The matcher: tables of patterns, and random patterns against a plain recursive matcher.
#include <algorithm>
#include <random>
#include <set>

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

// An element of a random pattern: "^", "$", "(", ")", or a set of bytes with its repetition.
struct Element {
    std::string text;
    std::string set; // those of the subjects' alphabet
    std::size_t least = 0;
    std::size_t most = 0;
};

// Tries all ways to match, the longest repetition first, and remembers only which ways have failed.
struct Judge {
    const std::vector<Element>& pattern;
    const std::string& subject;
    std::vector<std::size_t> at = std::vector<std::size_t>(pattern.size() + 1); // where each element began
    std::set<std::pair<std::size_t, std::size_t>> failed = {};

    bool matches(std::size_t element, std::size_t position)
    {
        at[element] = position;
        if (element == pattern.size())
            return true;
        if (failed.count({element, position}) > 0)
            return false;
        const Element& now = pattern[element];
        const std::size_t runEnd = std::min(subject.find_first_not_of(now.set, position), subject.size());
        const bool misplaced = (now.text == "^" && position > 0) || (now.text == "$" && position < subject.size());
        for (std::size_t n = std::min(now.most, runEnd - position) + 1; !misplaced && n-- > now.least;)
            if (matches(element + 1, position + n))
                return true;
        failed.insert({element, position});
        return false;
    }

    // The whole match and all groups, or nothing.
    std::string search()
    {
        for (std::size_t start = 0; !matches(0, start);)
            if (++start > subject.size())
                return "";
        std::string result = subject.substr(at[0], at.back() - at[0]) + "|";
        for (std::size_t open = 0; open < pattern.size(); ++open) {
            std::size_t close = open;
            for (int depth = pattern[open].text == "("; depth > 0;)
                depth += pattern[++close].text == "(" ? 1 : pattern[close].text == ")" ? -1 : 0;
            if (close > open)
                result += subject.substr(at[open], at[close] - at[open]) + "|";
        }
        return result;
    }

    // A separator begins before the end of the subject and ends behind the beginning of the piece before it.
    std::string split(std::size_t limit)
    {
        std::string result;
        std::size_t piece = 0;
        for (std::size_t start = 0; start < subject.size() && limit > 1; ++start)
            if (matches(0, start) && at.back() > piece) {
                result += subject.substr(piece, start - piece) + "|";
                piece = at.back();
                start = piece - 1;
                --limit;
            }
        result += subject.substr(piece);
        return result.substr(0, result.find_last_not_of('|') + 1); // no empty pieces at the end
    }
};

// The last subjects are such that repetitions which overlap give back byte by byte, over and over.
TEST(PRegEx, MatchesLikeTheJudge)
{
    const Element sets[]
        = {{"a", "a"},   {" ", " "},        {";", ";"},           {"/", "/"},       {".", "a b;/=1"},    {"\\s", " \n"},
           {"\\d", "1"}, {"\\S", "ab;/=1"}, {"[^=]", "a b;/1\n"}, {"[a\\d]", "a1"}, {"[^/\\s]", "ab;=1"}};
    const Element repetitions[] = {{"*", "", 0, 999}, {"+", "", 1, 999}, {"{0,1}", "", 0, 1}, {"", "", 1, 1}};
    std::mt19937 random{1};
    const auto below = [&](std::size_t n) { return static_cast<std::size_t>(random() % n); };
    for (int i = 0; i < 41000; ++i) {
        const bool back = i >= 40000;
        std::string subject(back ? 60 + below(240) : below(10), ' ');
        for (char& c : subject)
            c = back ? "a1a1a1a1a1a1a1a1a1a1a1a1a1a1a1 "[below(31)] : "a b;/=1\n"[below(8)];

        std::vector<Element> elements(below(3) == 0 ? 1 : 0, {"^", ""});
        std::size_t open = 0;
        for (std::size_t length = 1 + below(back ? 7 : 6); length > 0; --length) {
            if (below(3) == 0 && ++open)
                elements.push_back({"(", ""});
            const Element& set = sets[below(std::size(sets))];
            const Element& times = repetitions[below(back && below(4) > 0 ? 2 : 4)];
            elements.push_back({set.text + times.text, set.set, times.least, times.most});
            if (open > 0 && below(2) == 0 && open--)
                elements.push_back({")", ""});
        }
        elements.insert(elements.end(), open, {")", ""});
        elements.insert(elements.end(), below(3) == 0 ? 1 : 0, {"$", ""});

        std::string text;
        for (const Element& element : elements)
            text += element.text;
        PRegEx engine(text.c_str(), 0);
        Judge judge{elements, subject};
        const int nGroups = static_cast<int>(std::count(text.begin(), text.end(), '('));
        const bool found = engine.match(bytes(subject), 0);
        ASSERT_EQ(judge.search(), found ? partsOf(engine, 0, nGroups + 1) : "") << text << " on " << subject;
        const std::size_t limit = below(2) == 0 ? 0x7FFFFFFF : 1 + below(4);
        const int nPieces = engine.split(bytes(subject), static_cast<int>(limit));
        const std::string pieces = judge.split(limit);
        ASSERT_EQ(pieces + (pieces.empty() ? "" : "|"), partsOf(engine, 0, nPieces)) << text << " splits " << subject;
    }
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

// The line view: operations as words, "set c N", on lists of lines written in one row, "m=1 a=x".
#include <algorithm>
#include <functional>
#include <map>

#include <sdp/SDPDesc.h>

#include "sdp/line/SDPDesc_impl.h"
#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::String;

namespace {

char byChar(char type)
{
    return type;
}

Field byField(char type)
{
    return fieldId(type);
}

template <class List, class Type> std::string run(List& d, const std::string& commands, Type (*as)(char))
{
    return outcomes(commands, [&](const std::vector<std::string>& w, String* a, String* b) {
        const auto n = [&](std::size_t i) { return std::stoi(w[i]); };
        const auto s = [&](std::size_t i) { return bytes(w[i]); };
        const auto c = [&](std::size_t i) { return w[i] == "0" ? '\0' : w[i][0]; };
        const auto t = [&](std::size_t i) { return as(c(i)); };
        const std::map<std::string, std::function<int()>> operations
            = {{"parse", [&] { return d.parse(unbarred(w[1])); }},
               {"parseLine", [&] { return d.parseLine(s(1)); }},
               {"generate", [&] { return d.generate(a); }},
               {"set", [&] { return d.set(t(1), s(2)); }},
               {"get", [&] { return d.get(t(1), a); }},
               {"remove", [&] { return d.remove(t(1)); }},
               {"has", [&] { return d.has(t(1)); }},
               {"nAttr", [&] { return d.nAttr(); }},
               {"setAttr", [&] { return d.setAttr(n(1), s(2), s(3)); }},
               {"attr", [&] { return d.attr(n(1), a, b); }},
               {"removeAttr", [&] { return d.removeAttr(n(1)); }},
               {"hasAttr", [&] { return d.hasAttr(s(1)); }},

               // Media sections
               {"nMedia", [&] { return d.nMedia(); }},
               {"setMedia", [&] { return d.setMedia(n(1), t(2), s(3)); }},
               {"media", [&] { return d.media(n(1), t(2), a); }},
               {"removeMedia", [&] { return d.removeMedia(n(1), t(2)); }},
               {"hasMedia", [&] { return d.hasMedia(n(1), t(2)); }},
               {"nMediaAttr", [&] { return d.nMediaAttr(n(1), c(2)); }},
               {"setMediaAttr", [&] { return d.setMediaAttr(n(1), n(2), s(4), s(5), c(3)); }},
               {"mediaAttr", [&] { return d.mediaAttr(n(1), n(2), a, b, c(3)); }},
               {"removeMediaAttr", [&] { return d.removeMediaAttr(n(1), n(2), c(3)); }},
               {"hasMediaAttr", [&] { return d.hasMediaAttr(n(1), s(3), c(2)); }}};
        return operations.at(w[0])();
    });
}

struct Row {
    const char* before; // what stands behind "v= o= s= "
    const char* commands;
    const char* results;
    const char* after = nullptr; // null if the list stays as it is
};

template <class Type> void check(const Row& row, Type (*as)(char))
{
    SCOPED_TRACE(std::string(row.commands) + " on " + row.before);
    const std::string head = "v= o= s= ";
    SDPDesc list(" ");
    ASSERT_EQ(0, list.parse(bytes(replaced(head + row.before, " ", "\n"))));
    EXPECT_EQ(row.results, run(list, row.commands, as));
    EXPECT_EQ(replaced(head + (row.after ? row.after : row.before) + " ", "  ", " "), run(list, "generate", as));
}

TEST(SDPDesc, ReadsAndChangesLines)
{
    const Row rows[] = {
        {"c=1 c=2 i= m=3 b=4 m=5", "get c; get i; get m; get b; get 0; get k", "1  3 -1 -1 -1"},
        {"c=1 m=3 b=4 m=5", "has c; has b; has m; has k; has 0; has =", "1 1 1 0 0 0"},
        {"a=n:x:y a=:x a=n a= m=1 a=s", "attr 0; attr 1; attr 2; attr 3; attr 4; attr -1", "n:x:y :x n: : -1 -1"},
        {"a=pq a=p", "hasAttr p; hasAttr pq", "1 1"},
        {"a=p a=p:1 a=P b=q a=p m=1 a=p", "nAttr; hasAttr p; hasAttr P; hasAttr q; hasMediaAttr 0 a p", "4 2 1 0 1"},
        {"c=1 a=2", "nMedia; media 0 m; media -1 c; hasMedia 0 c; nMediaAttr 0 a; hasMediaAttr 0 a 2", "0 -1 -1 0 0 0"},
        {"m=1 c=1 m=2 c=2 c= m=3", "nMedia; media 1 c; media -1 m; media 2 m; media 2 c; media 3 m", "3 2 1 3 -1 -1"},
        {"a=0 m=1 a=1 b=1 a=2 m=2 a=3", "nMediaAttr 0 a; nMediaAttr -1 b; nMediaAttr 2 a; nMediaAttr 0 m", "2 1 0 0"},
        {"m=1 b=A:8:9 b=A a=p m=2 a=q", "mediaAttr -7 0 b; mediaAttr 0 1 b; mediaAttr 0 2 b; mediaAttr 0 -1 b",
         "A:8:9 A: -1 -1"},

        // Changes
        {"", "parse c=1|m=|s=2|; parse; parse t=|", "0 0 0", "c=1 m= s=2 t="},
        {"", "parse c=1|x=1|t=2|; parse t=1||t=2|", "-1 -1", "c=1 t=1"},
        {"t=1", "parseLine c; parseLine; parseLine c/=0; parseLine =c; parseLine \xf3=1; parseLine {=1",
         "-1 -1 -1 -1 -1 -1"},
        {"t=1", "set k 2; set c; set i 1; set m 2; parseLine a=; parseLine a=x=y", "0 0 0 -1 0 0",
         "i=1 c= k=2 t=1 a= a=x=y"},
        {"a=1 t=1 m=1 a=1", "set a 2; set t 3", "0 0", "t=3 a=2 t=1 m=1 a=1"},
        {"c=1 m=1 c=2 c=3", "remove c; remove c; remove k; remove 0; remove m", "0 0 -1 -1 0", "c=3"},
        {"m=1 a=s", "setAttr 7 n v:w; setAttr 0 p", "0 0", "a=p m=1 a=s"},
        {"a=p a=q b=q a=r", "setAttr 0 n; setAttr 9 u; setAttr -1 w", "0 0 0", "a=n a=q a=u a=w b=q a=r"},
        {"a=p a=q b=q a=r m=1", "removeAttr 1; removeAttr 1; removeAttr -1", "0 -1 -1", "a=p b=q a=r m=1"},
        {"m=1 a=p", "removeAttr 0; removeMedia 0 b; removeMedia 1 m; removeMediaAttr 0 1 a", "-1 -1 -1 -1"},
        {"c=1", "removeMedia 0 c; removeMediaAttr 0 0 c; setMedia 0 t", "-1 -1 0", "c=1 t="},
        {"m=1 i=1 b=1", "setMedia 0 c 2; setMedia 0 b 2; setMedia 0 a 3", "0 0 0", "m=1 i=1 c=2 b=2 a=3"},
        {"m=1 c=1 m=2 c=2", "setMedia -5 c 4; setMedia 0 m 3; setMedia 1 t", "0 0 0", "m=3 c=4 t= m=2 c=2"},
        {"m=1 a=1", "setMedia 1 c 2; setMedia 1 m 3; setMedia 1 c 4", "0 0 0", "m=1 a=1 c=2 m=3 c=4"},
        {"c=1 m=1 a=1 m=2 a=2 m=3", "removeMedia 0 m; media 0 m; removeMedia 1 m; nMedia", "0 2 0 1", "c=1 m=2 a=2"},
        {"c=1 m=1 m=2 c=2", "removeMedia 0 c; removeMedia -1 m; nMedia", "0 0 1", "c=1 m=2"},
        {"m=1 a=1 a=2 b=1 a=3", "setMediaAttr 0 -1 a o; setMediaAttr 4 0 a p", "0 0", "m=1 a=1 a=2 a=o b=1 a=3 a=p"},
        {"", "setMediaAttr 0 0 a n; mediaAttr 0 0 a; attr 0", "0 -1 n:", "a=n"},
        {"m=1 a=p a=q b=1 a=r m=2", "removeMediaAttr 0 1 a; removeMediaAttr 0 1 a", "0 -1", "m=1 a=p b=1 a=r m=2"}};
    for (const Row& row : rows)
        check(row, byChar), check(row, byField);
    // Types without a place go before the section, or to the head of the list, where the next one replaces them.
    check({"m=1 a=1", "setMedia 0 x 1; setMedia 0 \xed 2; setMedia 0 x 3", "0 0 0", "x=1 \xed=2 x=3 m=1 a=1"}, byChar);
    check({"m=1", "set x 2; get x; generate; set \xfe 3; get x; get \xfe; remove \xfe", "0 2 -1 0 -1 3 0"}, byChar);
    // The line is just "=".
    check({"m=1", "setMediaAttr 0 0 0; nMediaAttr 0 =; mediaAttr 0 0 =; hasMediaAttr 0 =", "0 1 -1 0", "m=1 ="},
          byChar);
}

TEST(SDPDesc, GeneratesOnlyWhatBeginsLikeADescription)
{
    SDPDesc list("\r\n");
    for (const char* text : {"", "v=|o=|", "v=|s=|o=|", "v=|o=|m=|s=|"}) {
        EXPECT_EQ(0, list.parse(unbarred(text)));
        EXPECT_EQ("untouched", generated(list)) << text;
        list.clear();
    }
    EXPECT_EQ(0, list.parse("v=0\no=x\r\ns=y\rs=\ra=2"));
    list.dump();
    EXPECT_EQ(-1, list.generate(nullptr));
    EXPECT_EQ("v=0|o=x|s=y|s=|a=2|", generated(list));
    EXPECT_EQ(0, list.get('a', nullptr) + list.attr(0, nullptr, nullptr));
    list.clear();
    EXPECT_EQ("0 0 0 0 0 0 3", // the last line goes, twice
              run(list, "parse s=1|; remove s; parse m=1|a=2|; removeMedia 0 m; nMedia; parse t=3|; get t", byChar));
    list.clear();
    EXPECT_EQ("0 -1 1 0", run(list, "set 0; get =; has =; has 0", byChar)); // the line is just "="
    EXPECT_EQ(0, list.parse(bytes(std::string("m=1\na=n\0:\0", 10))));
    EXPECT_EQ(std::string("n\0:\0", 4), run(list, "mediaAttr 0 0 a", byChar));
    EXPECT_EQ(0, list.media(0, 'm', nullptr) + list.mediaAttr(0, 0, nullptr, nullptr, 'a'));
}

// Every loop here would take minutes if each look-up walked from the first line.
TEST(SDPDesc, LoopsOverLongListsOnce)
{
    constexpr int n = 100000;
    SDPDesc list("\n");
    const std::string sections = repeated("m=1\na=q:2\nb=r:3\n", n);
    ASSERT_EQ(0, list.parse(bytes(repeated("a=p:1\n", n) + sections + repeated("a=s:4\n", n))));
    String name;
    String value;
    for (int i = 0; i < 2 * n; ++i)
        ASSERT_EQ(0, list.attr(i < list.nAttr() ? i : 2 * n - 1 - i, &name, &value));
    for (int i = 0; i < list.nMedia(); ++i) {
        ASSERT_EQ(1, list.hasMedia(i, 'b') - list.hasMedia(i, 'k'));
        ASSERT_EQ(-1, list.media(i, 'c', &value) + list.media(i, FieldMedia, &value));
        for (const char type : {'a', 'b', 'k'})
            for (int k = 0; k < n - 1 && k < list.nMediaAttr(i, type); ++k)
                ASSERT_EQ(k == 0 ? 0 : -1, list.mediaAttr(i, k, &name, &value, type)); // the "b=" line ends the run
    }
    EXPECT_EQ(2 * n + 2, list.nMediaAttr(n - 1, 'a') + list.hasMediaAttr(n - 1, "q", 'a') + list.hasAttr("p"));

    for (int i = 0; i < list.nMedia(); ++i)
        ASSERT_EQ(0, list.hasMedia(i, 'b') == 1 ? list.removeMedia(i, 'b') : -1);
    for (int i = 0; i < list.nMediaAttr(n - 1, 'a'); ++i) // every other one
        ASSERT_EQ(0, list.removeMediaAttr(n - 1, i, 'a'));
    while (list.nAttr() > 0)
        ASSERT_EQ(0, list.removeAttr(list.nAttr() - 1));
    EXPECT_EQ(n / 2, list.nMediaAttr(n - 1, 'a'));
}

TEST(SDPDescState, HasRanksAndWalks)
{
    using State = SDPDesc::SDPDesc_impl;
    State state;
    EXPECT_TRUE(State::init && state.lineBreak.length() == 0);
    const auto expectOrder = [](const std::string& order, const std::string& actual, const int* ranks) {
        EXPECT_EQ(order + '\0', actual);
        for (int c = 0; c < 128; ++c)
            EXPECT_EQ(static_cast<int>(order.find(static_cast<char>(c))), ranks[c]) << order << " " << c;
    };
    expectOrder("vosiuepcbzktram", {State::order_session, sizeof State::order_session}, State::revorder_session);
    expectOrder("tr", {State::order_time, sizeof State::order_time}, State::revorder_time);
    expectOrder("micbka", {State::order_media, sizeof State::order_media}, State::revorder_media);

    for (const char* line : {"v=", "a=0", "a=1", "m=2", "a=3", "m=4", "b"})
        state.lines.push_back(line);
    std::string walked;
    const auto note = [&](auto at) { walked += at == state.lines.end() ? "end " : str(*at) + " "; };
    const auto from = [&](int n) { return std::next(state.lines.begin(), n); };
    const int walks[][2] = {{0, 0}, {0, 1}, {0, 2}, {0, -3}, {3, 0}, {4, 0}, {7, 0}};
    for (const auto& [start, n] : walks) {
        note(state.skip_until_attribute(from(start), n, 'a'));
        note(state.skip_until_mediadesc(from(start), n));
    }
    note(state.skip_until_attribute(from(0), 1, 'm'));
    EXPECT_EQ("a=0 m=2 a=1 m=4 end end a=0 m=2 end m=2 a=3 m=4 end end m=4 ", walked);
}

} // namespace

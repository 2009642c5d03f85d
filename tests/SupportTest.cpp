// Strings, lists of names, streams, lines and the warning.
#include <algorithm>
#include <cstring>

#include <tovik/LineAdapter.h>
#include <tovik/NamedList.h>
#include <tovik/warning.h>

#include "support.h"

using namespace test;
using ym::NamedList;
using ym::String;

namespace {

TEST(String, ReadsAndWritesNumbers)
{
    for (const std::string row :
         {// The text, and its values in 16 and 32 bits, each with an exclamation mark if it is said to be one.
          "8000 => 8000! 8000!", " \t007\r\n => 7! 7!", "65535 => 65535! 65535!", "65536 => 65535 65536!", " => 0 0",
          "4294967295 => 65535 4294967295!", "4294967296 => 65535 4294967295", "-1 => 0 0", "+1 => 0 0", "1 2 => 0 0",
          "99999999999999999999999  => 65535 4294967295", "99999999999x => 0 0", "0x1 => 0 0", "  => 0 0", "1.0 => 0 0",
          "\xb2 => 0 0"}) {
        const auto [text, values] = sidesOf(row);
        std::string told;
        for (const bool wide : {false, true}) {
            bool ok = values.find('!') == std::string::npos;
            const unsigned long value = wide ? bytes(text).toUInt32(&ok, 10) : bytes(text).toUInt16(&ok, 10);
            told += (wide ? " " : "") + std::to_string(value) + (ok ? "!" : "");
        }
        EXPECT_EQ(values, told) << text;
    }
    EXPECT_EQ(255U + 1295U, String("fF").toUInt32(nullptr, 16) + String("zz").toUInt32(nullptr, 36));
    EXPECT_EQ(0U, bytes(std::string("1\0", 2)).toUInt32(nullptr, 10));
    for (const int base : {-1, 0, 1, 37})
        EXPECT_EQ(0U, String("1").toUInt32(nullptr, base)) << base;
    for (const unsigned long number : {0UL, 10UL, 4294967295UL, ~0UL})
        EXPECT_EQ(std::to_string(number), str(String("x").setNum(number)));
    EXPECT_EQ("65535", str(String().setNum(static_cast<unsigned short>(65535))));
}

TEST(String, FindsAndCutsWithinItsBounds)
{
    const String line("a=x:y:");
    const unsigned int none = String::npos;
    const struct {
        unsigned int start, end;
        const char* part;
        unsigned int colon; // from the start on
    } rows[] = {{0, 3, "a=x", 3}, {2, 3, "x", 3},      {4, 9, "y:", 5},   {4, none, "y:", 5},
                {2, 2, "", 3},    {6, none, "", none}, {9, 12, "", none}, {3, 2, "", 3}};
    for (const auto& row : rows) {
        EXPECT_EQ(row.part, str(line.substring(row.start, row.end))) << row.start << " to " << row.end;
        EXPECT_EQ(row.colon, line.find(':', row.start)) << row.start;
    }
    EXPECT_EQ(none, line.find('\0', 0));
    expectAll(
        0, {line.compare("a=x", 0, 3), line.compare("", 0, 0), line.compare("x:y:", 2, 99), line.compare("", 99, 4)});
    EXPECT_TRUE(line.compare("a=y", 0, 3) < 0 && line.compare("a=xx", 0, 3) < 0);
    EXPECT_TRUE(line.compare("a=", 0, 3) > 0 && line.compare("A=x", 0, 3) > 0);
}

TEST(String, TakesPartsOfItselfAndNulBytes)
{
    std::string expected = "ab";
    String text("ab");
    for (int i = 0; i < 10; ++i) {
        text.append(text.chars()).append(text.chars() + 1, 2);
        expected += expected;
        expected += expected.substr(1, 2);
    }
    EXPECT_EQ(expected, str(text));
    text.assign(text.chars() + 2);
    text = text.chars() + 3;
    const String& self = text;
    text = self;
    EXPECT_EQ(expected.substr(5), str(text));

    const char raw[] = {'a', '\0', 'b', '\0', '\0'};
    EXPECT_EQ(std::string(raw, 4), str(text.assign(raw, 5)));
    EXPECT_EQ(std::string(raw, 3), str(String(text.assign(raw, 3))));
    EXPECT_EQ("", str(text.assign(nullptr, 0).append(nullptr, 0).append(nullptr)) + str(String(nullptr)));

    String from("moved");
    String to(std::move(from));
    EXPECT_EQ(" moved", str(from) + " " + str(to));
    from = std::move(to);
    EXPECT_EQ("moved ", str(from) + " " + str(to));
    String& same = from;
    from = std::move(same);
    EXPECT_EQ("moved", str(from));

    String inPlace = String::inPlace("in place", 8);
    std::memcpy(inPlace.extend(5), ", not", 5);
    EXPECT_EQ("in place, not", str(inPlace));
    EXPECT_EQ("in place", str(inPlace.shorten(100).shorten(8)));
    EXPECT_EQ("place at last", str(String::inPlace("place at last", 13).shorten(13)));
    EXPECT_EQ("place", str(String::inPlace("place at last", 13).shorten(5)));
    EXPECT_EQ("a longer place", str(String::inPlace("a longer place at last", 22).shorten(14)));
    EXPECT_EQ("longer than the place", str(String::inPlace("place", 5).assign("longer than the place")));
    EXPECT_EQ("", str(String::inPlace("", 0).append("", 0).shorten(0)));
}

// With the square of the number of names, this would take minutes.
TEST(NamedList, HoldsManyNames)
{
    constexpr unsigned long n = 200000;
    NamedList list(":");
    String name;
    for (unsigned long i = 0; i < n; ++i)
        if (!list.exist(name.setNum(i)))
            list.insert(name, "", -1);
    ASSERT_EQ(n, list.lines());
    for (unsigned long i = 0; i < n; ++i)
        ASSERT_TRUE(list.get(&name, nullptr, static_cast<unsigned int>(i)) && name.toUInt32(nullptr, 10) == i);
    for (unsigned long i = 0; i < n; ++i)
        ASSERT_TRUE(list.remove(name.setNum(i), 0));
    EXPECT_EQ(0U, list.lines());

    for (unsigned long i = 0; i < n; ++i)
        list.add("same", "");
    for (unsigned int left = n; left > 2; --left)
        ASSERT_TRUE(list.remove("same", 1) && list.get(&name, nullptr, 0) && list.get(&name, nullptr, 1));
}

// All lines, each with a bar behind it.
template <class Stream> std::string linesOf(const std::string& text)
{
    using Mode = ym::LineAdapter::linebreak_mode;
    Stream stream(text.data(), static_cast<unsigned int>(text.size()));
    ym::LineAdapter reader(&stream, static_cast<Mode>(0), static_cast<Mode>(3), static_cast<Mode>(-1));
    std::string lines;
    String line;
    for (; reader.readLine(&line) > 0; line = "untouched")
        lines += str(line) + "|";
    EXPECT_EQ(0, reader.readLine(&line));
    EXPECT_EQ(lines.empty() ? "" : "untouched", str(line));
    return lines;
}

TEST(LineAdapter, CutsATextIntoLines)
{
    for (const std::string row :
         {// A "0" stands for a NUL byte
          " => ", "a\r\nb\nc\rd => a|b|c|d|", "a=x\r\n => a=x|", "a\r\n\r\n\r\n => a|", "\n\r\r\n => ",
          "\r\r\n\nb => |||b|", "a\n\rb => a||b|", "a\r\n\r\nb\n\nc\r\rd => a||b||c||d|", "a0b0\nc => a0b0|c|"}) {
        const auto [text, lines] = sidesOf(replaced(row, "0", std::string(1, '\0')));
        EXPECT_EQ(lines, linesOf<ym::MemoryIO>(text)) << text;
        EXPECT_EQ(lines, linesOf<Trickle<1>>(text)) << text;
        EXPECT_EQ(lines, linesOf<Trickle<2>>(text)) << text;
        EXPECT_EQ(lines, linesOf<Trickle<4>>(text)) << text;
    }
}

TEST(Output, GoesToMemoryAndToStandardError)
{
    ym::MallocIO out;
    out.write(nullptr, 0);
    EXPECT_TRUE(out.length() == 0 && out.buffer());
    for (int i = 0; i < 1000; ++i)
        out.write("a\0b", 3);
    EXPECT_EQ(repeated(std::string("a\0b", 3), 1000),
              std::string(static_cast<const char*>(out.buffer()), out.length()));

    testing::internal::CaptureStderr();
    ym_warning_print("100% of it");
    EXPECT_EQ("100% of it\n", testing::internal::GetCapturedStderr());
}

} // namespace

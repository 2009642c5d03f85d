// What the tests have in common: texts and operations in notations that fit into a table.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <tovik/String.h>

namespace test {

// A number that fields of 32 bits hold as 4294967295, on hosts of 32 and of 64 bits alike.
constexpr unsigned long tooMuch = ~0UL - (~0UL >> 16 >> 16);

// What a cleared session generates.
const std::string cleared = "v=0|o=- 0 0   |s=session|t=0 0|";

// The bytes of a string, NUL bytes among them, and back.
inline std::string str(const ym::String& text)
{
    return {text.chars(), text.length()};
}

inline ym::String bytes(const std::string& text)
{
    ym::String result;
    result.append(text.data(), static_cast<unsigned int>(text.size()));
    return result;
}

inline std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

inline std::string replaced(const std::string& text, const std::string& from, const std::string& to)
{
    std::string result;
    std::size_t start = 0;
    for (std::size_t at; (at = text.find(from, start)) != std::string::npos; start = at + from.size())
        result.append(text, start, at - start).append(to);
    return result.append(text, start);
}

inline std::string repeated(const std::string& text, std::size_t n)
{
    std::string result;
    while (n-- > 0)
        result += text;
    return result;
}

// The sides of a row "in => out". Where there is no arrow, they are the same.
inline std::pair<std::string, std::string> sidesOf(const std::string& row)
{
    const std::size_t arrow = row.find(" => ");
    return {row.substr(0, arrow), arrow == std::string::npos ? row : row.substr(arrow + 4)};
}

// A text with bars for its line ends: "v=0|s=x|".
inline ym::String unbarred(const std::string& text)
{
    return bytes(replaced(text, "|", "\r\n"));
}

// What an object generates, with bars.
template <class Object> std::string generated(Object& object)
{
    ym::String text("untouched");
    object.generate(&text);
    return replaced(str(text), "\r\n", "|");
}

inline void expectAll(int expected, const std::vector<int>& results)
{
    EXPECT_EQ(std::vector<int>(results.size(), expected), results);
}

// Checks what an object tells of itself once it is filled, what it tells when it is cleared, and that a copy, which
// held something else before, goes on to tell the same.
template <class Object, class Tell>
void expectValue(void (*fill)(Object&), void (*fillOther)(Object&), Tell tell, const std::string& told)
{
    Object object;
    Object copy;
    const std::string fresh = tell(object);
    fill(object);
    fillOther(copy);
    copy = object;
    const Object& self = copy;
    copy = self;
    object.dump();
    EXPECT_EQ(told, tell(object));
    object.clear();
    EXPECT_EQ(fresh, tell(object)) << told;
    EXPECT_EQ(told, tell(copy));
}

// The outcomes of several commands, "add x 1; add y", which are carried out by operation(words, &a, &b): what it put
// into a and b, as "a:b", or its result where it left them alone. Words that are missing read as empty texts.
template <class Operation> std::string outcomes(const std::string& commands, Operation operation)
{
    std::istringstream in(commands);
    std::string results;
    for (std::string command; std::getline(in, command, ';');) {
        std::istringstream line(command);
        std::vector<std::string> words{std::istream_iterator<std::string>(line), {}};
        words.resize(6);
        ym::String a("untouched");
        ym::String b("untouched");
        const int result = operation(words, &a, &b);
        std::string outputs = str(a) + (str(b) == "untouched" ? "" : ":" + str(b));
        if (outputs == "untouched" || result != 0)
            outputs = std::to_string(result) + (outputs == "untouched" ? "" : " and " + outputs);
        results += (results.empty() ? "" : " ") + outputs;
    }
    return results;
}

} // namespace test

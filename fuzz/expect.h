// What a property has to say where it does not hold.
#pragma once

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <string>

namespace fuzz {

template <class T> std::string shown(const T& value)
{
    std::ostringstream out;
    out << value;
    std::string result;
    for (const char c : out.str()) {
        char escaped[5];
        std::snprintf(escaped, sizeof escaped, "\\x%02x", static_cast<unsigned char>(c));
        result += std::isprint(static_cast<unsigned char>(c)) != 0 || c == '\n' ? std::string(1, c) : escaped;
    }
    return result;
}

// Ends the process, which is how a fuzzer is told of a finding.
[[noreturn]] inline void fail(const std::string& property)
{
    std::fprintf(stderr, "%s\n", property.c_str());
    std::abort();
}

inline void expect(bool holds, const char* property)
{
    if (!holds)
        fail(property);
}

// Of long texts, what they have from shortly before the first difference on is shown.
template <class A, class B> void expectEqual(const A& expected, const B& actual, const std::string& what)
{
    if (expected == actual)
        return;
    const std::string should = shown(expected);
    const std::string does = shown(actual);
    std::size_t same = 0;
    while (same < std::min(should.size(), does.size()) && should[same] == does[same])
        ++same;
    const std::size_t from = same > 80 ? same - 80 : 0;
    fail(what + " gives\n" + does.substr(from, 300) + "\nbut should give\n" + should.substr(from, 300));
}

} // namespace fuzz

// One input, as libFuzzer hands it over. Each property defines it.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

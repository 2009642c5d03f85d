// The forms of values: what a value has to look like to be read, and why it comes out as another one.
#pragma once

#include <string_view>

#include "check/lines.h"

namespace ym::sdpcheck {

// Whether a value has the form that its pattern says.
bool matches(const char* pattern, std::string_view value);

namespace form {

inline constexpr const char* origin = R"(^\s*\S+\s+\S+\s+\S+\s+\S+\s+\S+\s+\S+\s*$)";
inline constexpr const char* connection = R"(^\s*\S+\s+\S+\s+[^(/|\s)]+/{0,1}\S*$)";
inline constexpr const char* bandwidth = R"(^\S+:\d+$)";
inline constexpr const char* key = R"(^[^:]+:{0,1}\S*$)";
inline constexpr const char* time = R"(^\d+\s+\d+$)";
inline constexpr const char* media = R"(^\S+\s+\d+\s+\S+\s+.*$)";
inline constexpr const char* mediaWithPortCount = R"(^\S+\s+\d+/\S*\s+\S+\s+.*$)";
inline constexpr const char* mediaWithoutFormat = R"(^\S+\s+\d+\s+\S+$)";
inline constexpr const char* numbered = R"(^(\d+)\s+(.*)$)";

} // namespace form

// Why a text with this line is refused; null if it is not.
const Kind* whyRefused(const Line& line);

// Why a line of these types does not come out, be it of the session or of a section.
const Kind& whyLost(const Line& line);

// Why a line comes out as another one.
const Kind& whyChanged(const Line& line, std::string_view written);

// Adds that a line comes out as another one, if it does.
void compare(const Line& line, std::string_view written, Findings& findings);

// Whether nothing but white space tells the texts apart.
bool isSameButForSpace(std::string_view a, std::string_view b);

// Whether a run of digits in the text is larger than 65535, or than 4294967295.
bool hasLargeNumber(std::string_view text, bool isWide);

} // namespace ym::sdpcheck

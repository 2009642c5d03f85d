// Texts as a person at a terminal gets to see them, and the words in them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <tovik/String.h>

namespace ymsdp {

// The position of what is not found.
inline constexpr std::size_t none = std::string_view::npos;

std::string_view view(const ym::String& text);
ym::String stringOf(std::string_view text);

// The text with control characters, a terminal's own commands among them, and bytes that are not UTF-8 as "\xNN".
std::string printable(std::string_view text);

// A line as messages quote it: printable, and cut where it would fill the screen.
std::string quote(std::string_view line);

// What stands between blanks.
std::vector<std::string_view> words(std::string_view text);

// Whether the text begins with the other one, capitals or not.
bool beginsWith(std::string_view text, std::string_view beginning);

} // namespace ymsdp

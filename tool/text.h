// Texts as a person at a terminal gets to see them.
#pragma once

#include <string>
#include <string_view>

#include <tovik/String.h>

namespace ymsdp {

std::string_view view(const ym::String& text);

// The text with control characters, a terminal's own commands among them, and bytes that are not UTF-8 as "\xNN".
std::string printable(std::string_view text);

} // namespace ymsdp

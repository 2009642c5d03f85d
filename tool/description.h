// The text that the tool works on: where it comes from, its lines, and why the library refuses it.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace ymsdp {

// Why a command can not do its work: a file that can not be read, an argument, a text that the library refuses.
struct Trouble : std::runtime_error {
    using runtime_error::runtime_error;
};

struct Description {
    std::string name;        // for messages
    std::string text;        // without what stands in front
    std::size_t skipped = 0; // lines in front
};

using Lines = std::vector<std::string>;

// The lines up to the first "m=" line, then those of each section.
using Levels = std::vector<Lines>;

// An attribute, "a=name:value" or "a=name", cut at its first colon.
struct Attribute {
    std::string_view name;
    std::string_view value;
};

// Reads the whole file; "-" is the standard input. A SIP, RTSP or HTTP message in front of the description is left
// out, up to the first line that begins with "v=". Throws Trouble.
Description readDescription(const std::string& path);

// The lines of a text, cut as the library cuts it: empty ones among them, but not at the end.
Lines linesOf(std::string_view text);

Levels levelsOf(std::string_view text);
Lines joined(const Levels& levels);

bool isType(std::string_view line, char type);

// The value of the first line of the type; empty if there is none.
std::string_view valueOf(const Lines& level, char type);

std::optional<Attribute> attributeOf(std::string_view line);

// What to tell about a text that the library refuses: the first line that is to blame.
std::string refusal(const Description& description);

// Throws Trouble if the line view does not take the text.
void requireLines(const Description& description);

} // namespace ymsdp

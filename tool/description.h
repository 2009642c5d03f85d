// The text that the tool works on: where it comes from, its lines, and what is wrong with it.
#pragma once

#include <stdexcept>
#include <string>
#include <vector>

#include <tovik/String.h>

namespace ymsdp {

// Trouble of the tool's own, a file that can not be read, say.
struct Trouble : std::runtime_error {
    using runtime_error::runtime_error;
};

// A description that the library refuses.
struct Refusal : std::runtime_error {
    using runtime_error::runtime_error;
};

struct Description {
    std::string name; // for messages
    ym::String text;
    std::vector<ym::String> lines; // as the library cuts the text
};

// The lines of a text, cut like SDPDesc::parse does it.
std::vector<ym::String> linesOf(const ym::String& text);

// Reads the whole file; "-" is the standard input. Throws Trouble.
Description readDescription(const std::string& path);

// What to tell about a description that was refused: the first line that is to blame.
Refusal refusal(const Description& description);

} // namespace ymsdp

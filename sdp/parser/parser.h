// What the parser's files use of each other.
#pragma once

#include <cstdint>
#include <vector>

#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>
#include <tovik/String.h>

#include "sdp/media/fields.h"

namespace ym::SDP {

// For PRegEx::split: however many pieces there are.
constexpr int noLimit = 0x7FFFFFFF;

// The numbers behind the transport of an "m=" line, in the order of the text.
using Formats = std::vector<std::uint16_t>;

// The value of a "c=" line. What follows the address stays text: a session reads it as numbers, a section as a part of
// its address.
struct ConnectionLine {
    Connection connection;
    String ttl;     // empty if there is none
    String numAddr; // empty if there is none
};

// False if the value has no such form; `*line` is left alone then.
bool readConnection(const String& value, ConnectionLine* line);

// Adds all usable media sections of the text to the session.
void parseSections(SDPDesc& desc, SDPDescEx& session);

// Gives a section its payloads, and what its "b=" and "a=" lines say.
void parseMediaAttributes(SDPDesc& desc, int section, SDPMedia& media, Formats formats);

} // namespace ym::SDP

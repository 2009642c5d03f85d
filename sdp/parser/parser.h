// What the parser's files use of each other.
#pragma once

#include <string_view>

#include <sdp/SDPDescEx.h>

#include "sdp/parser/Lines.h"

namespace ym::SDP {

// The value of a "c=" line. What follows the address stays text: a session reads it as numbers, a section as a part of
// its address.
struct ConnectionLine {
    NetworkType netType = NetworkTypeNone;
    AddressType addrType = AddressTypeNone;
    std::string_view address;
    std::string_view ttl;     // empty if there is none
    std::string_view numAddr; // empty if there is none
};

// False if the value has no such form; `*line` is left alone then.
bool readConnection(std::string_view value, ConnectionLine* line);

// Adds all usable media sections of the text to the session. The lines begin with an "m=" line or are at their end.
void parseSections(Lines& lines, SDPDescEx::SDPDescEx_impl& session);

} // namespace ym::SDP

// What the library makes of a description, printed to the standard output for a person to read.
#pragma once

#include <sdp/SDPDescEx.h>

#include "description.h"

namespace ymsdp {

// The lines by level, with the numbers under which SDPDesc finds attributes.
void showLines(const Description& description);

// The fields of SDPDescEx that are set, its sections and their payloads.
void showObjects(ym::SDP::SDPDescEx& session);

// The lines that differ when the objects are written again.
void showChanges(const Description& description, ym::SDP::SDPDescEx& session);

} // namespace ymsdp

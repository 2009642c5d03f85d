#pragma once

#include <sdp/SDPMedia.h>

#include "check/lines.h"

namespace ym::sdpcheck {

// Why a section is lost with all its lines, by its "m=" line; null if it is not.
const Kind* whySectionLost(const Line& media);

// The lines of a section, from its "m=" line on, beside the object that was read from them.
void checkSection(const Lines& lines, SDP::SDPMedia& media, Findings& findings);

} // namespace ym::sdpcheck

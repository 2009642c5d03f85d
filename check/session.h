#pragma once

#include <string_view>

#include "check/lines.h"

namespace ym::sdpcheck {

// The lines of the session level beside the text that the objects write.
void checkSession(const Lines& lines, std::string_view text, Findings& findings);

} // namespace ym::sdpcheck

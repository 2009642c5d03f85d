// Other libraries, each with its adapter in a file of its own, and compiled where its development package is found.
#pragma once

#include "bench/operations.h"

namespace bench {

Peer gstreamer();
Peer osip2();
Peer sofia();

} // namespace bench

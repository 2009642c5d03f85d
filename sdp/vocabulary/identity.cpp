#include <sdp/vocabulary.h>

#define YM_SDP_VERSION "2.0"
#define YM_SDP_UPDATE "2006/08/02 02:34:13"

namespace ym {

const char* SDP_version = YM_SDP_VERSION;
const char* SDP_update = YM_SDP_UPDATE;
const char* SDP_libinfo = "Tovik SDP library version " YM_SDP_VERSION "\n"
                          "Copyright (c) the ym_sdp authors, MIT license\n"
                          "Last Update: " YM_SDP_UPDATE "\n";

} // namespace ym

#include <gst/sdp/gstsdpmessage.h>

#include "bench/peers/peers.h"

namespace bench {

namespace {

bool pass(const Text& text, bool write)
{
    GstSDPMessage* message = nullptr;
    gst_sdp_message_new(&message);
    const auto* bytes = reinterpret_cast<const guint8*>(text.bytes.data());
    bool done = gst_sdp_message_parse_buffer(bytes, static_cast<guint>(text.bytes.size()), message) == GST_SDP_OK;
    if (done && write) {
        char* out = gst_sdp_message_as_text(message);
        done = out != nullptr;
        g_free(out);
    }
    gst_sdp_message_free(message);
    return done;
}

} // namespace

Peer gstreamer()
{
    return {"gstreamer",
            {"gstreamer-parse", [](const Text& text) { return pass(text, false); }},
            {"gstreamer-parse-write", [](const Text& text) { return pass(text, true); }}};
}

} // namespace bench

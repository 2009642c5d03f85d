#include <osipparser2/osip_parser.h>

#include <osipparser2/sdp_message.h>

#include "bench/peers/peers.h"

namespace bench {

namespace {

bool pass(const Text& text, bool write)
{
    sdp_message_t* message = nullptr;
    sdp_message_init(&message);
    bool done = sdp_message_parse(message, text.bytes.c_str()) == 0;
    if (done && write) {
        char* out = nullptr;
        done = sdp_message_to_str(message, &out) == 0;
        osip_free(out);
    }
    sdp_message_free(message);
    return done;
}

} // namespace

Peer osip2()
{
    parser_init();
    return {"osip2",
            {"osip2-parse", [](const Text& text) { return pass(text, false); }},
            {"osip2-parse-write", [](const Text& text) { return pass(text, true); }}};
}

} // namespace bench

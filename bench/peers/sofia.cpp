#include <sofia-sip/sdp.h>

#include "bench/peers/peers.h"

namespace bench {

namespace {

bool pass(const Text& text, bool write)
{
    sdp_parser_t* parser = sdp_parse(nullptr, text.bytes.data(), static_cast<issize_t>(text.bytes.size()), 0);
    sdp_session_t* session = sdp_session(parser);
    bool done = session != nullptr;
    if (done && write) {
        sdp_printer_t* printer = sdp_print(nullptr, session, nullptr, 0, 0);
        done = sdp_message(printer) != nullptr;
        sdp_printer_free(printer);
    }
    sdp_parser_free(parser);
    return done;
}

} // namespace

Peer sofia()
{
    return {"sofia",
            {"sofia-parse", [](const Text& text) { return pass(text, false); }},
            {"sofia-parse-write", [](const Text& text) { return pass(text, true); }}};
}

} // namespace bench

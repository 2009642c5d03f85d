#include <sdp/SDPDescEx.h>

#include "commands.h"
#include "text.h"

namespace ymsdp {

Result rewrite(const Description& description, const TextOptions& options)
{
    ym::SDP::SDPDescEx session;
    if (session.parse(stringOf(description.text)) != 0)
        throw Trouble(refusal(description));
    ym::String text;
    session.generate(&text);
    return {textOf(linesOf(view(text)), options.lf)};
}

} // namespace ymsdp

// The direction of a media stream, and the attributes that say it (RFC 8866, section 6.7).
#pragma once

#include <string_view>

#include "sdp/line/text.h"

namespace ym::SDP {

enum class Direction : int {
    sendrecv,
    sendonly,
    recvonly,
    inactive
};

// In the order of the values.
constexpr std::string_view directionWords[] = {"sendrecv", "sendonly", "recvonly", "inactive"};

inline std::string_view directionWord(Direction direction)
{
    return directionWords[static_cast<int>(direction)];
}

// Whether an attribute says a direction. `*direction` is left alone if it does not, and may be null.
inline bool isDirection(std::string_view attribute, Direction* direction)
{
    for (int i = 0; i < 4; ++i) {
        if (!isText(attribute, directionWords[i]))
            continue;
        if (direction)
            *direction = static_cast<Direction>(i);
        return true;
    }
    return false;
}

} // namespace ym::SDP

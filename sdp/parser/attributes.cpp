// The "a=" lines of a media section.
#include "sdp/line/Scanner.h"
#include "sdp/line/text.h"
#include "sdp/media/SDPMediaPayload_impl.h"
#include "sdp/media/SDPMedia_impl.h"
#include "sdp/parser/AttributeReader.h"
#include "support/ascii.h"
#include "support/number.h"
#include "support/view.h"

namespace ym::SDP {

namespace {

// Takes the first piece off a list, and with it the semicolon behind it and the white space around that.
std::string_view takePiece(std::string_view* list)
{
    const std::size_t end = list->find(';');
    const std::string_view piece = list->substr(0, end);
    if (end == std::string_view::npos) {
        *list = {};
        return piece;
    }
    *list = withoutSpaceBefore(behind(*list, end + 1));
    return withoutSpaceBehind(piece);
}

} // namespace

void AttributeReader::read(std::string_view line)
{
    const NameValue attribute = cut(line);
    Direction direction = Direction::sendrecv;
    if (isText(attribute.name, "rtpmap"))
        readMapping(attribute.value);
    else if (isText(attribute.name, "fmtp"))
        readFormat(attribute.value);
    else if (isDirection(attribute.name, &direction))
        media_.state().direction = direction;
    else if (currentPayload_)
        currentPayload_->state().attrs.put(attribute.name, attribute.value);
}

// a=rtpmap:96 L16/44100/2
void AttributeReader::readMapping(std::string_view value)
{
    std::string_view mapping;
    if (goToPayload(value, &mapping))
        currentPayload_->state().setMapping(mapping);
}

// a=fmtp:96 minptime=10; useinbandfec=1
//
// Empty pieces have an empty name, but those at the end of the list are none.
void AttributeReader::readFormat(std::string_view value)
{
    std::string_view list;
    if (!goToPayload(value, &list))
        return;
    bool isEmptyBefore = false;
    while (!list.empty()) {
        const std::string_view param = takePiece(&list);
        if (param.empty()) {
            isEmptyBefore = true;
            continue;
        }
        if (isEmptyBefore)
            readParam({});
        isEmptyBefore = false;
        readParam(param);
    }
}

// name=value, name = value, name
void AttributeReader::readParam(std::string_view param)
{
    const std::size_t equals = param.find('=');
    if (equals == std::string_view::npos) {
        currentPayload_->state().formatParams.put(param, {});
        return;
    }
    const std::string_view name = withoutSpaceBehind(withoutSpaceBefore(param.substr(0, equals)));
    const std::string_view value = withoutSpaceBehind(withoutSpaceBefore(behind(param, equals + 1)));
    currentPayload_->state().formatParams.put(name, value);
}

// 96 and what follows. False if there is no such payload, which leaves no current one, or no number.
bool AttributeReader::goToPayload(std::string_view value, std::string_view* rest)
{
    std::string_view number;
    Scanner at(value);
    if (!at.digits(&number) || !at.space())
        return false;
    currentPayload_ = media_.state().payloads.find(toNumber<unsigned short>(number));
    *rest = at.rest();
    return currentPayload_ != nullptr;
}

} // namespace ym::SDP

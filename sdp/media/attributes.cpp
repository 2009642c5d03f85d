#include "sdp/media/attributes.h"

#include "sdp/line/text.h"

namespace ym::SDP {

int findAttr(const NamedList& list, const String& name, String* value)
{
    return list.value(name, value, 0) ? 0 : -1;
}

int attrAt(const NamedList& list, unsigned int index, String* name, String* value)
{
    return list.get(name, value, index) ? 0 : -1;
}

void putAttrLines(Writer& out, const NamedList& list)
{
    eachAttr(list,
             [&](std::string_view name, std::string_view value) { putLine(out, 'a', nameValue(name, ":", value)); });
}

} // namespace ym::SDP

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

int putAttr(NamedList& list, const String& name, const String& value)
{
    if (list.exist(name))
        return list.replace(name, value, 0) ? 0 : -1;
    list.insert(name, value, -1);
    return 0;
}

int dropAttr(NamedList& list, const String& name)
{
    return !list.exist(name) || list.remove(name, 0) ? 0 : -1;
}

void putAttrLines(String& out, const NamedList& list)
{
    eachAttr(list, [&](const String& name, const String& value) { putLine(out, 'a', nameValue(name, ":", value)); });
}

} // namespace ym::SDP

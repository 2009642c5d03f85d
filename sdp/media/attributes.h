// The operations on a list of names and values that the attributes of a session, a section and a payload and the format
// parameters of a payload have in common.
#pragma once

#include <string_view>

#include <tovik/NamedList.h>
#include <tovik/String.h>

#include "sdp/line/Writer.h"

namespace ym::SDP {

// The value of the first entry of a name. 0, or -1 if there is none.
int findAttr(const NamedList& list, const String& name, String* value);

// The entry at a position. 0, or -1 if there is none.
int attrAt(const NamedList& list, unsigned int index, String* name, String* value);

// Calls `visit(name, value)` with the bytes of each entry, in order.
template <class Visit> void eachAttr(const NamedList& list, Visit visit)
{
    std::string_view name;
    std::string_view value;
    for (unsigned int i = 0; list.peek(&name, &value, i); ++i)
        visit(name, value);
}

// Writes one "a=" line for each entry, in order.
void putAttrLines(Writer& out, const NamedList& list);

} // namespace ym::SDP

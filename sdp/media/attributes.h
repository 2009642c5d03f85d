// The operations on a list of names and values that the attributes of a session, a section and a payload and the format
// parameters of a payload have in common.
#pragma once

#include <tovik/NamedList.h>
#include <tovik/String.h>

namespace ym::SDP {

// The value of the first entry of a name. 0, or -1 if there is none.
int findAttr(const NamedList& list, const String& name, String* value);

// The entry at a position. 0, or -1 if there is none.
int attrAt(const NamedList& list, unsigned int index, String* name, String* value);

// Changes the value of the first entry of a name, or adds an entry at the end. 0, or -1 if the list refuses.
int putAttr(NamedList& list, const String& name, const String& value);

// Removes the first entry of a name. 0 also if there is none; -1 if the list refuses.
int dropAttr(NamedList& list, const String& name);

// Calls `visit(name, value)` for each entry, in order.
template <class Visit> void eachAttr(const NamedList& list, Visit visit)
{
    String name;
    String value;
    for (unsigned int i = 0; i < list.lines(); ++i)
        if (list.get(&name, &value, i))
            visit(name, value);
}

// Writes one "a=" line for each entry, in order.
void putAttrLines(String& out, const NamedList& list);

} // namespace ym::SDP

// The operations of the line view, as sentences over the walks of its state.
#include <sdp/SDPDesc.h>

#include <algorithm>

#include <tovik/DataIO.h>
#include <tovik/LineAdapter.h>

#include "sdp/line/SDPDesc_impl.h"
#include "sdp/line/text.h"
#include "support/view.h"

namespace ym::SDP {

namespace {

using Impl = SDPDesc::SDPDesc_impl;

constexpr int session = Impl::session;

// A section's number as the caller gives it: a negative one means section 0, never the session level.
int sectionNumber(int section)
{
    return std::max(section, 0);
}

String fieldLine(char type, const String& value)
{
    String line;
    putBare(line, type, value);
    return line;
}

String attrLine(char type, const String& name, const String& value)
{
    String line;
    putBare(line, type, nameValue(view(name), ":", view(value)));
    return line;
}

// The length of the text that the lines give. Where it does not fit, the text can not be written either.
unsigned int lengthOf(const Impl& impl)
{
    unsigned int length = 1;
    for (const String& line : impl.lines)
        length += line.length() + impl.lineBreak.length();
    return length;
}

// What the session level and the sections have in common

int read(Impl& impl, int section, char type, String* value)
{
    const Impl::Position at = impl.find(section, type);
    if (at == impl.lines.end() || !hasValue(view(*at)))
        return -1;
    if (value)
        value->assign(untilNul(valueOf(view(*at))));
    return 0;
}

int readNumbered(Impl& impl, int section, int n, String* name, String* value, char type)
{
    const Impl::Position at = impl.numbered(section, n, type);
    if (at == impl.lines.end() || !hasValue(view(*at)))
        return -1;
    const NameValue attribute = cut(valueOf(view(*at)));
    if (name)
        name->assign(attribute.name);
    if (value)
        value->assign(attribute.value);
    return 0;
}

// The first line of a type, at whatever level.
Impl::Position firstOf(Impl& impl, char type)
{
    return std::find_if(impl.lines.begin(), impl.lines.end(),
                        [type](const String& line) { return typeOf(line) == type; });
}

int removeSection(Impl& impl, int section)
{
    if (section >= impl.nSections())
        return -1;
    impl.eraseSection(section);
    return 0;
}

} // namespace

SDPDesc::SDPDesc(const char* lineBreak) : impl_(std::make_unique<SDPDesc_impl>())
{
    impl_->lineBreak = lineBreak;
}

SDPDesc::~SDPDesc() = default;

// Text in, text out

int SDPDesc::parse(const String& text)
{
    if (text.length() == 0)
        return 0;
    Impl::Text copy(text);
    Impl::Lines added(impl_->lines.get_allocator());
    MemoryIO stream(copy.bytes.get(), copy.length);
    LineAdapter reader(&stream, LineAdapter::LinebreakAny, LineAdapter::LinebreakCRLF, LineAdapter::LinebreakNone);
    const char* line = nullptr;
    unsigned int length = 0;
    int result = 0;
    while (result == 0 && reader.readLine(&line, &length) > 0) {
        if (isLine({line, length}))
            added.push_back(copy.line(line, length));
        else
            result = -1;
    }
    impl_->append(std::move(added), std::move(copy));
    return result;
}

int SDPDesc::parseLine(const String& line)
{
    if (!isLine(view(line)))
        return -1;
    impl_->insert(impl_->lines.end(), line);
    return 0;
}

int SDPDesc::generate(String* out)
{
    const auto& lines = impl_->lines;
    if (!out || lines.size() < 3)
        return -1;
    auto line = lines.begin();
    for (const char type : {'v', 'o', 's'})
        if (typeOf(*line++) != type)
            return -1;
    MallocIO stream;
    stream.reserve(lengthOf(*impl_));
    for (const String& each : lines) {
        stream.write(each.chars(), each.length());
        stream.write(impl_->lineBreak.chars(), impl_->lineBreak.length());
    }
    stream.write("", 1);
    out->assign(stream.buffer(), stream.length());
    return 0;
}

void SDPDesc::clear()
{
    impl_->clear();
}

void SDPDesc::dump()
{
    String text;
    generate(&text);
}

// The session level, by type

int SDPDesc::set(char type, const String& value)
{
    if (type == 'm')
        return -1;
    impl_->place(impl_->lines.begin(), impl_->lines.end(), Impl::revorder_session, fieldLine(type, value));
    return 0;
}

int SDPDesc::get(char type, String* value) const
{
    return read(*impl_, session, type, value);
}

int SDPDesc::remove(char type)
{
    const Impl::Position at = firstOf(*impl_, type);
    if (at == impl_->lines.end())
        return -1;
    impl_->erase(at);
    return 0;
}

int SDPDesc::has(char type) const
{
    return firstOf(*impl_, type) != impl_->lines.end();
}

int SDPDesc::set(Field field, const String& value)
{
    return set(fieldChar(field), value);
}

int SDPDesc::get(Field field, String* value) const
{
    return get(fieldChar(field), value);
}

int SDPDesc::remove(Field field)
{
    return remove(fieldChar(field));
}

int SDPDesc::has(Field field) const
{
    return has(fieldChar(field));
}

// The session level: attributes

int SDPDesc::nAttr() const
{
    return impl_->count(session, 'a');
}

int SDPDesc::setAttr(int n, const String& name, const String& value)
{
    impl_->setNumbered(session, n, attrLine('a', name, value), 'a');
    return 0;
}

int SDPDesc::attr(int n, String* name, String* value) const
{
    return readNumbered(*impl_, session, n, name, value, 'a');
}

int SDPDesc::removeAttr(int n)
{
    return impl_->removeNumbered(session, n, 'a');
}

int SDPDesc::hasAttr(const String& name)
{
    return impl_->countNamed(session, name, 'a');
}

// Media sections, by type

int SDPDesc::nMedia() const
{
    return impl_->nSections();
}

int SDPDesc::setMedia(int section, char type, const String& value)
{
    const int number = sectionNumber(section);
    impl_->place(impl_->section(number), impl_->levelEnd(number), Impl::revorder_media, fieldLine(type, value));
    return 0;
}

int SDPDesc::media(int section, char type, String* value) const
{
    return read(*impl_, sectionNumber(section), type, value);
}

int SDPDesc::removeMedia(int section, char type)
{
    const int number = sectionNumber(section);
    return type == 'm' ? removeSection(*impl_, number) : impl_->removeBehind(number, type);
}

int SDPDesc::hasMedia(int section, char type)
{
    const int number = sectionNumber(section);
    return number < impl_->nSections() && number <= impl_->lastSection(type);
}

int SDPDesc::setMedia(int section, Field field, const String& value)
{
    return setMedia(section, fieldChar(field), value);
}

int SDPDesc::media(int section, Field field, String* value) const
{
    return media(section, fieldChar(field), value);
}

int SDPDesc::removeMedia(int section, Field field)
{
    return removeMedia(section, fieldChar(field));
}

int SDPDesc::hasMedia(int section, Field field)
{
    return hasMedia(section, fieldChar(field));
}

// Media sections: attributes, bandwidths and the like

int SDPDesc::nMediaAttr(int section, char type) const
{
    return impl_->count(sectionNumber(section), type);
}

int SDPDesc::setMediaAttr(int section, int n, const String& name, const String& value, char type)
{
    impl_->setNumbered(sectionNumber(section), n, attrLine(type, name, value), type);
    return 0;
}

int SDPDesc::mediaAttr(int section, int n, String* name, String* value, char type)
{
    return readNumbered(*impl_, sectionNumber(section), n, name, value, type);
}

int SDPDesc::removeMediaAttr(int section, int n, char type)
{
    return impl_->removeNumbered(sectionNumber(section), n, type);
}

int SDPDesc::hasMediaAttr(int section, const String& name, char type)
{
    return impl_->countNamed(sectionNumber(section), name, type);
}

} // namespace ym::SDP

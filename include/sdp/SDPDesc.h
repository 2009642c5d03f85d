#pragma once

#include <memory>

#include <sdp/vocabulary.h>
#include <tovik/String.h>
#include <tovik/export.h>

namespace ym::SDP {

// A session description (RFC 8866) as what it is on the wire: an ordered list of lines of the form "x=value".
//
// Every line is kept as it is, whatever its value; lines are addressed by their type (the character before the "="),
// by the number of their media section, and, where a type repeats, by their number.
//
// * The session level is what stands before the first "m=" line. A section is an "m=" line and the lines behind it,
//   up to the next "m=" line; sections are numbered from 0 in the order of the list. A negative section number means
//   section 0.
// * Lines have a canonical order, which decides where set and setMedia put a new one: v o s i u e p c b z k t r a m
//   at session level, m i c b k a in a section. A type without a place in the order counts as before all others.
// * The numbered lines of a type are those of a run: the lines of that type that stand next to each other, from the
//   first one at session level or in the section on. A line of another type ends the run.
// * A line that is read as an attribute is cut at its first colon: "a=name:value", or "a=name" with an empty value.
//
// Results are 0 for success and -1 for a miss or a refusal, unless an operation says otherwise. On a miss, outputs and
// list stay as they are. A null `String*` means that the output is not wanted. The texts that set, setAttr and
// their like are given, those that get and media read, and names that hasAttr and hasMediaAttr compare end at the first
// NUL byte; all others keep NUL bytes.
//
// Texts are kept and written as they stand: a line end in one that set, parseLine or their like is given begins a line
// of its own in the text. Look for "\r" and "\n" in what others send.
//
// Where memory runs out, std::bad_alloc passes through, from look-ups too, and list and outputs stay as they are; only
// of two outputs the first one may be written.
//
// Loops over all sections, over all lines of a run, or over both cost no more than one walk over the list, also if they
// add or remove lines of the run by their number. After any other change the next look-up starts anew. Objects are
// independent; one object is used by one thread at a time, and the first SDPDesc of a process must not be constructed
// beside another one.
class YM_EXPORT SDPDesc {
public:
    // An empty description. `lineBreak` is the text that generate writes behind every line, "\r\n" on the wire.
    explicit SDPDesc(const char* lineBreak);
    ~SDPDesc();

    SDPDesc(const SDPDesc&) = delete;
    SDPDesc& operator=(const SDPDesc&) = delete;

    // Text in, text out

    // Adds all lines of a text behind those that are there. Each of "\r\n", "\n" and "\r" ends a line.
    // -1 at the first line that parseLine refuses, an empty line before others included; the lines before it stay.
    // The object keeps a copy of the text until its last line or all lines are removed.
    int parse(const String& text);

    // Adds one line at the end of the list. -1 if it does not begin with one of "vosiuepcbzktram" and "=".
    int parseLine(const String& line);

    // Replaces `*out` by all lines, each with the line break behind it. -1 if `out` is null or the list does not begin
    // with the lines v, o, s; `*out` is unchanged then.
    int generate(String* out);

    // Removes all lines. The line break stays.
    void clear();

    // Generates the text and drops it. Prints nothing.
    void dump();

    // The session level, by type

    // Replaces the first line of the type, or inserts the line at its place in the canonical order. The walk goes
    // by rank and stops at the first line that ranks equal or higher. -1 for the type m.
    int set(char type, const String& value);
    int set(Field field, const String& value);

    // The value of the first line of the type before the first "m=" line; for the type m, that of the first "m=" line.
    int get(char type, String* value) const;
    int get(Field field, String* value) const;

    // Removes the first line of the type, wherever it stands: with none at session level, one of a media section. With
    // the type m the one "m=" line goes, and the lines of its section then belong to the section before it.
    int remove(char type);
    int remove(Field field);

    // 1 if there is a line of the type anywhere in the list, media sections included; 0 if not.
    int has(char type) const;
    int has(Field field) const;

    // The session level: attributes (a=), numbered from 0 within their run

    // The number of "a=" lines at session level, those behind the end of the run included.
    int nAttr() const;

    // Replaces attribute `n`. With any other `n`, negative or too large, adds the attribute behind the run; without a
    // run it goes behind all other session lines. An empty value gives "a=name". Always 0.
    int setAttr(int n, const String& name, const String& value);

    // The name and value of attribute `n`.
    int attr(int n, String* name, String* value) const;

    // Removes attribute `n`.
    int removeAttr(int n);

    // The number of attributes of this name in the run; 0 if there is none.
    int hasAttr(const String& name);

    // Media sections, by type

    // The number of sections.
    int nMedia() const;

    // Replaces the first line of the type in the section, or inserts the line at its place in the canonical order. With
    // the type m the "m=" line is replaced; a type without a place in the order lands before it. Without such a
    // section, the line is added at the end of the list: setMedia(nMedia(), 'm', value) opens a new section. Always 0.
    int setMedia(int section, char type, const String& value);
    int setMedia(int section, Field field, const String& value);

    // The value of the first line of the type in the section, that of its "m=" line for the type m.
    int media(int section, char type, String* value) const;
    int media(int section, Field field, String* value) const;

    // With the type m, removes the section with all its lines. With any other type, removes the first line of the type
    // from the section's beginning to the end of the list, so that one of a later section goes if this one has none.
    int removeMedia(int section, char type);
    int removeMedia(int section, Field field);

    // 1 if a line of the type stands in the section or anywhere behind it; 0 if not, or without such a section.
    int hasMedia(int section, char type);
    int hasMedia(int section, Field field);

    // Media sections: attributes (type a), bandwidths (type b) and the like, numbered from 0 within their run. The runs
    // begin behind the "m=" line; "b=AS:128" has the name AS and the value 128.

    // The number of lines of the type in the section, those behind the end of the run included. 0 without such a
    // section.
    int nMediaAttr(int section, char type) const;

    // Replaces line `n` of the type. With any other `n`, negative or too large, adds the line behind the run; without a
    // run it goes to the end of the section, and without such a section to the end of the list. Always 0.
    int setMediaAttr(int section, int n, const String& name, const String& value, char type);

    // The name and value of line `n` of the type.
    int mediaAttr(int section, int n, String* name, String* value, char type);

    // Removes line `n` of the type.
    int removeMediaAttr(int section, int n, char type);

    // The number of lines of this name in the run; 0 if there is none, or no such section.
    int hasMediaAttr(int section, const String& name, char type);

    // The private state.
    struct SDPDesc_impl;

private:
    std::unique_ptr<SDPDesc_impl> impl_;
};

} // namespace ym::SDP

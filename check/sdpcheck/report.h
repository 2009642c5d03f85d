// What becomes of a description on its way from text to objects and back.
//
// The objects keep what they have fields for (SDPDescEx). A report names every line that does not come out of them as
// it went in, and says why. The line view (SDPDesc) keeps all of these lines but the refused ones.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace ym::sdpcheck {

// How much a finding matters.
enum class Severity {
    error,   // the text can not be used as it is
    warning, // what the text says is not what the objects hold
    note,    // the text comes out in another form or order, and says the same
};

// What becomes of a line.
enum class Outcome {
    refused,  // SDPDescEx::parse gives -1 because of this line
    lost,     // nothing of the line comes out
    changed,  // another line comes out in its place
    moved,    // the line comes out in another place
    invented, // a line comes out that the text does not have
};

// What a code stands for. The texts are constants of the library.
struct Kind {
    const char* code;   // in kebab-case; codes stay the same from version to version
    Outcome outcome;    // what becomes of the line
    Severity severity;  // and how much that matters
    const char* reason; // one sentence
    const char* repair; // how to write the line so that it comes through, or what to do else
};

// One line, or several that stand next to each other, and what becomes of them.
struct Finding {
    std::size_t line;     // from 1 on; 0 for an invented line
    std::size_t lastLine; // the finding is about all lines up to this one; mostly `line` itself
    std::size_t column;   // from 1 on, in bytes; 0 for the line as a whole
    const Kind* kind;     // never null
    std::string text;     // the line without its end, any bytes; empty for an invented line
    std::string became;   // what comes out instead; empty if nothing does, or the same
};

// All findings, in the order of the lines; those of invented lines come first. A text that goes through unchanged gives
// none. Of a text that is refused, the findings behind the refused lines say what would become of it without them.
// Takes time in proportion to the text (names: times a logarithm), and memory likewise.
std::vector<Finding> report(std::string_view text);

// All kinds of findings, by code.
const std::vector<const Kind*>& kinds();

// "refused", "lost" and so on; "error", "warning", "note".
const char* word(Outcome outcome);
const char* word(Severity severity);

} // namespace ym::sdpcheck

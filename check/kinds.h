// What a report may find.
#pragma once

#include <sdpcheck/report.h>

namespace ym::sdpcheck::kind {

// The text is refused
inline constexpr Kind unknownType{"unknown-line-type", Outcome::refused, Severity::error,
                                  "a text with a line of this type is refused as a whole",
                                  "take the line out, or write it as an attribute"};
inline constexpr Kind noLine{"not-a-line", Outcome::refused, Severity::error,
                             "a text with a line that does not begin with a character and \"=\" is refused as a whole",
                             "take the line out, or write it as an attribute"};
inline constexpr Kind blankLine{"blank-line", Outcome::refused, Severity::error,
                                "a text with an empty line before other lines is refused as a whole",
                                "take the line out"};
inline constexpr Kind malformedOrigin{"malformed-origin", Outcome::refused, Severity::error,
                                      "a text with an origin of more or less than six words is refused by the objects",
                                      "write user name, session id, version, IN, IP4 or IP6, and address"};

// A line is lost
inline constexpr Kind repeatedLine{"repeated-line", Outcome::lost, Severity::warning,
                                   "of the lines of this type, the first one counts",
                                   "leave out the others, or make the one that is wanted the first"};
inline constexpr Kind malformedConnection{
    "malformed-connection", Outcome::lost, Severity::warning,
    "a connection is network type, address type and address, with no blank behind",
    "write it as IN IP4 ADDRESS or IN IP6 ADDRESS"};
inline constexpr Kind unknownConnection{"unknown-connection-type", Outcome::lost, Severity::warning,
                                        "a connection has the types IN, and IP4 or IP6, in capitals",
                                        "write it as IN IP4 ADDRESS or IN IP6 ADDRESS"};
inline constexpr Kind malformedBandwidth{"malformed-bandwidth", Outcome::lost, Severity::warning,
                                         "a bandwidth is a word, a colon and digits, with no blank around",
                                         "write it as AS:NUMBER"};
inline constexpr Kind noBandwidth{"zero-bandwidth", Outcome::lost, Severity::warning,
                                  "a bandwidth without a modifier, of 0, or of what is no number is as good as none",
                                  "write a number above 0"};
inline constexpr Kind thirdBandwidth{"third-bandwidth", Outcome::lost, Severity::warning,
                                     "a section holds two bandwidths", "keep the two that are needed most"};
inline constexpr Kind malformedKey{"malformed-key", Outcome::lost, Severity::warning,
                                   "a key is a method, and a colon and a word if there is more",
                                   "write it as METHOD:KEY without blanks"};
inline constexpr Kind unknownKeyMethod{"unknown-key-method", Outcome::lost, Severity::warning,
                                       "the methods of a key are clear, base64, uri and prompt", "write one of these"};
inline constexpr Kind malformedTime{"malformed-time", Outcome::lost, Severity::warning,
                                    "a time is two numbers, with no blank before or behind", "write it as START STOP"};
inline constexpr Kind emptyValue{"empty-value", Outcome::lost, Severity::note,
                                 "a line without a value is as good as none", "write a value behind the =, \"-\" say"};
inline constexpr Kind sessionLineInSection{"session-line-in-section", Outcome::lost, Severity::warning,
                                           "lines of this type are read before the first section only",
                                           "move the line before the first \"m=\" line"};
inline constexpr Kind unreadInSection{"unread-in-section", Outcome::lost, Severity::warning,
                                      "titles and keys of sections are not read",
                                      "set it by the section's object, or write it as an attribute"};
inline constexpr Kind brokenRun{"broken-run", Outcome::lost, Severity::warning,
                                "lines of this type count only as far as they stand next to each other",
                                "move the line to the first ones of its type"};
inline constexpr Kind malformedMedia{"malformed-media", Outcome::lost, Severity::warning,
                                     "a media line is type, port, transport and formats, with no blank before",
                                     "write it as TYPE PORT TRANSPORT FORMAT..."};
inline constexpr Kind portCount{"media-port-count", Outcome::lost, Severity::warning,
                                "the port of a media line is a number alone", "write the port without the count"};
inline constexpr Kind noFormat{"media-without-format", Outcome::lost, Severity::warning,
                               "a media line has formats behind its transport", "write a format, 0 say"};
inline constexpr Kind unknownMedia{"unknown-media-type", Outcome::lost, Severity::warning,
                                   "sections are of the types audio, video and application, in small letters",
                                   "write one of these, or use the line view"};
inline constexpr Kind inLostSection{"in-lost-section", Outcome::lost, Severity::note,
                                    "the lines of a section are lost with their media line",
                                    "see the media line before"};
inline constexpr Kind malformedMapping{
    "malformed-mapping", Outcome::lost, Severity::warning,
    "a mapping is a format, a blank, and ENCODING/RATE with a rate of two digits or more",
    "write it as FORMAT ENCODING/RATE"};
inline constexpr Kind malformedParameters{"malformed-parameters", Outcome::lost, Severity::warning,
                                          "parameters begin with the number of a format and a blank",
                                          "write it as FORMAT NAME=VALUE;..."};
inline constexpr Kind unlistedFormat{"unlisted-format", Outcome::lost, Severity::warning,
                                     "the media line does not name this format", "add the format to the media line"};
inline constexpr Kind repeatedMapping{"repeated-mapping", Outcome::lost, Severity::warning,
                                      "of the mappings of a format, the last one counts", "keep one of them"};
inline constexpr Kind repeatedAttribute{"repeated-attribute", Outcome::lost, Severity::warning,
                                        "of the attributes of one name at a format, the last one counts",
                                        "keep one of them, or use the line view"};
inline constexpr Kind noFormatForAttribute{"attribute-without-format", Outcome::lost, Severity::warning,
                                           "an attribute belongs to the format before it, and there is none",
                                           "move it behind a mapping of a format that the media line names"};
inline constexpr Kind defaultDirection{"default-direction", Outcome::lost, Severity::note,
                                       "sendrecv is what holds without the line", "nothing has to be done"};
inline constexpr Kind repeatedDirection{"repeated-direction", Outcome::lost, Severity::warning,
                                        "of the directions of a section, the last one counts", "keep one of them"};

// A line is changed
inline constexpr Kind tooLarge{"number-too-large", Outcome::changed, Severity::warning,
                               "a number that is larger than its field becomes the largest one",
                               "write a number that fits: at most 65535 for ports and formats, else 4294967295"};
inline constexpr Kind noNumber{"not-a-number", Outcome::changed, Severity::warning,
                               "what is no number becomes 0 or is left out", "write digits"};
inline constexpr Kind formatNoNumber{"format-not-a-number", Outcome::changed, Severity::warning,
                                     "formats are numbers, and any other becomes 0",
                                     "write a number, or use the line view"};
inline constexpr Kind repeatedFormat{"repeated-format", Outcome::changed, Severity::warning,
                                     "of equal formats, the last one stays", "write each format once"};
inline constexpr Kind unknownOriginType{"unknown-origin-type", Outcome::changed, Severity::error,
                                        "an origin loses types other than IN, IP4 and IP6, and is then refused",
                                        "write IN, and IP4 or IP6"};
inline constexpr Kind connectionTail{"connection-tail", Outcome::changed, Severity::warning,
                                     "what stands behind the address is not kept as it is",
                                     "write ADDRESS/TTL, at session level ADDRESS/TTL/COUNT"};
inline constexpr Kind mergedParameters{"merged-parameters", Outcome::changed, Severity::warning,
                                       "the parameters of a format become one line, each name once with its last value",
                                       "write one line with each name once"};
inline constexpr Kind rateFromParameter{"rate-from-parameter", Outcome::changed, Severity::warning,
                                        "a parameter of two or more digits reads as the clock rate",
                                        "set encoding, rate and parameter by the format's object"};
inline constexpr Kind nulByte{"nul-byte", Outcome::changed, Severity::warning, "a value ends at its first NUL byte",
                              "take the NUL byte out"};
inline constexpr Kind spelling{"spelling", Outcome::changed, Severity::note, "the line is written in its plain form",
                               "write it as it comes out"};

// A line is moved
inline constexpr Kind regrouped{"section-regrouped", Outcome::moved, Severity::warning,
                                "audio sections come first, then video, then application",
                                "write the sections in this order, or use the line view"};
inline constexpr Kind attributeBeforeMapping{
    "attribute-before-mapping", Outcome::moved, Severity::note,
    "an attribute before all mappings belongs to the last format of the media line",
    "move it behind the lines of the last format"};
inline constexpr Kind attributeOfOther{"attribute-of-other-format", Outcome::moved, Severity::note,
                                       "the attribute names another format than the one that it belongs to here",
                                       "move it behind the mapping of the format that it names"};

// A line is invented
inline constexpr Kind defaultVersion{"default-version", Outcome::invented, Severity::note,
                                     "a version is written even if the text has none", "write v=0"};
inline constexpr Kind defaultOrigin{"default-origin", Outcome::invented, Severity::error,
                                    "an origin is written even if the text has none, and is then refused",
                                    "write an \"o=\" line of six words"};
inline constexpr Kind defaultName{"default-session-name", Outcome::invented, Severity::note,
                                  "a session without a name gets one", "write s=-"};
inline constexpr Kind defaultTime{"default-time", Outcome::invented, Severity::note,
                                  "a time is written even if the text has none that can be read", "write t=0 0"};

} // namespace ym::sdpcheck::kind

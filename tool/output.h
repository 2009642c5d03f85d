// What the tool gives back: text to the standard output, trouble to the standard error stream, a status.
#pragma once

#include <string>
#include <string_view>

#include "description.h"

namespace ymsdp {

enum Status : int {
    Success = 0,
    Found = 1,    // something by check, or nothing by edit and codecs
    Troubled = 2, // the command could not run
};

// What a command prints, and the status that it leaves.
struct Result {
    std::string out;
    Status status = Success;
};

// Colours a text, or leaves it as it is.
class Paint {
public:
    enum Style {
        Bold = 1,
        Red = 31,
        Yellow = 33,
        Cyan = 36
    };

    // `when` is "auto", "always" or "never".
    explicit Paint(std::string_view when = "never");

    std::string operator()(Style style, std::string_view text) const;

private:
    bool isOn_;
};

// The lines as a text: byte for byte for a file or a program, but printable on a terminal.
std::string textOf(const Lines& lines, bool withLf);

// Prints a message to the standard error stream.
void complain(std::string_view message);

// Prints to the standard output. It is no trouble if nobody reads on. Throws Trouble.
void print(std::string_view text);

} // namespace ymsdp

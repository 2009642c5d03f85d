// What is measured: whole passes of a text through a reader, and what it is read from.
#pragma once

#include <string>
#include <vector>

#include <tovik/String.h>

namespace bench {

// A text in the forms in which readers take it.
struct Text {
    std::string name;
    std::string bytes;
    ym::String string;

    Text(std::string name, std::string bytes);
};

// A pass makes an object, reads the text into it, perhaps writes it again, and destroys all. False if the reader
// refuses the text.
struct Operation {
    const char* name;
    bool (*run)(const Text& text);
};

extern const Operation floorOperation;
extern const Operation objectParse;
extern const Operation objectRoundTrip;
extern const Operation lineRoundTrip;

// Reads into the line view, and looks at every line by its number, as an application does.
extern const Operation lineLoops;

// The four of the library, without the floor.
const std::vector<Operation>& ownOperations();

// Another library. One that can not write has no `roundTrip.run`.
struct Peer {
    const char* name;
    Operation parse;
    Operation roundTrip;
};

// Those that this program is built with.
std::vector<Peer> peers();

// The texts that are kept with the benchmark, in the order of their names: those of `directory` below bench/texts, ""
// for those that were written for it, and "real" for those that programs sent.
std::vector<Text> ordinaryTexts(const std::string& directory);

// The text whose memory stands in the table.
constexpr const char* largeOffer = "browser-large-offer";

// While it lives, nothing is shown of what is printed to the standard error stream.
class Quiet {
public:
    Quiet();
    ~Quiet();

    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

private:
    int shown_;
};

} // namespace bench

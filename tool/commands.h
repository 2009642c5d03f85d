// The sub-commands of ymsdp, each in a file of its own.
#pragma once

#include <string>
#include <vector>

#include "description.h"
#include "output.h"

namespace ymsdp {

using Descriptions = std::vector<Description>;

struct ShowOptions {
    bool lines = false;
    bool json = false;
    Paint paint;
};

// A summary, the numbered lines, or as JSON all that both views hold.
Result show(const Descriptions& descriptions, const ShowOptions& options);
std::string showJson(const Descriptions& descriptions);

struct CheckOptions {
    std::string severity = "warning"; // the least one that is shown
    bool hints = false;
    bool json = false;
    Paint paint;
};

// What becomes of each line on its way through the objects.
Result check(const Descriptions& descriptions, const CheckOptions& options);

struct TextOptions {
    bool lf = false; // line ends without CR
};

// The text that the objects give.
Result rewrite(const Description& description, const TextOptions& options);

// The text with some lines changed.
Result edit(const Description& description, const std::vector<std::string>& edits, const TextOptions& options);

// Names ("opus", "L16/44100") or numbers of formats; of each list the empty one does nothing.
struct CodecsOptions {
    std::vector<std::string> keep;
    std::vector<std::string> drop;
    std::vector<std::string> first;
};

// The text with less formats, or with others in front.
Result codecs(const Description& description, const CodecsOptions& codecs, const TextOptions& options);

// The text without what strict readers stumble over.
Result clean(const Description& description, const TextOptions& options);

// The text without what tells whose it is.
Result hide(const Description& description, const TextOptions& options);

} // namespace ymsdp

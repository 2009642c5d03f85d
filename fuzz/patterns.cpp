// A pattern and a subject, for the engine and for a judge that tries all ways.
#include <climits>

#include <tovik/PRegEx.h>

#include "fuzz/Input.h"
#include "fuzz/Judge.h"
#include "fuzz/expect.h"
#include "tests/text.h"

using namespace fuzz;
using test::bytes;
using test::str;
using ym::PRegEx;

namespace {

const Element sets[]
    = {{"a", "a"},   {" ", " "},        {";", ";"},           {"/", "/"},       {".", "a b;/=1"},    {"\\s", " \n"},
       {"\\d", "1"}, {"\\S", "ab;/=1"}, {"[^=]", "a b;/1\n"}, {"[a\\d]", "a1"}, {"[^/\\s]", "ab;=1"}};
const Element repetitions[] = {{"*", "", 0, SIZE_MAX}, {"+", "", 1, SIZE_MAX}, {"{0,1}", "", 0, 1}, {"", "", 1, 1}};

std::vector<Element> nextPattern(Input& input)
{
    std::vector<Element> elements(input.below(3) == 0 ? 1 : 0, {"^", ""});
    std::size_t open = 0;
    for (std::size_t length = 1 + input.below(8); length > 0; --length) {
        if (input.below(3) == 0 && ++open)
            elements.push_back({"(", ""});
        const Element& set = input.oneOf(sets);
        const Element& times = input.oneOf(repetitions);
        elements.push_back({set.text + times.text, set.set, times.least, times.most});
        if (open > 0 && input.below(2) == 0 && open--)
            elements.push_back({")", ""});
    }
    elements.insert(elements.end(), open, {")", ""});
    elements.insert(elements.end(), input.below(3) == 0 ? 1 : 0, {"$", ""});
    return elements;
}

// Bytes of the alphabet that the sets know. Some are long, and such that repetitions which overlap give back byte by
// byte, over and over.
std::string nextSubject(Input& input)
{
    const std::string few = "a b;/=1\n";
    std::string subject;
    for (std::size_t n = input.below(16); n > 0; --n)
        subject += few[input.below(few.size())];
    std::string whole;
    for (std::size_t times = 1 + (input.below(8) == 0 ? input.below(32) : 0); times > 0; --times)
        whole += subject;
    return whole;
}

std::string partsOf(const PRegEx& pattern, int n)
{
    std::string parts;
    for (int i = 0; i < n; ++i)
        parts += str(pattern[i]) + "|";
    return parts;
}

void matchesLikeTheJudge(Input& input)
{
    const std::vector<Element> elements = nextPattern(input);
    const std::string subject = nextSubject(input);
    const std::size_t limit = input.below(2) == 0 ? INT_MAX : 1 + input.below(4);
    std::string text;
    int nGroups = 0;
    for (const Element& element : elements) {
        text += element.text;
        nGroups += element.text == "(" ? 1 : 0;
    }
    const std::string what = text + " on " + shown(subject);
    PRegEx engine(text.c_str(), 0);
    Judge judge{elements, subject};
    const bool found = engine.match(bytes(subject), 0);
    expectEqual(judge.search(), found ? partsOf(engine, nGroups + 1) : "", what);
    const int nPieces = engine.split(bytes(subject), static_cast<int>(limit));
    expectEqual(judge.split(limit), partsOf(engine, nPieces), what + " to split");
}

// Any pattern on any subject comes to an end, and its parts are parts of the subject.
void staysWithinTheSubject(Input& input)
{
    const std::string pattern = input.bytes(100);
    const std::string subject = input.bytes(255);
    PRegEx engine(bytes(pattern), 0);
    for (const int n : {engine.match(bytes(subject), static_cast<int>(input.number())) ? 12 : 0,
                        engine.split(bytes(subject), static_cast<int>(input.below(5)))})
        for (int i = -1; i <= n; ++i)
            expect(subject.find(str(engine[i])) != std::string::npos, "a part is one of the subject");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    if (input.below(8) == 0)
        staysWithinTheSubject(input);
    else
        matchesLikeTheJudge(input);
    return 0;
}

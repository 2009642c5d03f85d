// Gives callgrind one dump for each operation on each text, named by them: the instructions of that operation alone.
// Hostile texts come in two sizes, both so large that the heap's caches of small blocks do not matter.
//
// valgrind --tool=callgrind --collect-atstart=no ym_bench_instructions ordinary|hostile
#include <cstring>

#include <valgrind/callgrind.h>

#include "bench/hostile.h"
#include "bench/operations.h"

namespace {

using namespace bench;

void count(const Text& text, const Operation& operation)
{
    const std::string name = text.name + " " + operation.name;
    operation.run(text); // what is only done once belongs to no text
    CALLGRIND_TOGGLE_COLLECT;
    operation.run(text);
    CALLGRIND_TOGGLE_COLLECT;
    CALLGRIND_DUMP_STATS_AT(name.c_str());
}

} // namespace

int main(int argc, char** argv)
{
    const Quiet quiet;
    if (argc > 1 && std::strcmp(argv[1], "hostile") == 0) {
        for (const Shape& shape : hostileShapes())
            for (const std::size_t size : {64 << 10, 256 << 10})
                for (const Operation& operation : {objectRoundTrip, lineRoundTrip, lineLoops})
                    count(Text(shape.name, shape.make(size)), operation);
        return 0;
    }
    for (const Text& text : ordinaryTexts(""))
        for (const Operation& operation : {objectRoundTrip, lineRoundTrip})
            count(text, operation);
}

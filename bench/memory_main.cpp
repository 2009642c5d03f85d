// Tells what each operation asks of the heap: text, operation, allocations, peak bytes. One line each.
//
// ym_bench_memory ordinary|hostile
#include <cstdio>
#include <cstring>

#include "bench/hostile.h"
#include "bench/memory.h"
#include "bench/operations.h"

namespace {

using namespace bench;

void tell(const Text& text, const Operation& operation)
{
    startMemoryUse();
    operation.run(text);
    const MemoryUse use = memoryUse();
    std::printf("%s %s %zu %zu\n", text.name.c_str(), operation.name, use.allocations, use.peak);
}

void tellOrdinary(const Text& text, const Operation& operation)
{
    operation.run(text); // what is only made once belongs to no text
    tell(text, operation);
}

} // namespace

int main(int argc, char** argv)
{
    const Quiet quiet;
    if (argc > 1 && std::strcmp(argv[1], "hostile") == 0) {
        for (const Shape& shape : hostileShapes()) {
            const Text text(shape.name, shape.make(hostileMemorySize));
            for (const Operation& operation : ownOperations())
                tell(text, operation);
        }
        return 0;
    }
    for (const Text& text : ordinaryTexts("")) {
        tellOrdinary(text, floorOperation);
        for (const Operation& operation : ownOperations())
            tellOrdinary(text, operation);
        for (const Peer& peer : peers()) {
            tellOrdinary(text, peer.parse);
            tellOrdinary(text, peer.roundTrip);
        }
    }
}

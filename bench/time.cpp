// Measures time, and prints the tables: every ordinary text against the floor, hostile texts with their growth, and
// expressions alone.
//
// ym_bench_time [--quick] [--peers] [--ordinary] [--hostile] [--expressions] [MEMORY-FILE]
//
// MEMORY-FILE is what ym_bench_memory printed; its figures then stand in the tables.
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <malloc.h>

#include <benchmark/benchmark.h>

#include <tovik/PRegEx.h>

#include "bench/hostile.h"
#include "bench/operations.h"
#include "bench/statistics.h"

namespace {

using namespace bench;

struct Settings {
    bool quick = false;
    bool peers = false;

    int rounds() const { return quick ? 5 : 15; }
    double seconds() const { return quick ? 0.001 : 0.004; }
    int hostileRounds() const { return quick ? 1 : 3; }
    std::size_t hostileSize() const { return quick ? 1 << 20 : 4 << 20; }
};

// Takes the place of Google Benchmark's own tables: keeps the nanoseconds of each run, round by round.
class Collector : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (!run.error_occurred)
                times_[run.run_name.function_name].push_back(run.GetAdjustedCPUTime());
    }

    void measure(const std::string& which, int rounds)
    {
        const Quiet quiet;
        for (int i = 0; i < rounds; ++i)
            benchmark::RunSpecifiedBenchmarks(this, nullptr, which);
    }

    // Empty if this could not be measured.
    const Values& of(const std::string& name) { return times_[name]; }

private:
    std::map<std::string, Values> times_;
};

// The figures of a memory file. "-" where it has none.
class MemoryFigures {
public:
    void read(const std::string& file)
    {
        std::ifstream stream(file);
        std::string text;
        std::string operation;
        Figures figures;
        while (stream >> text >> operation >> figures.allocations >> figures.peak)
            all_[{text, operation}] = figures;
    }

    double allocations(const std::string& text, const Operation& operation) const
    {
        return of(text, operation).allocations;
    }

    double peak(const std::string& text, const Operation& operation) const { return of(text, operation).peak; }

private:
    struct Figures {
        double allocations = std::nan("");
        double peak = std::nan("");
    };

    Figures of(const std::string& text, const Operation& operation) const
    {
        const auto found = all_.find({text, operation.name});
        return found == all_.end() ? Figures() : found->second;
    }

    std::map<std::pair<std::string, std::string>, Figures> all_; // by text and operation
};

void printNumber(double value, int width, int digits)
{
    if (std::isnan(value))
        std::printf(" %*s", width, "-");
    else
        std::printf(" %*.*f", width, digits, value);
}

// Ordinary texts

struct Column {
    const char* library;
    const char* title;
    Operation operation;
};

std::vector<Column> ordinaryColumns(bool withPeers)
{
    std::vector<Column> columns{
        {"object", "parse", objectParse},
        {"object", "+write", objectRoundTrip},
        {"lines", "+write", lineRoundTrip},
    };
    if (withPeers) {
        for (const Peer& peer : peers()) {
            columns.push_back({peer.name, "parse", peer.parse});
            columns.push_back({peer.name, "+write", peer.roundTrip});
        }
    }
    return columns;
}

std::string nameOf(const Text& text, const Operation& operation)
{
    return "ordinary " + text.name + " " + operation.name;
}

void registerOrdinary(const Text& text, const Operation& operation, double seconds)
{
    const auto measure = [&text, operation](benchmark::State& state) {
        if (!operation.run(text))
            state.SkipWithError("refused");
        for (auto _ : state)
            benchmark::DoNotOptimize(operation.run(text));
    };
    benchmark::RegisterBenchmark(nameOf(text, operation).c_str(), measure)->MinTime(seconds);
}

void printHead(const char* title, const std::vector<Column>& columns)
{
    std::printf("\n%-40s %6s %6s", "", "", "floor");
    for (const Column& column : columns)
        std::printf(" %9s", column.library);
    std::printf("\n%-40s %6s %6s", title, "bytes", "ns");
    for (const Column& column : columns)
        std::printf(" %9s", column.title);
    std::printf("\n");
}

// A row without bytes and floor. `value` gives the number of a column.
template <class Value> void printSummary(const char* title, std::size_t columns, int digits, Value value)
{
    std::printf("%-54s", title);
    for (std::size_t i = 0; i < columns; ++i)
        printNumber(value(i), 9, digits);
    std::printf("\n");
}

std::vector<Values> printRatios(const std::vector<Text>& texts, const std::vector<Column>& columns, Collector& times)
{
    std::vector<Values> ratios(columns.size());
    for (const Text& text : texts) {
        const Values& floors = times.of(nameOf(text, floorOperation));
        std::printf("%-40s %6zu", text.name.c_str(), text.bytes.size());
        printNumber(median(floors), 6, 0);
        for (std::size_t i = 0; i < columns.size(); ++i) {
            ratios[i].push_back(ratio(times.of(nameOf(text, columns[i].operation)), floors));
            printNumber(ratios[i].back(), 9, 2);
        }
        std::printf("\n");
    }
    return ratios;
}

// What a peer takes for the same, as a multiple of the time of the object view, over the texts that the peer reads.
double toObjectView(const std::vector<Values>& ratios, std::size_t column)
{
    Values quotients;
    for (std::size_t i = 0; i < ratios[column].size(); ++i)
        quotients.push_back(ratios[column][i] / ratios[column % 2 == 1 ? 0 : 1][i]);
    return column < 3 ? std::nan("") : geometricMean(quotients);
}

void printOrdinary(const char* title, const std::vector<Text>& texts, const std::vector<Column>& columns,
                   Collector& times)
{
    printHead(title, columns);
    const std::vector<Values> ratios = printRatios(texts, columns, times);
    printSummary("geometric mean", columns.size(), 2, [&](std::size_t i) { return geometricMean(ratios[i]); });
    if (columns.size() > 3)
        printSummary("times the object view", columns.size(), 2,
                     [&](std::size_t i) { return toObjectView(ratios, i); });
}

void measureOrdinary(const Settings& settings, const MemoryFigures& memory)
{
    const std::vector<Text> own = ordinaryTexts("");
    const std::vector<Text> real = ordinaryTexts("real");
    const std::vector<Column> columns = ordinaryColumns(settings.peers);
    for (const auto* texts : {&own, &real}) {
        for (const Text& text : *texts) {
            registerOrdinary(text, floorOperation, settings.seconds());
            for (const Column& column : columns)
                registerOrdinary(text, column.operation, settings.seconds());
        }
    }
    Collector times;
    times.measure("^ordinary ", settings.rounds());
    printOrdinary("times the floor", own, columns, times);
    printSummary("allocations, browser-large-offer", columns.size(), 0,
                 [&](std::size_t i) { return memory.allocations(largeOffer, columns[i].operation); });
    printSummary("peak bytes, browser-large-offer", columns.size(), 0,
                 [&](std::size_t i) { return memory.peak(largeOffer, columns[i].operation); });
    printOrdinary("times the floor, texts of programs", real, columns, times);
}

// Hostile texts

std::string nameOf(const Shape& shape, std::size_t size, const Operation& operation)
{
    return std::string("hostile ") + shape.name + " " + std::to_string(size) + " " + operation.name;
}

// The last text that was asked for, since all operations ask for it one behind the other.
const Text& hostileText(const Shape& shape, std::size_t size)
{
    static std::unique_ptr<Text> text;
    const std::string name = std::string(shape.name) + std::to_string(size);
    if (!text || text->name != name)
        text = std::make_unique<Text>(name, shape.make(size));
    return *text;
}

// The first pass shows whether larger texts can be tried at all, and is not measured: it finds the heap as another
// operation left it.
void registerHostile(const Shape& shape, std::size_t size, const Operation& operation, bool& tooSlow)
{
    const auto measure = [size, operation, &shape, &tooSlow](benchmark::State& state) {
        if (tooSlow) {
            state.SkipWithError("too slow");
            return;
        }
        const Text& text = hostileText(shape, size);
        const std::clock_t start = std::clock();
        operation.run(text);
        tooSlow = std::clock() - start > CLOCKS_PER_SEC;
        for (auto _ : state)
            benchmark::DoNotOptimize(operation.run(text));
    };
    benchmark::RegisterBenchmark(nameOf(shape, size, operation).c_str(), measure)->MinTime(0.01);
}

// The worst cost of a byte, and the exponent. A "!" says that larger texts were too slow to be tried.
void printGrowth(const Shape& shape, const std::vector<std::size_t>& sizes, const Operation& operation,
                 Collector& times)
{
    std::vector<std::pair<double, double>> measured;
    double worst = 0;
    for (const std::size_t size : sizes) {
        const double time = least(times.of(nameOf(shape, size, operation)));
        if (std::isnan(time))
            continue;
        measured.emplace_back(size, time);
        worst = std::max(worst, time / static_cast<double>(size));
    }
    printNumber(worst, 7, 1);
    printNumber(growth(measured), 5, 2);
    std::printf("%s", measured.size() < sizes.size() ? "!" : " ");
}

void measureHostile(const Settings& settings, const MemoryFigures& memory)
{
    const std::vector<Operation> operations{floorOperation, objectParse, objectRoundTrip, lineRoundTrip, lineLoops};
    std::vector<std::size_t> sizes;
    for (std::size_t size = 16 << 10; size <= settings.hostileSize(); size *= 4)
        sizes.push_back(size);
    std::map<std::string, bool> tooSlow;
    for (const Shape& shape : hostileShapes())
        for (const std::size_t size : sizes)
            for (const Operation& operation : operations)
                registerHostile(shape, size, operation, tooSlow[std::string(shape.name) + operation.name]);
    Collector times;
    times.measure("^hostile ", settings.hostileRounds());

    std::printf("\n%-29s", "");
    for (const char* head : {"floor", "object", "object", "lines", "lines", "memory"})
        std::printf(" %13s ", head);
    std::printf("\n%-29s", "ns a byte, exponent");
    for (const char* head : {"", "parse", "+write", "+write", "+loops", "times text"})
        std::printf(" %13s ", head);
    std::printf("\n");
    for (const Shape& shape : hostileShapes()) {
        std::printf("%-29s", shape.name);
        double peak = std::nan("");
        for (const Operation& operation : operations) {
            printGrowth(shape, sizes, operation, times);
            peak = std::fmax(peak, memory.peak(shape.name, operation));
        }
        printNumber(peak / hostileMemorySize, 13, 1);
        std::printf("\n");
    }
}

// Expressions: those of the library, and what they usually meet

struct Expression {
    const char* pattern;
    const char* subject;
    bool splits;
};

constexpr Expression expressions[] = {
    {R"(^\s*(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s+(\S+)\s*$)", "- 4611735294418127391 2 IN IP4 192.0.2.1", false},
    {R"(^\s*(\S+)\s+(\S+)\s+([^(/|\s)]+)/{0,1}(\S*)$)", "IN IP4 233.252.0.61/63", false},
    {R"(^([^(/)]+)/{0,1}(\S*)$)", "63/2", false},
    {R"(^(\S+):(\d+)$)", "AS:2048", false},
    {R"(^([^:]+):{0,1}(\S*)$)", "uri:https://example.org/key", false},
    {R"(^(\d+)\s+(\d+)$)", "3886428600 3894291000", false},
    {R"(^(\S+)\s+(\d+)\s+(\S+)\s+(.*)$)", "audio 9 UDP/TLS/RTP/SAVPF 111 63 9 0 8 13 110 126", false},
    {R"(\s* \s*)", "111 63 9 0 8 13 110 126", true},
    {R"(^(\d+)\s+(.*)$)", "111 minptime=10;useinbandfec=1", false},
    {R"(^(\S+)/([^/]\d+)/{0,1}(\S*)$)", "opus/48000/2", false},
    {R"(\s*;\s*)", "level-asymmetry-allowed=1;packetization-mode=1;profile-level-id=42e01f", true},
    {R"(^\s*([^=]*)=\s*(.*)$)", "profile-level-id=42e01f", false},
    {R"((.*\S)\s*$)", "profile-level-id", false},
};

void makeExpression(benchmark::State& state, const Expression& expression)
{
    for (auto _ : state) {
        const ym::PRegEx made(expression.pattern, 0);
        benchmark::DoNotOptimize(&made);
    }
}

void useExpression(benchmark::State& state, const Expression& expression)
{
    const ym::String subject(expression.subject);
    ym::PRegEx made(expression.pattern, 0);
    for (auto _ : state)
        benchmark::DoNotOptimize(expression.splits ? made.split(subject, 0) : int(made.match(subject, 0)));
}

void measureExpressions(const Settings& settings)
{
    using benchmark::RegisterBenchmark;
    const auto nameOf = [](const char* what, const Expression& expression) {
        return std::string("expression ") + what + expression.pattern;
    };
    for (const Expression& expression : expressions) {
        RegisterBenchmark(nameOf("make", expression).c_str(), makeExpression, expression)->MinTime(settings.seconds());
        RegisterBenchmark(nameOf("use", expression).c_str(), useExpression, expression)->MinTime(settings.seconds());
    }
    Collector times;
    times.measure("^expression ", settings.rounds());
    std::printf("\n%-60s %8s %8s\n", "expressions, ns", "make", "use");
    for (const Expression& expression : expressions) {
        std::printf("%-60s", expression.pattern);
        printNumber(least(times.of(nameOf("make", expression))), 8, 0);
        printNumber(least(times.of(nameOf("use", expression))), 8, 0);
        std::printf("\n");
    }
}

// Keeps the heap from giving memory back, or every pass over a large text would have the kernel clear it anew, and what
// is measured would be the kernel.
void keepHeap()
{
    mallopt(M_MMAP_THRESHOLD, 32 << 20); // no more is taken
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
}

} // namespace

int main(int argc, char** argv)
{
    keepHeap();
    benchmark::Initialize(&argc, argv);
    Settings settings;
    MemoryFigures memory;
    std::string tables;
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--quick")
            settings.quick = true;
        else if (argument == "--peers")
            settings.peers = true;
        else if (argument == "--ordinary" || argument == "--hostile" || argument == "--expressions")
            tables += argument;
        else
            memory.read(argument);
    }
    const auto wanted = [&](const char* table) { return tables.empty() || tables.find(table) != std::string::npos; };
    if (wanted("--ordinary"))
        measureOrdinary(settings, memory);
    if (wanted("--hostile"))
        measureHostile(settings, memory);
    if (wanted("--expressions"))
        measureExpressions(settings);
}

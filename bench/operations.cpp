#include "bench/operations.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <unistd.h>

#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>

#include "bench/floor.h"

namespace bench {

using ym::String;
using ym::SDP::SDPDesc;
using ym::SDP::SDPDescEx;

namespace {

bool parseObject(const Text& text)
{
    SDPDescEx desc;
    return desc.parse(text.string) == 0;
}

bool parseAndWriteObject(const Text& text)
{
    SDPDescEx desc;
    String out;
    return desc.parse(text.string) == 0 && desc.generate(&out) == 0;
}

bool parseAndWriteLines(const Text& text)
{
    SDPDesc desc("\r\n");
    String out;
    return desc.parse(text.string) == 0 && desc.generate(&out) == 0;
}

// The counts stand in the conditions on purpose: that is how such loops are written.
bool parseAndLoop(const Text& text)
{
    SDPDesc desc("\r\n");
    const bool parsed = desc.parse(text.string) == 0;
    String name;
    String value;
    for (int n = 0; n < desc.nAttr(); ++n)
        desc.attr(n, &name, &value);
    for (int section = 0; section < desc.nMedia(); ++section) {
        desc.media(section, 'm', &value);
        desc.media(section, 'c', &value);
        desc.hasMedia(section, 'k');
        desc.hasMediaAttr(section, "rtpmap", 'a');
        for (const char type : {'b', 'a'})
            for (int n = 0; n < desc.nMediaAttr(section, type); ++n)
                desc.mediaAttr(section, n, &name, &value, type);
    }
    return parsed;
}

std::string content(const std::filesystem::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

} // namespace

Text::Text(std::string name_, std::string bytes_) : name(std::move(name_)), bytes(std::move(bytes_))
{
    string.append(bytes.data(), static_cast<unsigned int>(bytes.size()));
}

const Operation floorOperation{"floor", [](const Text& text) { return floorRead(text.bytes) > 0; }};
const Operation objectParse{"parse", parseObject};
const Operation objectRoundTrip{"parse-write", parseAndWriteObject};
const Operation lineRoundTrip{"lines-parse-write", parseAndWriteLines};
const Operation lineLoops{"lines-loops", parseAndLoop};

const std::vector<Operation>& ownOperations()
{
    static const std::vector<Operation> operations{objectParse, objectRoundTrip, lineRoundTrip, lineLoops};
    return operations;
}

std::vector<Text> ordinaryTexts(const std::string& directory)
{
    std::vector<Text> texts;
    for (const auto& entry : std::filesystem::directory_iterator(std::filesystem::path(YM_BENCH_TEXTS) / directory))
        if (entry.path().extension() == ".sdp")
            texts.emplace_back(entry.path().stem(), content(entry.path()));
    std::sort(texts.begin(), texts.end(), [](const Text& a, const Text& b) { return a.name < b.name; });
    return texts;
}

Quiet::Quiet() : shown_(dup(STDERR_FILENO))
{
    const int nowhere = open("/dev/null", O_WRONLY);
    dup2(nowhere, STDERR_FILENO);
    close(nowhere);
}

Quiet::~Quiet()
{
    dup2(shown_, STDERR_FILENO);
    close(shown_);
}

} // namespace bench

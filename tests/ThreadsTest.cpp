// Objects of different threads have nothing in common, once the first SDPDesc of the process has been made.
#include <thread>

#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>
#include <tovik/NamedList.h>
#include <tovik/PRegEx.h>

#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::NamedList;
using ym::PRegEx;
using ym::String;

namespace {

// What becomes of a text in new objects of every class: it is read, changed, assigned, and written.
std::string throughAllClasses(const std::string& text)
{
    SDPDesc lines("\n");
    lines.parse(bytes(text));
    lines.set('s', "new");
    lines.setAttr(-1, "tool", "x");
    lines.removeMediaAttr(0, 0, 'a');

    SDPDescEx session;
    SDPDescEx copy;
    session.parse(bytes(generated(lines)));
    copy = session;
    copy.setConnection(NetworkTypeIN, AddressTypeIP6, "::1", 0, 0);

    SDPMedia section;
    if (copy.nMediaAudio() > 0)
        section = *copy.mediaAudio(0);
    section.addAttr("x", "y");
    std::string all = generated(lines) + generated(session) + generated(copy) + generated(section);

    PRegEx gap(R"(\s+)", 0);
    NamedList words("");
    for (int n = gap.split(bytes(all), 0); n-- > 0;)
        words.put(str(gap[n]), std::to_string(n));
    String word;
    String place;
    for (unsigned int i = 0; words.get(&word, &place, i); ++i)
        all += str(word) + " " + str(place) + "\n";
    return all;
}

TEST(Threads, UseObjectsOfTheirOwn)
{
    struct Row {
        std::string text, alone;
    };
    std::vector<Row> rows;
    for (const auto& entry : std::filesystem::directory_iterator(YM_TEST_DATA)) {
        const std::string text = contentOf(entry.path());
        rows.push_back({text, throughAllClasses(text)});
    }

    // Each thread begins with another text.
    const auto run = [&rows](std::size_t first) {
        for (std::size_t i = first; i < first + 2 * rows.size(); ++i)
            EXPECT_EQ(rows[i % rows.size()].alone, throughAllClasses(rows[i % rows.size()].text));
    };
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < 16; ++i)
        threads.emplace_back(run, i);
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace

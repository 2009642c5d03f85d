// Descriptions as programs have written them, through both views.
#include <filesystem>
#include <fstream>
#include <iterator>

#include <sdp/SDPDesc.h>
#include <sdp/SDPDescEx.h>

#include "support.h"

using namespace test;
using namespace ym::SDP;
using ym::String;

namespace {

std::string contentOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(RealDescriptions, ComeThroughBothViews)
{
    int n = 0;
    for (const auto& entry : std::filesystem::directory_iterator(YM_TEST_DATA)) {
        std::filesystem::path path = entry.path();
        if (path.extension() != ".sdp")
            continue;
        SCOPED_TRACE(path.filename());
        ++n;
        const std::string text = contentOf(path);

        SDPDesc lines("\n");
        String out;
        EXPECT_EQ(0, lines.parse(bytes(text)));
        EXPECT_EQ(0, lines.generate(&out));
        EXPECT_EQ(replaced(text, "\r\n", "\n"), str(out));

        SDPDescEx objects;
        EXPECT_EQ(0, objects.parse(bytes(text)));
        EXPECT_EQ(0, objects.generate(&out));
        EXPECT_EQ(contentOf(path.replace_extension(".out")), str(out));
        EXPECT_EQ(0, objects.parse(out));
        EXPECT_EQ(replaced(str(out), "\r\n", "|"), generated(objects));
    }
    EXPECT_EQ(19, n);
}

} // namespace

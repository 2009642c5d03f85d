// The words of the protocol and the values for them.
#include <algorithm>
#include <cstring>

#include <sdp/vocabulary.h>

#include "support.h"

using namespace ym::SDP;

namespace {

// Every word has the value of its place, and only the whole word in its own case has it.
template <class Value>
void expectWords(const std::vector<std::string>& words, const char* (*str)(Value), Value (*id)(const char*))
{
    const int n = static_cast<int>(words.size());
    for (int i = 0; i < n; ++i) {
        const std::string& word = words[static_cast<std::size_t>(i)];
        EXPECT_EQ(word, str(static_cast<Value>(i)));
        EXPECT_EQ(i, id(word.c_str())) << word;
        EXPECT_EQ(0, id((word + "x").c_str())) << word;
    }
    EXPECT_EQ(0, id("M") + id("in") + id("ip4") + id("Clear"));
    for (const int unknown : {-2147483647, -1, n, n + 1, 2147483647})
        EXPECT_STREQ("", str(static_cast<Value>(unknown))) << unknown;
}

TEST(Vocabulary, HasWordsForItsValues)
{
    expectWords<Field>({"", "v", "o", "s", "i", "u", "e", "p", "c", "b", "z", "k", "a", "t", "r", "m"}, fieldStr,
                       fieldId);
    expectWords<NetworkType>({"", "IN"}, networkTypeStr, networkTypeId);
    expectWords<AddressType>({"", "IP4", "IP6"}, addressTypeStr, addressTypeId);
    expectWords<EncryptionMethod>({"", "clear", "base64", "uri", "prompt"}, encryptionMethodStr, encryptionMethodId);
    for (int c = -128; c < 128; ++c) {
        const Field field = fieldId(static_cast<char>(c));
        EXPECT_EQ(field == FieldNone ? '\0' : static_cast<char>(c), fieldChar(field)) << c;
        EXPECT_EQ(c > 0 && std::strchr("vosiuepcbzktram", c) != nullptr, field != FieldNone) << c;
    }
    EXPECT_EQ(0, fieldChar(static_cast<Field>(16)) + fieldChar(static_cast<Field>(-1)));
}

TEST(Identity, IsTold)
{
    const std::string info = ym::SDP_libinfo;
    const std::string date = ym::SDP_update;
    EXPECT_EQ("2.0 of 2006/08/02 02:34:13", ym::SDP_version + (" of " + date));
    EXPECT_EQ(0U, info.find("Tovik SDP library version 2.0\n"));
    EXPECT_EQ(info.size() - date.size() - 15, info.find("\nLast Update: " + date + "\n"));
    EXPECT_EQ(3, std::count(info.begin(), info.end(), '\n'));
}

} // namespace

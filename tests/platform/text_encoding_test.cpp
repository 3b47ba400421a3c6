#include "platform/text_encoding.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace kelvor {
namespace {

using namespace std::string_literals;

TEST(TextEncoding, RecognisesHowBytesHoldTheirText) {
    const struct {
        std::string bytes;
        Encoding encoding;
        std::string text;
    } rows[] = {
        {"", Encoding::utf8, ""},
        {"plain\r\n", Encoding::utf8, "plain\r\n"},
        {"a\0b"s, Encoding::utf8, "a\0b"s},
        {"Gr\xC3\xB6\xC3\x9F"
         "e",
         Encoding::utf8, "Größe"},
        {"a\xEF\xBB\xBF"
         "b",
         Encoding::utf8, "a\uFEFFb"},
        {"\xEF\xBB\xBF", Encoding::utf8WithMark, ""},
        {"\xEF\xBB\xBF\xEF\xBB\xBFx", Encoding::utf8WithMark, "\uFEFFx"},
        {"\xEF\xBB\xBF\xE9", Encoding::windows1252, "ï»¿é"},
        {"\xEF\xBB", Encoding::windows1252, "ï»"},
        {"Gr\xF6\xDF"
         "e \x80",
         Encoding::windows1252, "Größe €"},
        {"\x81\x8D\x8F\x90\x9D", Encoding::windows1252, "\u0081\u008D\u008F\u0090\u009D"},
        {"\xFF\xFE", Encoding::utf16LittleEndian, ""},
        {"\xFF\xFE"
         "a\0\x3D\xD8\x00\xDE"s,
         Encoding::utf16LittleEndian, "a\U0001F600"},
        {"\xFE\xFF\0a\xD8\x3D\xDE\x00"s, Encoding::utf16BigEndian, "a\U0001F600"},
        {"\xFF\xFE\xFF\xFE", Encoding::utf16LittleEndian, "\uFEFF"},
        {"\xFF\xFE"
         "a",
         Encoding::windows1252, "ÿþa"},
        {"\xFF\xFE\x3D\xD8", Encoding::windows1252, "ÿþ=Ø"},
        {"\xFF\xFE\x3D\xD8"
         "a\0"s,
         Encoding::windows1252, "ÿþ=Øa\0"s},
        {"\xFE\xFF\xDE\x00"s, Encoding::windows1252, "þÿÞ\0"s},
    };
    for (const auto& row : rows) {
        const auto decoded = decode(row.bytes);
        EXPECT_EQ(decoded.encoding, row.encoding) << testing::PrintToString(row.bytes);
        EXPECT_EQ(decoded.text, row.text) << testing::PrintToString(row.bytes);
        EXPECT_EQ(encode(decoded.text, decoded.encoding), row.bytes);
    }
}

TEST(TextEncoding, RefusesCharactersThatTheEncodingLacks) {
    const struct {
        const char* text;
        Encoding encoding;
        bool possible;
    } rows[] = {
        {"€ ÿ \u0081", Encoding::windows1252, true},  {"\u0080", Encoding::windows1252, false},
        {"\u2028", Encoding::windows1252, false},     {"\U0001F600", Encoding::windows1252, false},
        {"Ā", Encoding::windows1252, false},          {"\U0001F600", Encoding::utf16BigEndian, true},
        {"\xFF", Encoding::utf16LittleEndian, false}, {"\xFF", Encoding::windows1252, false},
    };
    for (const auto& row : rows) EXPECT_EQ(encode(row.text, row.encoding).has_value(), row.possible) << row.text;
}

TEST(TextEncoding, TellsWellFormedUtf8) {
    const struct {
        const char* bytes;
        bool valid;
    } rows[] = {
        {"abcdefgh\xC3\xA9", true},
        {"\xF4\x8F\xBF\xBF", true},
        {"\xED\x9F\xBF\xEE\x80\x80", true},
        {"\x80", false},
        {"\xC3", false},
        {"abcdefg\xC3"
         "abcdefgh",
         false},
        {"\xC0\x80", false},
        {"\xC1\xBF", false},
        {"\xE0\x9F\xBF", false},
        {"\xF0\x8F\xBF\xBF", false},
        {"\xED\xA0\x80", false},
        {"\xF4\x90\x80\x80", false},
        {"\xF5\x80\x80\x80", false},
        {"\xE2\x82", false},
        {"\xFF", false},
    };
    for (const auto& row : rows) EXPECT_EQ(isValidUtf8(row.bytes), row.valid) << testing::PrintToString(row.bytes);
}

/// Random bytes that often look like one of the encodings, so that each of them is nearly right now and then.
std::string randomBytes(std::mt19937& random) {
    static const std::vector<std::string> pieces = {"\xEF\xBB\xBF", "\xFF\xFE",   "\xFE\xFF",  "é",
                                                    "日",           "\U0001F600", "a\0"s,      "\0a"s,
                                                    "\x3D\xD8",     "\xD8\x3D",   "\x00\xDE"s, "<P>\r\n"};
    std::string bytes;
    const auto count = random() % 12;
    const bool anyByte = random() % 2 == 0;
    for (std::size_t i = 0; i < count; ++i) {
        if (anyByte && random() % 3 == 0) {
            bytes += static_cast<char>(random());
        } else {
            bytes += pieces[random() % pieces.size()];
        }
    }
    return bytes;
}

TEST(TextEncoding, GivesAnyBytesBack) {
    std::mt19937 random(20240229);
    std::string all;
    for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
    std::vector<std::string> samples = {all, "\xEF\xBB\xBF" + all, "\xFF\xFE" + all, "\xFE\xFF" + all};
    for (int i = 0; i < 50000; ++i) samples.push_back(randomBytes(random));
    int seen[5] = {};
    for (const auto& bytes : samples) {
        const auto decoded = decode(bytes);
        ++seen[static_cast<int>(decoded.encoding)];
        ASSERT_TRUE(isValidUtf8(decoded.text)) << testing::PrintToString(bytes);
        ASSERT_EQ(encode(decoded.text, decoded.encoding), bytes);
        const auto taken = decode(std::string(bytes));
        ASSERT_EQ(taken.text, decoded.text);
        ASSERT_EQ(taken.encoding, decoded.encoding);
    }
    for (const int count : seen) EXPECT_GT(count, 100);
}

TEST(TextEncoding, TakesPlainBytesOverWithoutACopy) {
    std::string bytes(100000, 'x');
    const auto* place = bytes.data();
    EXPECT_EQ(decode(std::move(bytes)).text.data(), place);
}

}  // namespace
}  // namespace kelvor

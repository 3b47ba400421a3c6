// SPDX-License-Identifier: GPL-3.0-or-later
#include "text/text_encoding.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

#include "text/utf8_check.h"

namespace kelvor {
namespace {

using namespace std::string_literals;

TEST(TextEncoding, RecognisesHowBytesHoldTheirText) {
    const std::tuple<std::string, Encoding, std::string> rows[] = {
        {"a\0b\r\n"s, Encoding::utf8, "a\0b\r\n"s},
        {"Ma\xC3\x9F \xEF\xBB\xBF", Encoding::utf8, "Maß \uFEFF"},
        {"\xEF\xBB\xBF\xEF\xBB\xBFx", Encoding::utf8WithMark, "\uFEFFx"},
        {"\xEF\xBB\xBF\xE9", Encoding::windows1252, "ï»¿é"},
        {"Ma\xDF \x80 \x81\x8D\x8F\x90\x9D", Encoding::windows1252, "Maß € \u0081\u008D\u008F\u0090\u009D"},
        {"\xFF\xFEx\0\x3D\xD8\x00\xDE"s, Encoding::utf16LittleEndian, "x\U0001F600"},
        {"\xFE\xFF\0x\xD8\x3D\xDE\x00"s, Encoding::utf16BigEndian, "x\U0001F600"},
        {"\xFF\xFEx", Encoding::windows1252, "ÿþx"},
        {"\xFF\xFE\x3D\xD8x\0"s, Encoding::windows1252, "ÿþ=Øx\0"s},
        {"\xFE\xFF\xDE\x00"s, Encoding::windows1252, "þÿÞ\0"s},
    };
    for (const auto& [bytes, encoding, text] : rows) {
        const auto decoded = decode(bytes);
        EXPECT_EQ(decoded.encoding, encoding) << testing::PrintToString(bytes);
        EXPECT_EQ(decoded.text, text) << testing::PrintToString(bytes);
    }
}

TEST(TextEncoding, RefusesCharactersThatTheEncodingLacks) {
    for (const char* text : {"\u0080", "\u2028", "Ā", "\U0001F600", "\xFF"})
        EXPECT_FALSE(encode(text, Encoding::windows1252)) << text;
    EXPECT_FALSE(encode("\xFF", Encoding::utf16LittleEndian));
}

/// Random bytes that often look like one of the encodings, so that each of them is nearly right now and then.
std::string randomBytes(std::mt19937& random) {
    static const std::vector<std::string> pieces = {
        "\xEF\xBB\xBF", "\xFF\xFE", "\xFE\xFF", "é",        "日",        "😀",          "<P>\r\n",   "many as one",
        "a\0"s,         "\0a"s,     "\x3D\xD8", "\xD8\x3D", "\x00\xDE"s, "a\0s\0o\0"s, "\0a\0s\0o"s};
    std::string bytes;
    for (auto count = random() % 12; count > 0; --count) {
        bytes += random() % 6 == 0 ? std::string(1, static_cast<char>(random())) : pieces[random() % pieces.size()];
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
    }
    for (const int count : seen) EXPECT_GT(count, 100);
}

}  // namespace
}  // namespace kelvor

// SPDX-License-Identifier: GPL-3.0-or-later
#include "batch/file_count.h"

#include <filesystem>

#include "tests/kit/fake_platform.h"

namespace kelvor {
namespace {

using namespace std::string_literals;
using Outcome = FileCount::Outcome;

constexpr bool matched = true;
constexpr bool ignored = false;

class FileCounts : public testing::Test {
protected:
    /// The count in a file of those bytes; -1 when it counts as unreadable.
    int count(const std::string& text, bool matchCase, const std::string& bytes) {
        const auto result = FileCount(text, matchCase, [] { return true; }).in(files.write("page", bytes));
        EXPECT_NE(result.outcome, Outcome::stopped);
        return result.outcome == Outcome::counted ? static_cast<int>(result.count) : -1;
    }

    TestDirectory files;
};

TEST_F(FileCounts, CountsInTheTextAndNotInTheBytes) {
    const auto utf16 = [](const std::string& text) { return *encode(text, Encoding::utf16LittleEndian); };
    const auto big16 = [](const std::string& text) { return *encode(text, Encoding::utf16BigEndian); };
    const auto cp1252 = [](const std::string& text) { return *encode(text, Encoding::windows1252); };
    const std::tuple<std::string, bool, std::string, int> rows[] = {
        {"a", matched, "aaa", 3},
        {"", ignored, "abc", 0},
        {"\0b"s, matched, "a\0b"s, 1},
        // One word in all encodings; in another one its bytes are another word.
        {"CAFÉ", ignored, "café CAFÉ", 2},
        {"CAFÉ", ignored, cp1252("café CAFÉ €"), 2},
        {"CAFÉ", ignored, utf16("café CAFÉ"), 2},
        {"é", matched, big16("é\U0001F600é"), 2},
        {"Ã©", matched, "é", 0},
        {"ï»¿", matched, "\uFEFF\xE9", 1},
        {"ÿþ", matched, "\xFF\xFE" + "a"s, 1},
        // Signs that only some encodings have are the letters "k" and "s" in another case.
        {"k", ignored, "K\u212A", 2},
        {"k", ignored, "K\u212A\xE9", 1},
        {"\u017F", ignored, cp1252("Ss"), 2},
        {"mask", ignored, utf16("MA\u017F\u212A"), 1},
        // What cannot be told from a failure.
        {"r", matched, "error", -1},
        {"r", matched, "error ", 3},
        // CR LF is any line end, and an end-of-file mark inside brings one more at the end.
        {"a\r\nb", matched, "a\nb a\rb a\r\nb a\n\nb", 3},
        {"\r\n", matched, utf16("a\nb\x1A c"), 2},
        {"\r\n", matched, "a\nb\n\x1A", 2},
        {"b", matched, "a\nb\x1A b", 2},
    };
    for (const auto& [text, matchCase, bytes, times] : rows)
        EXPECT_EQ(count(text, matchCase, bytes), times) << text << " in " << testing::PrintToString(bytes);
}

TEST_F(FileCounts, CountsAcrossThePiecesOfALongFile) {
    // Distances of all lengths, so that pieces end at each place in a match, and surrogates at their ends.
    std::string text;
    int words = 0;
    for (; text.size() < 3'000'000; ++words) text.append("M\u00E4sk").append(static_cast<std::size_t>(words % 7), '.');
    const std::string clefs = text + "\U0001D11E";
    for (const auto encoding : {Encoding::utf8, Encoding::utf8WithMark, Encoding::utf16LittleEndian,
                                Encoding::utf16BigEndian, Encoding::windows1252}) {
        const auto bytes = *encode(encoding == Encoding::windows1252 ? text : clefs, encoding);
        EXPECT_EQ(count("mäSK", ignored, bytes), words);
        EXPECT_EQ(count("Mäsk", matched, bytes), words);
    }
    std::string pairs;
    for (int i = 0; i < 300'000; ++i) pairs += i % 100 == 0 ? "a\U0001D11E" : "\U0001D11E";
    EXPECT_EQ(count("\U0001D11E", matched, *encode(pairs, Encoding::utf16LittleEndian)), 300'000);
    EXPECT_EQ(count(std::string(100'000, 'a'), ignored, std::string(1'050'000, 'A')), 10);
}

TEST_F(FileCounts, GoesOnBehindAFileThatIsHugeOrMissing) {
    const auto path = files.write("huge", "");
    std::filesystem::resize_file(path, 200'000'000);
    int asked = 0;
    FileCount counter("x", ignored, [&] { return ++asked != 700; });
    EXPECT_EQ(counter.in(path).outcome, Outcome::stopped);
    EXPECT_EQ(asked, 700);
    EXPECT_EQ(counter.in(path).outcome, Outcome::counted);
    for (const char* name : {"missing", "missing/file", "program"})
        EXPECT_EQ(counter.in(files.path(name)).outcome, Outcome::unreadable) << name;
    EXPECT_EQ(counter.in(files.write("small", "x")).count, 1U);
}

}  // namespace
}  // namespace kelvor

// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/utf8_file.h"

#include "files/files.h"
#include "tests/kit/faults.h"

namespace kelvor {
namespace {

/// All parts in one; nothing when the file is not UTF-8.
std::optional<std::string> textOf(Utf8File& file) {
    std::string text;
    auto part = file.next();
    for (; part && !part->empty(); part = file.next()) text += *part;
    return part ? std::optional(text) : std::nullopt;
}

TEST(Utf8File, AgreesWithTheWholeFileHoweverItsBytesCome) {
    const ScratchDirectory directory;
    std::string large = "x";
    for (int i = 0; i < 100'000; ++i) large += "日\r\n";
    const std::string mark = "\xEF\xBB\xBF";
    std::vector<std::string> rows = {"a", "é日\U0001F600\r\r\n\n\n", "\xE6\x97", "\xFF\xFEx", "é\xE9 and more"};
    for (const char* bytes : {"\xED\xA0\x80\xF4\x90", "\x80", "\x80\x80", "\x80\x80\x80"}) rows.push_back(bytes);
    for (const auto& bytes : {mark, mark + "x\n", mark + mark, large, large + "é", large + "\xC3"})
        rows.push_back(bytes);
    for (const auto& bytes : rows) {
        const auto whole = decode(bytes);
        const bool isUtf8 = whole.encoding == Encoding::utf8 || whole.encoding == Encoding::utf8WithMark;
        LineEndCounts lineEnds;
        lineEnds.add(whole.text);
        for (const std::size_t most : {1, 2, 3, 1 << 20}) {
            SCOPED_TRACE(testing::PrintToString(bytes.substr(0, 20)) + " by " + std::to_string(most));
            Saboteur saboteur{.mostBytes = most};
            const ScopedSystemCalls scope(saboteur.calls());
            Utf8File file(directory.write("file", bytes));
            EXPECT_TRUE(textOf(file) == (isUtf8 ? std::optional(whole.text) : std::nullopt));
            if (!isUtf8) continue;
            EXPECT_EQ(file.encoding(), whole.encoding);
            EXPECT_EQ(file.lineEnd(), lineEnds.mostCommon());
        }
    }
}

TEST(Utf8File, LeavesWhatHasNoSizeAndThrowsWhatReadingThrows) {
    EXPECT_FALSE(Utf8File("/proc/self/maps").next());
    const ScratchDirectory directory;
    const auto path = directory.write("file", "text");
    EXPECT_EQ(errorOf([&] { Utf8File(path + "s"); }), "53 File not found: " + path + "s");
    const auto broken = failing(&SystemCalls::pread, EIO);
    EXPECT_EQ(errorOf([&] { Utf8File(path).next(); }), errorOf([&] { readFile(path); }));
}

}  // namespace
}  // namespace kelvor

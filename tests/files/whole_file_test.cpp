// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/whole_file.h"

#include "tests/kit/scratch_directory.h"

namespace kelvor {
namespace {

TEST(WholeFile, ReadsAWholeFileAndEndsItsLinesBehindAnEndOfFileMark) {
    const ScratchDirectory files;
    for (const auto& [bytes, text] : {
             std::pair{"caf\xE9\n", "café\n"},
             {"a\n\x1A\rc\r\n\r\nd", "a\r\n\x1A\r\nc\r\n\r\nd\r\n"},
             {"\x1A\n", "\x1A\r\n"},
             {"a\nb\x1A", "a\nb\x1A"},
         })
        EXPECT_EQ(readWholeFile(files.write("file", bytes)), text);
    EXPECT_EQ(readWholeFile(files / "missing"), "error");
}

}  // namespace
}  // namespace kelvor

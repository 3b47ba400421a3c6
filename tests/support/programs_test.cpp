// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/programs.h"

#include <filesystem>

#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

using Programs = FrameTest;

TEST_F(Programs, RunsAProgramWithoutAnInterpreter) {
    const std::string odd = files.write("my browser; $(x)", "");
    std::filesystem::permissions(odd, std::filesystem::perms(0755));
    runProgram(odd, "/a b/-rf \"c\".htm");
    runProgram("browser  --new \"a b\"c \"\"", "$(x)");
    EXPECT_EQ(platform.started, (std::vector<std::string>{odd + "|/a b/-rf \"c\".htm", "browser|--new|a bc||$(x)"}));

    platform.startFails = {{"gone", error_number::fileNotFound}, {"locked", error_number::pathAccess}};
    const std::string notFound = "The executable file required can not be found.\r\n\r\nFile: ";
    platform.expectMessage(critical(notFound + "gone --new /a.htm", "File not found"));
    runProgram("gone --new", "/a.htm");
    platform.expectMessage(critical(notFound, "File not found"));
    runProgram("");
    expectError(error_number::pathAccess, "cannot start locked");
    runProgram("locked");
}

}  // namespace
}  // namespace kelvor

// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/report_error.h"

#include <filesystem>

#include "frame/main_frame.h"
#include "tests/kit/kelvor_fixture.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

struct ReportError : FrameTest {
    std::string log() const { return files.read("program/errorlog.txt"); }

    void report(int number, const std::string& description) {
        expectError(number, description);
        reportError(std::to_string(number), description);
    }
};

TEST_F(ReportError, ShowsAndLogsEachErrorOnOneLineAndGivesTheFrameBack) {
    mainForm().setEnabled(false);
    const Hourglass busy;
    report(53, "File not found");
    EXPECT_TRUE(mainForm().enabled());
    EXPECT_EQ(platform.pointer, MousePointer::standard);
    EXPECT_EQ(platform.beeps, 1);
    report(1, "a\r\nToday 2 b\x1B[2J\u0085c\u2028d\u009B e\x7F é€ \xFF");
    EXPECT_EQ(log(),
              "long 2026-11-21 53 File not found\r\n"
              "long 2026-11-21 1 a  Today 2 b [2J c d  e  é€ \xFF\r\n");
}

TEST_F(ReportError, StopsALogFromGrowingForEver) {
    files.write("program/errorlog.txt", "");
    fs::resize_file(errorLogPath(), 4 * 1024 * 1024 - 100);
    report(5, "the last one " + std::string(100, 'x'));
    const auto size = fs::file_size(errorLogPath());
    EXPECT_TRUE(log().ends_with("x\r\nThe log is full. Remove or rename it to have errors logged again.\r\n"));
    report(5, "one more");
    EXPECT_EQ(fs::file_size(errorLogPath()), size);
    fs::remove_all(files.program());
    report(5, "nowhere to log it");
}

}  // namespace
}  // namespace kelvor

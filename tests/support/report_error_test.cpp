#include "support/report_error.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "core/frame.h"
#include "platform/event.h"
#include "tests/frame_fixture.h"

namespace kelvor {
namespace {

namespace fs = std::filesystem;

struct ReportError : FrameFixture {
    std::string log() const { return directory.read("program/errorlog.txt"); }

    void report(int number, const std::string& description) {
        expectError(number, description);
        reportError(std::to_string(number), description);
    }
};

TEST_F(ReportError, ShowsAndLogsEachErrorAndGivesTheFrameBack) {
    mainForm().setEnabled(false);
    const Hourglass busy;
    report(53, "File not found");
    EXPECT_TRUE(mainForm().enabled());
    EXPECT_EQ(platform.pointer, MousePointer::standard);
    EXPECT_EQ(platform.beeps, 1);
    report(9, "Subscript out of range");
    EXPECT_EQ(log(),
              "long 2026-11-21 53 File not found\r\n"
              "long 2026-11-21 9 Subscript out of range\r\n");
}

TEST_F(ReportError, IsWhereAHandlersErrorArrives) {
    Event<> event;
    int reached = 0;
    event.connect([] { throw Error(6, "Overflow"); });
    event.connect([&] { ++reached; });
    expectError(6, "Overflow");
    event.raise();
    EXPECT_EQ(reached, 1);
    EXPECT_EQ(log(), "long 2026-11-21 6 Overflow\r\n");
}

TEST_F(ReportError, LogsNoLineThatADescriptionMakesUp) {
    report(1, "a\r\nToday 2 b\x1B[2J\u0085c\u2028d\u009B e\x7F é€ \xFF");
    EXPECT_EQ(log(), "long 2026-11-21 1 a  Today 2 b [2J c d  e  é€ \xFF\r\n");
}

TEST_F(ReportError, PassesOverALogThatCannotBeWritten) {
    const std::string victim = directory.write("victim", "untouched");
    const std::pair<const char*, std::function<void()>> rows[] = {
        {"link", [&] { fs::create_symlink(victim, errorLogPath()); }},
        {"dangling link", [&] { fs::create_symlink(directory.path("none"), errorLogPath()); }},
        {"directory", [&] { fs::create_directory(errorLogPath()); }},
        {"pipe", [&] { ASSERT_EQ(mkfifo(errorLogPath().c_str(), 0600), 0); }},
        {"device", [&] { fs::create_symlink("/dev/full", errorLogPath()); }},
        {"no program directory", [&] { fs::remove_all(directory.program()); }},
    };
    for (const auto& [name, make] : rows) {
        SCOPED_TRACE(name);
        make();
        report(5, "Invalid procedure call");
        fs::remove_all(errorLogPath());
    }
    EXPECT_EQ(directory.read("victim"), "untouched");
    EXPECT_FALSE(fs::exists(directory.path("none")));
}

TEST_F(ReportError, StopsALogFromGrowingForEver) {
    directory.write("program/errorlog.txt", "");
    fs::resize_file(errorLogPath(), 4 * 1024 * 1024 - 100);
    report(5, "the last one " + std::string(100, 'x'));
    const auto size = fs::file_size(errorLogPath());
    EXPECT_TRUE(log().ends_with("x\r\nThe log is full. Remove or rename it to have errors logged again.\r\n"));
    report(5, "one more");
    EXPECT_EQ(fs::file_size(errorLogPath()), size);
}

TEST_F(ReportError, TearsNoLineOfTwoWriters) {
    constexpr int each = 3000;
    platform.answerAllMessages(Answer::ok);
    const auto child = fork();
    for (int number = 0; number < each; ++number) reportError(child == 0 ? "1" : "2", std::string(100, 'd'));
    if (child == 0) _exit(0);
    waitpid(child, nullptr, 0);
    std::ifstream file(errorLogPath());
    int lines = 0;
    for (std::string line; std::getline(file, line); ++lines) {
        ASSERT_EQ(line.size(), 15U + 3U + 100U + 1U) << line;
        ASSERT_EQ(line.substr(18), std::string(100, 'd') + "\r");
    }
    EXPECT_EQ(lines, 2 * each);
}

}  // namespace
}  // namespace kelvor

#include "platform/single_instance.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <array>
#include <csignal>
#include <cstdlib>

#include "platform/paths.h"
#include "tests/fresh_state.h"
#include "tests/platform/scratch_directory.h"

namespace kelvor {
namespace {

/// A run-time directory of the test's own, in force until it ends.
class SingleInstanceTest : public testing::Test {
protected:
    static void useRuntimeDirectory(const std::string& path) { setenv("XDG_RUNTIME_DIR", path.c_str(), 1); }

    ScratchDirectory runtime_;

private:
    ScopedVariable variable_{"XDG_RUNTIME_DIR", runtime_.path()};
};

/// A copy of the program in a process of its own that holds its lock, if it got it, until it is told to end.
class Copy {
public:
    Copy() {
        int answer[2] = {};
        if (pipe(answer) != 0) throw std::runtime_error("pipe");
        process_ = fork();
        if (process_ == 0) {
            const SingleInstance instance;
            const char told = instance.isFirst() ? '1' : '0';
            if (write(answer[1], &told, 1) != 1) _exit(1);
            for (;;) pause();
        }
        answer_ = answer[0];
        close(answer[1]);
    }
    ~Copy() { kill(); }

    bool isFirst() {
        char told = '?';
        EXPECT_EQ(read(answer_, &told, 1), 1);
        return told == '1';
    }
    void kill() {
        if (process_ <= 0) return;
        ::kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
        close(answer_);
        process_ = 0;
    }
    void stop() { ::kill(process_, SIGSTOP); }

private:
    pid_t process_ = 0;
    int answer_ = -1;
};

TEST_F(SingleInstanceTest, OneOfManyCopiesIsFirst) {
    for (int round = 0; round < 5; ++round) {
        std::array<Copy, 20> copies;
        int first = 0;
        for (auto& copy : copies) first += copy.isFirst() ? 1 : 0;
        EXPECT_EQ(first, 1);
    }
}

TEST_F(SingleInstanceTest, TheLockEndsWithItsProcess) {
    Copy copy;
    ASSERT_TRUE(copy.isFirst());
    copy.stop();
    EXPECT_FALSE(SingleInstance().isFirst());
    copy.kill();
    EXPECT_TRUE(SingleInstance().isFirst());
    EXPECT_TRUE(SingleInstance().isFirst());
}

TEST_F(SingleInstanceTest, TheLockFileIsTheUsersAlone) {
    const SingleInstance instance;
    struct stat status {};
    ASSERT_EQ(stat((runtime_ / "kelvor.lock").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0600U);
}

TEST_F(SingleInstanceTest, APlantedLinkIsNotFollowed) {
    const ScratchDirectory settings;
    const ScopedDirectories scope("", settings.path());
    const auto victim = runtime_.write("victim", "x");
    std::filesystem::create_symlink("victim", runtime_ / "kelvor.lock");
    const SingleInstance first;
    EXPECT_TRUE(first.isFirst());
    EXPECT_FALSE(SingleInstance().isFirst()) << "the next directory serves";
    EXPECT_EQ(runtime_.read("victim"), "x");
}

TEST_F(SingleInstanceTest, WithoutARunTimeDirectoryTheSettingsServe) {
    if (std::filesystem::exists("/run/user/" + std::to_string(geteuid()))) {
        GTEST_SKIP() << "this user has a run-time directory of the system";
    }
    const ScratchDirectory settings;
    const ScopedDirectories scope("", settings.path());
    useRuntimeDirectory("/nowhere");
    const SingleInstance first;
    EXPECT_TRUE(std::filesystem::exists(settings / "kelvor.lock"));
    EXPECT_FALSE(SingleInstance().isFirst());

    const ScopedDirectories none("", "");
    EXPECT_TRUE(SingleInstance().isFirst()) << "nothing to refuse by";
}

TEST_F(SingleInstanceTest, ADirectoryOfAnotherUserDoesNotCount) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can give a directory away";
    ASSERT_EQ(chown(runtime_.path().c_str(), 65534, 65534), 0);
    const ScratchDirectory settings;
    const ScopedDirectories scope("", settings.path());
    const SingleInstance first;
    EXPECT_FALSE(std::filesystem::exists(runtime_ / "kelvor.lock"));
}

}  // namespace
}  // namespace kelvor

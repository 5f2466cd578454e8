#include "platform/system/file_lock.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/platform/temporary_folder.h"

namespace {

using namespace std::chrono_literals;

TEST(FileLock, IsHeldByOneOpeningOnlyAndNeverByTheDead) {
    const TemporaryFolder folder;
    const auto path = folder.path() / "lock";
    const auto lock_in_child = [&] {
        const pid_t child = fork();
        if (child == 0) {
            const hx::FileLock lock(path, 0ms);
            _exit(lock.IsHeld() ? 0 : 1);  // without giving it back
        }
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    };
    {
        const hx::FileLock first(path, 0ms);
        EXPECT_TRUE(first.IsHeld());
        const hx::FileLock second(path, 1ms);
        EXPECT_EQ(second.Error().code, std::errc::timed_out);
        EXPECT_EQ(second.Error().path, path);
        EXPECT_FALSE(lock_in_child());
    }
    EXPECT_TRUE(lock_in_child());
    EXPECT_TRUE(hx::FileLock(path, 0ms).IsHeld());
    EXPECT_EQ(hx::FileLock(folder.path() / "no" / "lock", 0ms).Error().code,
              std::errc::no_such_file_or_directory);
}

}  // namespace

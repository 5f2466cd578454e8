// Processes that are killed at any moment while they save or mend a list: the next one finds it whole.
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <random>
#include <thread>

#include "tests/simulator/presets/store_fixture.h"

namespace hx::simulator {
namespace {

std::mt19937 g_random(1);

class PresetStoreKill : public PresetStoreTest {
protected:
    // Lets a process of its own do that up to some moment, behind at most so many of the steps that it tells.
    void RunAndKill(const char* what, uint32_t most_steps) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        posix_spawn_file_actions_addclose(&actions, ends[0]);
        std::string program = HX_BIN_DIR "/hx_test_preset_saver", folder = Folder(), task = what;
        char* const arguments[] = {program.data(), folder.data(), task.data(), nullptr};
        pid_t child = -1;
        ASSERT_EQ(posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, environ), 0);
        posix_spawn_file_actions_destroy(&actions);
        close(ends[1]);
        const auto steps = 1 + g_random() % most_steps;
        for (uint32_t step = 0; step < steps; ++step) {
            const auto before = std::chrono::steady_clock::now();
            char mark = 0;
            ASSERT_EQ(read(ends[0], &mark, 1), 1);
            if (step > 0) m_step = std::chrono::steady_clock::now() - before;
        }
        // Anywhere in the next step, however long the disk takes.
        std::this_thread::sleep_for(m_step * (g_random() % 1000) / 1000);
        kill(child, SIGKILL);
        close(ends[0]);
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
            << "it failed before it was killed: " << status;
    }

private:
    std::chrono::nanoseconds m_step = std::chrono::milliseconds(1);
};

TEST_F(PresetStoreKill, TheOldListOrTheNewOne) {
    ASSERT_EQ(Save(kKillLists[0], kModel, kKillOwner), S_OK);
    int seen[2] = {};
    for (int round = 0; round < 120; ++round) {
        ASSERT_NO_FATAL_FAILURE(RunAndKill("save", 3));
        const Loaded loaded = Load(kModel, kKillOwner);
        ASSERT_EQ(loaded.result, S_OK);
        ASSERT_EQ(loaded.outcome, PresetsOutcome::kNone);
        const bool second = loaded.list.selected == kKillLists[1].selected;
        ASSERT_TRUE(Same(loaded.list, kKillLists[second])) << round;
        ++seen[second];
    }
    EXPECT_GT(seen[0], 0);
    EXPECT_GT(seen[1], 0);
    ASSERT_EQ(Save(kKillLists[0], kModel, kKillOwner), S_OK);
    ASSERT_EQ(Save(kKillLists[1], kModel, kKillOwner), S_OK);
    EXPECT_EQ(Archived().size(), 10u) << "archives that nobody had the time to delete";
}

TEST_F(PresetStoreKill, WhatIsMendedIsArchivedOnceAndWhole) {
    ASSERT_EQ(Save(kKillLists[0], kModel, kKillOwner), S_OK);
    std::filesystem::path file;
    for (const auto& entry : std::filesystem::directory_iterator(Folder())) {
        if (entry.path().extension() == ".xml") file = entry.path();
    }
    std::string damaged = BytesOf(file);
    const std::string version = "<Version type=\"uint\">6</Version>";
    damaged.replace(damaged.rfind(version), version.size(), "<Version type=\"uint\">7</Version>");
    for (int round = 0; round < 60; ++round) {
        std::filesystem::remove_all(Folder() / "archive");
        std::ofstream(file, std::ios::binary) << damaged;
        ASSERT_NO_FATAL_FAILURE(RunAndKill("load", 2));
        const bool mended = BytesOf(file) != damaged;
        const Loaded loaded = Load(kModel, kKillOwner);
        ASSERT_EQ(loaded.outcome, mended ? PresetsOutcome::kNone : PresetsOutcome::kUnknownVersion);
        ASSERT_EQ(loaded.list.presets.size() + 1, kKillLists[0].presets.size());
        int whole = 0;
        for (const auto& archive : Archived()) whole += BytesOf(archive) == damaged;
        ASSERT_EQ(whole, 1) << round << (mended ? " mended" : "");
    }
}

}  // namespace
}  // namespace hx::simulator

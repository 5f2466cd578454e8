// Writers that are killed at any moment: what was acknowledged is there, and the store opens.
#include <chrono>
#include <random>
#include <thread>

#include "tests/platform/registry/child_process.h"
#include "tests/platform/registry/store_fixture.h"

namespace hx {
namespace {

using Result = RegistryResult;

std::mt19937 g_random(1);

void SleepUpTo(uint32_t microseconds) {
    std::this_thread::sleep_for(std::chrono::microseconds(g_random() % microseconds));
}

// A writer's operations: by turns a tree of keys, a value in it, and every fourth time the tree before is
// deleted.
struct Writer {
    std::wstring name;

    std::wstring Tree(uint32_t i) const { return L"Software\\" + name + L"-" + std::to_wstring(i - i % 2); }
    static bool IsDeletion(uint32_t i) { return i % 8 == 7; }

    Result Do(IRegistry& registry, uint32_t i) const {
        if (IsDeletion(i)) return registry.DeleteKey(kMachine, Tree(i - 2));
        if (i % 2 == 0) return registry.CreateKey(kMachine, Tree(i) + L"\\A\\B");
        return registry.SetValue(kMachine, Tree(i) + L"\\A\\B", L"v", i);
    }

    // That the first `done` operations were done, and the one behind them wholly or not at all.
    void Check(IRegistry& registry, uint32_t done) const {
        for (uint32_t i = 0; i <= done; i += 2) {
            RegistryValue value;
            const Result tree = registry.OpenKey(kMachine, Tree(i), RegistryAccess::kRead);
            const Result leaf = registry.OpenKey(kMachine, Tree(i) + L"\\A\\B", RegistryAccess::kRead);
            const Result data = registry.QueryValue(kMachine, Tree(i) + L"\\A\\B", L"v", value);
            const bool is_to_go = IsDeletion(i + 3) && i + 3 <= done;
            ASSERT_EQ(tree, leaf) << "half a tree: " << i << " of " << done;
            if (is_to_go && i + 3 < done) {
                ASSERT_EQ(tree, Result::kNotFound) << i << " of " << done;
            }
            if (!is_to_go && i < done) {
                ASSERT_EQ(tree, Result::kDone) << i << " of " << done;
            }
            if (tree != Result::kDone) {
                ASSERT_EQ(data, Result::kNotFound) << i << " of " << done;
            }
            const bool has_value = tree == Result::kDone && i + 1 < done && !IsDeletion(i + 1);
            if (has_value) {
                ASSERT_EQ(value, RegistryValue(i + 1)) << i << " of " << done;
            }
        }
    }
};

class StoreKill : public StoreTest {};

TEST_F(StoreKill, NoAcknowledgedWriteIsLost) {
    constexpr int kRounds = 80;
    constexpr int kWriters = 4;
    struct Run {
        Writer writer;
        uint32_t done;
    };
    std::vector<Run> runs;
    uint32_t all_done = 0;
    for (int round = 0; round < kRounds; ++round) {
        struct Child {
            pid_t pid;
            int acknowledged;
        };
        std::vector<Child> children;
        for (int w = 0; w < kWriters; ++w) {
            const Writer& writer = runs.emplace_back(Run{{std::to_wstring(round * kWriters + w)}, 0}).writer;
            int ends[2];
            ASSERT_EQ(pipe(ends), 0);
            children.push_back({StartChild([&] {
                                    const auto registry = Open();
                                    for (uint32_t i = 0; i < 100'000; ++i) {
                                        ASSERT_EQ(writer.Do(*registry, i), Result::kDone) << i;
                                        ASSERT_EQ(write(ends[1], "a", 1), 1);
                                    }
                                }),
                                ends[0]});
            close(ends[1]);
        }
        SleepUpTo(20'000);
        for (const Child& child : children) {
            Kill(child.pid);
            SleepUpTo(4'000);
        }
        for (int w = 0; w < kWriters; ++w) {
            uint32_t& done = runs[runs.size() - kWriters + static_cast<size_t>(w)].done;
            char marks[4096];
            for (ssize_t got = 1; got > 0; done += static_cast<uint32_t>(got)) {
                got = read(children[static_cast<size_t>(w)].acknowledged, marks, sizeof marks);
                ASSERT_GE(got, 0);
            }
            close(children[static_cast<size_t>(w)].acknowledged);
            all_done += done;
        }
        // Sometimes it is the next writers that find what the killed ones left.
        if (round % 3 != 0) continue;
        const auto registry = Open();
        for (const Run& run : runs) ASSERT_NO_FATAL_FAILURE(run.writer.Check(*registry, run.done));
        runs.clear();
    }
    const auto registry = Open();
    for (const Run& run : runs) ASSERT_NO_FATAL_FAILURE(run.writer.Check(*registry, run.done));
    EXPECT_TRUE(Reports().empty() && SetAside().empty());
    EXPECT_GT(all_done, 1000u) << "too few writes to lose any";
}

// Whether a store is being begun, opened or set aside: the next process finds a store, or can begin one.
TEST_F(StoreKill, AStoreIsNeverHalfMade) {
    for (int round = 0; round < 60; ++round) {
        const TemporaryFolder folder;
        const auto open = [&] {
            return OpenRegistryStore(folder.path() / "sub/machine", folder.path() / "user");
        };
        const bool begins_damaged = round % 2 == 1;
        if (begins_damaged) {
            std::filesystem::create_directory(folder.path() / "sub");
            folder.Write("sub/machine", "this is no database");
        }
        const pid_t writer = StartChild([&] {
            open()->CreateKey(kMachine, kKey);
            pause();
        });
        SleepUpTo(5'000);
        Kill(writer);
        const auto registry = open();
        EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kDone) << round;
        EXPECT_EQ(Set(*registry, 1), Result::kDone) << round;
        EXPECT_LE(Reports().size(), begins_damaged ? 1u : 0u) << round;
        Reports().clear();
        int set_aside = 0;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "sub")) {
            set_aside +=
                entry.path().filename().string().starts_with("machine.damaged-") && entry.file_size() < 50;
        }
        EXPECT_EQ(set_aside, begins_damaged ? 1 : 0) << round << ": the damaged file";
    }
}

}  // namespace
}  // namespace hx

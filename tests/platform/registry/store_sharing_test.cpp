// Threads and processes that use one store at the same time.
#include <thread>

#include "tests/platform/registry/child_process.h"
#include "tests/platform/registry/store_fixture.h"

namespace hx {
namespace {

using Result = RegistryResult;

class StoreSharing : public StoreTest {
protected:
    // Each value is written, read, and its like in another key deleted.
    static void WriteMany(IRegistry& registry, uint32_t first, uint32_t count) {
        for (uint32_t i = first; i < first + count; ++i) {
            ASSERT_EQ(registry.CreateKey(kMachine, kKey), Result::kDone) << i;
            ASSERT_EQ(Set(registry, i), Result::kDone) << i;
            ASSERT_EQ(Query(registry, i), Result::kDone) << i;
            const std::wstring key = L"Temporary\\" + std::to_wstring(i);
            ASSERT_EQ(registry.CreateKey(kUser, key), Result::kDone) << i;
            ASSERT_EQ(registry.DeleteKey(kUser, key), Result::kDone) << i;
        }
    }
    void ExpectAll(uint32_t count) const {
        const auto registry = Open();
        for (uint32_t i = 0; i < count; ++i) EXPECT_EQ(Query(*registry, i), Result::kDone) << i;
        std::vector<std::wstring> left;
        EXPECT_EQ(registry->ListKeys(kUser, L"Temporary", left), Result::kDone);
        EXPECT_TRUE(left.empty() && Reports().empty());
    }
};

TEST_F(StoreSharing, ByThreads) {
    const auto registry = Open();
    const auto second = Open();
    std::vector<std::thread> threads;
    for (uint32_t t = 0; t < 6; ++t) {
        threads.emplace_back([&, t] { WriteMany(t % 2 == 0 ? *registry : *second, t * 30, 30); });
    }
    for (std::thread& thread : threads) thread.join();
    ExpectAll(6 * 30);
}

TEST_F(StoreSharing, ByProcessesThatBeginItTogether) {
    std::vector<pid_t> children;
    for (uint32_t i = 0; i < 4; ++i) {
        children.push_back(StartChild([&, i] { WriteMany(*Open(), i * 50, 50); }));
    }
    for (const pid_t child : children) ExpectSuccess(child);
    ExpectAll(4 * 50);
}

// Each makes the key anew with two values below it, while the others do so and look.
TEST_F(StoreSharing, ChangesAreSeenWholeAndNeverSpoilEachOther) {
    std::vector<pid_t> children;
    for (uint32_t i = 0; i < 3; ++i) {
        children.push_back(StartChild([&] {
            const auto registry = Open();
            const std::wstring inner = std::wstring(kKey) + L"\\Inner";
            Result results[3];
            for (int time = 0; time < 100; ++time) {
                const auto make_anew = [&](IRegistry& changing) {
                    EXPECT_FALSE(changing.Stamp(kMachine));
                    EXPECT_EQ(changing.CreateKey(kUser, kKey), Result::kInvalid) << "another store";
                    changing.DeleteKey(kMachine, kKey);
                    results[0] = changing.CreateKey(kMachine, inner);
                    results[1] = changing.SetValue(kMachine, inner, L"", L"x");
                    results[2] = Set(changing, 0);
                    EXPECT_EQ(changing.DeleteKey(kMachine, L"Missing"), Result::kNotFound);
                };
                ASSERT_EQ(registry->Change(kMachine, RegistryChange::kMake, make_anew), Result::kDone);
                for (const Result result : results) ASSERT_EQ(result, Result::kDone);
                ASSERT_EQ(Query(*registry, 0), Result::kDone) << "another one's change is seen in part";
            }
        }));
    }
    for (const pid_t child : children) ExpectSuccess(child);
    bool was_run = false;
    const auto registry = Open();
    EXPECT_EQ(registry->Change(kUser, RegistryChange::kDelete,
                               [&](IRegistry& changing) {
                                   was_run = changing.DeleteKey(kUser, kKey) == Result::kNotFound;
                               }),
              Result::kDone);
    EXPECT_TRUE(was_run && !std::filesystem::exists(File("user"))) << "deleting makes no store";
}

TEST_F(StoreSharing, WhatOneWritesTheOthersSeeAtOnce) {
    const auto one = Open();
    const auto other = Open();
    EXPECT_EQ(Query(*other, 0), Result::kNotFound) << "there is no store yet";
    EXPECT_EQ(one->CreateKey(kMachine, kKey), Result::kDone);
    for (uint32_t i = 0; i < 50; ++i) {
        EXPECT_EQ(Set(*one, i), Result::kDone);
        EXPECT_EQ(Query(*other, i), Result::kDone);
    }
    EXPECT_EQ(other->DeleteKey(kMachine, kKey), Result::kDone);
    EXPECT_EQ(Set(*one, 0), Result::kNotFound);
}

TEST_F(StoreSharing, TheOneOfAProcessLiesWhereTheEnvironmentSays) {
    InChild([&] {
        const std::pair<const char*, const char*> variables[] = {
            {"HX_REGISTRY", "both"}, {"XDG_DATA_HOME", "data"}, {"HOME", "home"}};
        const char* const files[] = {"both/user.registry", "data/orvel-hx/user.registry",
                                     "home/.local/share/orvel-hx/user.registry"};
        for (const auto& [name, folder] : variables) setenv(name, File(folder).c_str(), 1);
        for (size_t i = 0; i < std::size(files); ++i) {
            SetRegistry(nullptr);
            EXPECT_EQ(Registry()->OpenKey(kUser, kKey, RegistryAccess::kRead), Result::kNotFound);
            EXPECT_FALSE(std::filesystem::exists(File(files[i]).parent_path())) << "made without need";
            EXPECT_EQ(Registry()->CreateKey(kUser, kKey), Result::kDone);
            EXPECT_TRUE(std::filesystem::exists(File(files[i]))) << files[i];
            if (i == 0) {
                EXPECT_EQ(Registry()->CreateKey(kMachine, kKey), Result::kDone);
                EXPECT_TRUE(std::filesystem::exists(File("both/machine.registry")));
            }
            unsetenv(variables[i].first);
        }
    });
}

}  // namespace
}  // namespace hx

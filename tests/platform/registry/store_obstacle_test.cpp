// A store that cannot be used for another reason than damage is left alone, and works again afterwards.
#include <fcntl.h>
#include <sched.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>

#include <fstream>

#include "tests/platform/registry/child_process.h"
#include "tests/platform/registry/store_fixture.h"

namespace hx {
namespace {

using Result = RegistryResult;

class StoreObstacle : public StoreTest {
protected:
    ~StoreObstacle() override { EXPECT_TRUE(SetAside().empty()); }

    // Writes until no more fits; what was there is still read, by whoever has it open and by others.
    void FillUp(IRegistry& registry) const {
        Result result = Result::kDone;
        for (uint32_t i = 0; result == Result::kDone && i < 1000; ++i) {
            result =
                registry.SetValue(kMachine, kKey, L"large" + std::to_wstring(i), std::wstring(5000, L'x'));
        }
        EXPECT_EQ(result, Result::kDiskFull);
        EXPECT_EQ(Query(registry, 0), Result::kDone);
        EXPECT_EQ(Query(*Open(), 0), Result::kDone);
        EXPECT_TRUE(Reports().empty());
    }
};

TEST_F(StoreObstacle, ABusyStore) {
    Fill(2);
    const auto registry = Open(50);
    sqlite3* other = nullptr;
    ASSERT_EQ(sqlite3_open(MachineFile().c_str(), &other), SQLITE_OK);
    ASSERT_EQ(sqlite3_exec(other, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr), SQLITE_OK);
    EXPECT_EQ(Set(*registry, 1), Result::kBusy);
    EXPECT_EQ(registry->CreateKey(kMachine, L"New"), Result::kBusy);
    EXPECT_EQ(registry->DeleteKey(kMachine, kKey), Result::kBusy);
    EXPECT_EQ(registry->Change(kMachine, RegistryChange::kMake, [](IRegistry&) { FAIL(); }), Result::kBusy);
    EXPECT_EQ(Query(*registry, 1), Result::kDone) << "who writes keeps nobody from reading";
    EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kDone) << "nothing to write";
    sqlite3_close(other);
    EXPECT_EQ(Set(*registry, 1), Result::kDone);

    const int lock = open(File("machine.lock").c_str(), O_RDWR | O_CLOEXEC);
    ASSERT_EQ(flock(lock, LOCK_EX), 0);
    const auto late = Open(50);
    EXPECT_EQ(Query(*late, 1), Result::kBusy) << "another process is setting it in order";
    close(lock);
    EXPECT_EQ(Query(*late, 1), Result::kDone);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(StoreObstacle, AFullDisk) {
    Fill(2);
    InChild([&] {
        if (unshare(CLONE_NEWNS) != 0 || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", m_folder.path().c_str(), "tmpfs", 0, "size=256k") != 0) {
            GTEST_SKIP() << "may not mount";
        }
        std::ofstream(File("other")) << std::string(100'000, 'x');
        {
            const auto registry = Open();
            EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kDone);
            EXPECT_EQ(Set(*registry, 0), Result::kDone);
            FillUp(*registry);
        }
        // Now nothing at all fits, not even what SQLite needs for opening.
        std::ofstream(File("rest")) << std::string(300'000, 'x');
        const auto registry = Open();
        EXPECT_EQ(Query(*registry, 0), Result::kDone);
        EXPECT_EQ(registry->CreateKey(kUser, kKey), Result::kDiskFull) << "no room for a new store";
        std::filesystem::remove(File("other"));
        EXPECT_EQ(registry->CreateKey(kUser, kKey), Result::kDone);
        EXPECT_EQ(registry->DeleteKey(kMachine, kKey), Result::kDone);
        EXPECT_TRUE(SetAside().empty() && Reports().empty());
    });
}

TEST_F(StoreObstacle, AFileThatMayNotGrow) {
    Fill(2);
    InChild([&] {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{100'000, 100'000};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        FillUp(*Open());
    });
    EXPECT_EQ(Set(*Open(), 1), Result::kDone);
}

TEST_F(StoreObstacle, NoMemory) {
    Fill();
    sqlite3_hard_heap_limit64(20'000);
    const auto registry = Open();
    EXPECT_THROW(Query(*registry, 1), std::bad_alloc);
    EXPECT_THROW(Set(*registry, 1), std::bad_alloc);
    sqlite3_hard_heap_limit64(0);
    EXPECT_EQ(Query(*registry, 1), Result::kDone);
    EXPECT_TRUE(Reports().empty());
}

TEST_F(StoreObstacle, AFileThatCannotBeRead) {
    std::filesystem::create_symlink("/proc/self/mem", MachineFile());
    const auto registry = Open();
    EXPECT_EQ(Query(*registry, 1), Result::kIoFailed);
    EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kIoFailed);
    EXPECT_TRUE(std::filesystem::is_symlink(MachineFile()) && Reports().empty());
}

TEST_F(StoreObstacle, ALinkThatLeadsNowhere) {
    std::filesystem::create_symlink("there/store", MachineFile());
    const auto registry = Open();
    EXPECT_EQ(Query(*registry, 1), Result::kNotFound);
    EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kIoFailed) << "the target's folder is missing";
    std::filesystem::create_directory(File("there"));
    EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kDone);
    EXPECT_TRUE(std::filesystem::is_symlink(MachineFile()));
    EXPECT_TRUE(std::filesystem::is_regular_file(File("there/store")));
}

TEST_F(StoreObstacle, AFileInPlaceOfItsFolder) {
    std::ofstream(File("file")) << "x";
    const auto registry = OpenRegistryStore(File("file") / "machine", File("file") / "below" / "user");
    for (const RegistryRoot root : {kMachine, kUser}) {
        EXPECT_EQ(registry->CreateKey(root, kKey), Result::kIoFailed);
        EXPECT_EQ(registry->DeleteKey(root, kKey), Result::kIoFailed);
    }
    EXPECT_EQ(registry->Change(kMachine, RegistryChange::kDelete, [](IRegistry&) {}), Result::kIoFailed);
}

TEST_F(StoreObstacle, AStoreOfALaterVersion) {
    Fill(2);
    Execute("PRAGMA user_version=2");
    const auto registry = Open();
    for (int i = 0; i < 2; ++i) {
        EXPECT_EQ(Query(*registry, 1), Result::kDamaged);
        EXPECT_EQ(Set(*registry, 1), Result::kDamaged);
    }
    ASSERT_EQ(Reports().size(), 1u);
    EXPECT_TRUE(Reports()[0].set_aside.empty());
    std::filesystem::rename(MachineFile(), File("later"));
    EXPECT_EQ(Query(*registry, 1), Result::kNotFound) << "it has gone, so there is nothing in the way";
    EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kDone);
}

}  // namespace
}  // namespace hx

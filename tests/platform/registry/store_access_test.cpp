// Who may do what: the machine's store is an administrator's to write and everybody's to read.
#include <sys/stat.h>

#include "tests/platform/registry/child_process.h"
#include "tests/platform/registry/store_fixture.h"

namespace hx {
namespace {

using Result = RegistryResult;

constexpr uid_t kNobody = 65534;

// As an operator: without rights, if this process has any to lose; else what is to be read-only was made so.
template <class Body>
void AsOperator(Body body) {
    InChild([&] {
        if (geteuid() == 0) {
            ASSERT_EQ(setgid(kNobody), 0);
            ASSERT_EQ(setuid(kNobody), 0);
        }
        body();
    });
}

mode_t ModeOf(const std::filesystem::path& file) {
    struct stat status {};
    EXPECT_EQ(stat(file.c_str(), &status), 0) << file;
    return status.st_mode & 07777;
}

class StoreAccess : public StoreTest {
protected:
    StoreAccess() { chmod(m_folder.path().c_str(), 0755); }

    std::shared_ptr<IRegistry> OpenAsOperator() const {
        return OpenRegistryStore(MachineFile(), File("none/user"));
    }

    // After what an administrator did, an operator reads all of it and writes nothing.
    void ExpectReadable(uint32_t values, const char* when) {
        if (geteuid() != 0) ProtectFromOneself();
        AsOperator([&] {
            const auto registry = OpenAsOperator();
            EXPECT_EQ(Query(*registry, 0), Result::kDone) << when;
            EXPECT_EQ(Query(*registry, values - 1), Result::kDone) << when;
            EXPECT_EQ(Query(*registry, values), Result::kNotFound) << when;
            EXPECT_EQ(registry->OpenKey(kMachine, kKey, RegistryAccess::kRead), Result::kDone) << when;
            EXPECT_EQ(registry->OpenKey(kMachine, kKey, RegistryAccess::kReadWrite), Result::kAccessDenied);
            EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kAccessDenied) << when;
            EXPECT_EQ(registry->CreateKey(RegistryRoot::kClassesRoot, L"New"), Result::kAccessDenied) << when;
            EXPECT_EQ(Set(*registry, 0), Result::kAccessDenied) << when;
            EXPECT_EQ(registry->DeleteValue(kMachine, kKey, L"0"), Result::kAccessDenied) << when;
            EXPECT_EQ(registry->DeleteKey(kMachine, kKey), Result::kAccessDenied) << when;
            EXPECT_TRUE(Reports().empty()) << when;
        });
        if (geteuid() != 0) chmod(m_folder.path().c_str(), 0755);
    }
    void ProtectFromOneself() const {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path())) {
            chmod(entry.path().c_str(), entry.path().extension() == ".lock" ? 0 : 0444);
        }
        chmod(m_folder.path().c_str(), 0555);
    }
};

TEST_F(StoreAccess, AnOperatorReadsWhatAnAdministratorWrote) {
    // An administrator whose own files are for nobody else.
    InChild([&] {
        umask(077);
        Fill();
    });
    EXPECT_EQ(ModeOf(MachineFile()), 0644u);
    ExpectReadable(400, "closed");
    for (const char* const gone : {"machine-wal", "machine-shm", "machine.lock"}) {
        EXPECT_TRUE(std::filesystem::remove(File(gone))) << gone;
        ExpectReadable(400, gone);
    }
}

TEST_F(StoreAccess, AnOperatorReadsWhatADeadAdministratorWrote) {
    InChild([&] {
        const auto registry = Open();
        registry->CreateKey(kMachine, kKey);
        for (uint32_t i = 0; i < 50; ++i) EXPECT_EQ(Set(*registry, i), Result::kDone);
        EXPECT_GT(std::filesystem::file_size(File("machine-wal")), 0u);
        _exit(EXIT_SUCCESS);  // with the log full and the store open
    });
    ExpectReadable(50, "died");
}

TEST_F(StoreAccess, AnOperatorReadsBesideAdministratorsThatComeAndGo) {
    if (geteuid() != 0) GTEST_SKIP() << "needs two users";
    Fill(1);
    const pid_t administrator = StartChild([&] {
        for (uint32_t i = 1; i <= 400; ++i) EXPECT_EQ(Set(*Open(), i), Result::kDone);
    });
    AsOperator([&] {
        const auto registry = OpenAsOperator();
        for (uint32_t seen = 0; seen < 400;) {
            ASSERT_EQ(Query(*registry, 0), Result::kDone);
            ASSERT_EQ(Query(*registry, seen), Result::kDone) << "seen, and gone again";
            if (Query(*OpenAsOperator(), seen + 1) == Result::kDone) ++seen;
        }
        EXPECT_TRUE(Reports().empty());
    });
    ExpectSuccess(administrator);
}

TEST_F(StoreAccess, WithoutAMachineStoreThereIsNothingToRead) {
    if (geteuid() != 0) chmod(m_folder.path().c_str(), 0555);
    AsOperator([&] {
        const auto registry = OpenAsOperator();
        EXPECT_EQ(Query(*registry, 0), Result::kNotFound);
        EXPECT_EQ(registry->OpenKey(kMachine, kKey, RegistryAccess::kRead), Result::kNotFound);
        EXPECT_EQ(registry->OpenKey(kMachine, kKey, RegistryAccess::kReadWrite), Result::kNotFound);
        EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kAccessDenied);
        EXPECT_EQ(registry->CreateKey(kUser, kKey), Result::kAccessDenied);
    });
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.path())) << "reading made something";
}

TEST_F(StoreAccess, AUsersStoreIsTheUsersAlone) {
    const auto registry = OpenRegistryStore(MachineFile(), File("home/share/user"));
    umask(0);
    EXPECT_EQ(registry->CreateKey(kUser, kKey), Result::kDone);
    umask(022);
    EXPECT_EQ(ModeOf(File("home")), 0700u);
    EXPECT_EQ(ModeOf(File("home/share")), 0700u);
    for (const char* const file : {"user", "user-wal", "user-shm", "user.lock"}) {
        EXPECT_EQ(ModeOf(File("home/share") / file), 0600u) << file;
    }
}

TEST_F(StoreAccess, ADamagedStoreThatCannotBeMovedIsDoneWithout) {
    m_folder.Write("machine", "this is no database");
    if (geteuid() != 0) {
        chmod(m_folder.path().c_str(), 0555);
    } else {
        chmod(MachineFile().c_str(), 0666);  // so the file is no obstacle, its folder is
    }
    AsOperator([&] {
        const auto registry = OpenAsOperator();
        for (int i = 0; i < 2; ++i) {
            EXPECT_EQ(Query(*registry, 0), Result::kDamaged);
            EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kDamaged);
        }
        ASSERT_EQ(Reports().size(), 1u);
        EXPECT_TRUE(Reports()[0].set_aside.empty());
    });
    chmod(m_folder.path().c_str(), 0755);
    EXPECT_TRUE(std::filesystem::exists(MachineFile()));
}

TEST_F(StoreAccess, ADamagedStoreThatMayNotBeWrittenIsLeftAlone) {
    m_folder.Write("machine", "this is no database");
    chmod(MachineFile().c_str(), 0444);
    if (geteuid() == 0) {
        ASSERT_EQ(chown(m_folder.path().c_str(), kNobody, kNobody), 0);  // so the folder is no obstacle
    }
    AsOperator([&] {
        EXPECT_EQ(Query(*OpenAsOperator(), 0), Result::kDamaged);
        EXPECT_TRUE(SetAside().empty());
    });
}

}  // namespace
}  // namespace hx

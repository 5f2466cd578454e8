// A damaged store is set aside, once, and the program goes on with a new one.
#include <fcntl.h>

#include <fstream>
#include <functional>
#include <random>

#include "tests/platform/registry/child_process.h"
#include "tests/platform/registry/store_fixture.h"

namespace hx {
namespace {

using Result = RegistryResult;

constexpr size_t kPageSize = 4096;

void Overwrite(const std::filesystem::path& file, size_t from, size_t size) {
    std::fstream stream(file, std::ios::in | std::ios::out | std::ios::binary);
    stream.seekp(static_cast<std::streamoff>(from));
    stream << std::string(size, '\xA5');
}

std::string Content(const std::filesystem::path& file) {
    if (std::filesystem::is_directory(file)) return "folder";
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class StoreDamage : public StoreTest {
protected:
    StoreDamage() {
        Fill();
        m_half_sound = Content(MachineFile());
        std::fill(m_half_sound.begin() + 3 * kPageSize, m_half_sound.end(), '\xA5');
        std::filesystem::remove(MachineFile());
    }

    // A store that opens and holds its keys, but no values.
    std::string m_half_sound;
};

TEST_F(StoreDamage, IsSetAsideAndReportedOnce) {
    using File = std::filesystem::path;
    const std::pair<const char*, std::function<void(const File&)>> rows[] = {
        {"text",
         [this](const File&) { m_folder.Write("machine", "this is no database, though rather long"); }},
        {"emptied", [](const File& file) { std::filesystem::resize_file(file, 0); }},
        {"header only", [](const File& file) { std::filesystem::resize_file(file, 100); }},
        {"cut in half",
         [](const File& file) { std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2); }},
        {"pages overwritten",
         [](const File& file) { Overwrite(file, kPageSize, std::filesystem::file_size(file) - kPageSize); }},
        {"first page overwritten", [](const File& file) { Overwrite(file, 100, kPageSize - 100); }},
        {"table missing", [this](const File&) { Execute("DROP TABLE \"values\""); }},
        {"another table of that name",
         [this](const File&) { Execute("DROP TABLE \"values\"; CREATE TABLE \"values\"(a, b)"); }},
        {"another database",
         [this](const File& file) {
             std::filesystem::remove(file);
             Execute("CREATE TABLE other(a); PRAGMA user_version=7");
         }},
        {"a folder",
         [](const File& file) {
             std::filesystem::remove(file);
             std::filesystem::create_directory(file);
         }},
    };
    for (const auto& [name, damage] : rows) {
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path())) {
            std::filesystem::remove_all(entry.path());
        }
        Fill();
        damage(MachineFile());
        const std::string damaged = Content(MachineFile());
        const auto registry = Open();
        EXPECT_EQ(Query(*registry, 399), Result::kNotFound) << name;
        EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kDone) << name;
        EXPECT_EQ(Set(*registry, 1), Result::kDone) << name;
        EXPECT_EQ(Query(*Open(), 1), Result::kDone) << name;
        ASSERT_EQ(SetAside().size(), 1u) << name;
        EXPECT_EQ(Content(SetAside()[0]), damaged) << name << ": kept as it was found";
        ASSERT_EQ(Reports().size(), 1u) << name;
        EXPECT_EQ(Reports()[0].store, MachineFile().wstring()) << name;
        EXPECT_EQ(Reports()[0].set_aside, SetAside()[0].wstring()) << name;
        EXPECT_FALSE(Reports()[0].reason.empty()) << name;
        Reports().clear();
    }
}

TEST_F(StoreDamage, OfTheLogAloneCostsNothingElse) {
    Fill();
    for (const char* const beside : {"machine-wal", "machine-shm"}) {
        InChild([&] {
            const auto registry = Open();
            EXPECT_EQ(Set(*registry, 1000), Result::kDone);
            _exit(EXIT_SUCCESS);  // leaves it in the log
        });
        Overwrite(File(beside), 0, std::filesystem::file_size(File(beside)));
        const auto registry = Open();
        EXPECT_EQ(Query(*registry, 0), Result::kDone) << beside;
        EXPECT_EQ(Set(*registry, 1), Result::kDone) << beside;
    }
    EXPECT_TRUE(SetAside().empty() && Reports().empty());
}

TEST_F(StoreDamage, OfAnyKindIsSurvived) {
    std::mt19937 random(1);
    Fill();
    const std::string sound = Content(MachineFile());
    for (int round = 0; round < 60; ++round) {
        std::string bytes = sound;
        for (uint32_t i = random() % 4 + 1; i > 0; --i) {
            const size_t from = random() % bytes.size();
            const size_t size = std::min<size_t>(random() % 600, bytes.size() - from);
            for (size_t k = 0; k < size; ++k) bytes[from + k] = static_cast<char>(random());
        }
        m_folder.Write("machine", bytes);
        const auto registry = Open();
        std::vector<std::wstring> names;
        std::vector<NamedRegistryValue> values;
        RegistryValue value;
        registry->ListKeys(kMachine, L"Software", names);
        registry->ListValues(kMachine, kKey, values);
        for (uint32_t i = 0; i < 400; i += 7) {
            registry->QueryValue(kMachine, kKey, std::to_wstring(i), value);
            registry->SetValue(kMachine, kKey, std::to_wstring(i), Text(i));
        }
        // Afterwards it works, be it that the damage hid nothing or that there is a new store. The last of it
        // may come to light only here, whereupon the key that was just made is gone.
        Result result = Result::kNotFound;
        for (int i = 0; i < 2 && result == Result::kNotFound; ++i) {
            EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kDone) << round;
            result = Set(*registry, 1);
        }
        EXPECT_EQ(result, Result::kDone) << round;
        EXPECT_EQ(Query(*registry, 1), Result::kDone) << round;
        EXPECT_EQ(Reports().size(), SetAside().size()) << round;
    }
    EXPECT_GT(SetAside().size(), 20u) << "too little of the damage was any";
}

TEST_F(StoreDamage, FoundByManyAtOnceIsSetAsideByOne) {
    constexpr int kProcesses = 6;
    for (int round = 0; round < 15; ++round) {
        for (const auto& file : SetAside()) std::filesystem::remove(file);
        const bool opens = round % 3 != 0;
        m_folder.Write("machine", opens ? m_half_sound : "this is no database");
        int ready[2], start[2], reports[2];
        ASSERT_TRUE(pipe(ready) == 0 && pipe(start) == 0 && pipe(reports) == 0);
        std::vector<pid_t> children;
        for (uint32_t i = 0; i < kProcesses; ++i) {
            children.push_back(StartChild([&, i] {
                close(start[1]);
                const auto registry = Open();
                if (opens) {
                    EXPECT_EQ(registry->OpenKey(kMachine, kKey, RegistryAccess::kRead), Result::kDone);
                }
                EXPECT_EQ(write(ready[1], "r", 1), 1);
                close(ready[1]);
                char unused = 0;
                EXPECT_EQ(read(start[0], &unused, 1), 0);  // until the parent lets all go
                EXPECT_EQ(Query(*registry, 300), Result::kNotFound);
                EXPECT_EQ(registry->CreateKey(kMachine, kKey), Result::kDone);
                EXPECT_EQ(Set(*registry, i), Result::kDone);
                const std::string marks(Reports().size(), 'r');
                EXPECT_EQ(write(reports[1], marks.data(), marks.size()), static_cast<ssize_t>(marks.size()));
            }));
        }
        // All have found the store as it was, before the first of them looks closer.
        close(ready[1]);
        char one = 0;
        for (int i = 0; i < kProcesses; ++i) EXPECT_EQ(read(ready[0], &one, 1), 1);
        for (const int end : {ready[0], start[0], start[1], reports[1]}) close(end);
        for (const pid_t child : children) ExpectSuccess(child);
        char marks[kProcesses + 1];
        EXPECT_EQ(read(reports[0], marks, sizeof marks), 1) << "reports";
        close(reports[0]);
        EXPECT_EQ(SetAside().size(), 1u);
        const auto registry = Open();
        for (uint32_t i = 0; i < kProcesses; ++i) EXPECT_EQ(Query(*registry, i), Result::kDone) << i;
    }
}

TEST_F(StoreDamage, TakesTheLogAlong) {
    Fill();
    InChild([&] {
        EXPECT_EQ(Set(*Open(), 1000), Result::kDone);
        const auto registry = Open();
        EXPECT_EQ(Set(*registry, 1001), Result::kDone);
        _exit(EXIT_SUCCESS);  // leaves it in the log
    });
    const std::string log = Content(File("machine-wal"));
    Overwrite(MachineFile(), kPageSize, std::filesystem::file_size(MachineFile()) - kPageSize);
    EXPECT_EQ(Query(*Open(), 0), Result::kNotFound);
    ASSERT_EQ(SetAside().size(), 1u);
    EXPECT_FALSE(log.empty());
    EXPECT_EQ(Content(SetAside()[0].string() + "-wal"), log);
}

TEST_F(StoreDamage, ThatAFreshLookDoesNotFindIsNone) {
    Fill(1);
    const std::string smaller = Content(MachineFile());
    Fill();
    const auto registry = Open();
    EXPECT_EQ(Query(*registry, 0), Result::kDone);
    // As by a person who copies an older store into the file.
    m_folder.Write("machine", smaller);
    EXPECT_EQ(Query(*registry, 399), Result::kDamaged)
        << "a page that there was, to go by those already read";
    EXPECT_EQ(Query(*registry, 0), Result::kDone);
    EXPECT_EQ(Query(*registry, 399), Result::kNotFound);
    EXPECT_TRUE(SetAside().empty() && Reports().empty());
}

// A process goes on with the store that has the name, also if it found nothing wrong with the one it had.
TEST_F(StoreDamage, NobodyStaysBehindInAStoreThatWasReplaced) {
    Fill(2);
    const auto behind = Open();
    EXPECT_EQ(Query(*behind, 1), Result::kDone);
    for (const char* const suffix : {"", "-wal", "-shm"}) {
        std::filesystem::rename(MachineFile().string() + suffix, File("moved").string() + suffix);
    }
    EXPECT_EQ(Query(*behind, 1), Result::kNotFound);
    Fill(1);
    EXPECT_EQ(Set(*behind, 5), Result::kDone);
    EXPECT_EQ(Query(*Open(), 5), Result::kDone);
    EXPECT_EQ(Query(*Open(), 0), Result::kDone) << "the new store's log was taken away";
    EXPECT_TRUE(Reports().empty());
}

TEST_F(StoreDamage, IsToldToWhoeverListensLater) {
    SetRegistryReportSink(nullptr);
    m_folder.Write("machine", "this is no database");
    EXPECT_EQ(Query(*Open(), 0), Result::kNotFound);
    EXPECT_TRUE(Reports().empty());
    for (int i = 0; i < 2; ++i) {
        SetRegistryReportSink([](const RegistryReport& report) { Reports().push_back(report); });
        EXPECT_EQ(Reports().size(), 1u);
    }
}

}  // namespace
}  // namespace hx

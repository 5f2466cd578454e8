// A pair of registry stores in a folder of the test's own, and what the registry reported meanwhile.
#pragma once

#include <gtest/gtest.h>
#include <sqlite3.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "platform/registry/registry.h"
#include "tests/platform/temporary_folder.h"

namespace hx {

constexpr RegistryRoot kMachine = RegistryRoot::kLocalMachine;
constexpr RegistryRoot kUser = RegistryRoot::kCurrentUser;
constexpr wchar_t kKey[] = L"Software\\Orvel";

inline std::ostream& operator<<(std::ostream& out, RegistryResult result) {
    return out << static_cast<uint32_t>(result);
}

class StoreTest : public testing::Test {
protected:
    StoreTest() {
        Reports().clear();
        SetRegistryReportSink([](const RegistryReport& report) { Reports().push_back(report); });
    }
    ~StoreTest() override { SetRegistryReportSink(nullptr); }

    static std::vector<RegistryReport>& Reports() {
        static std::vector<RegistryReport> reports;
        return reports;
    }

    std::filesystem::path File(const char* name) const { return m_folder.path() / name; }
    std::filesystem::path MachineFile() const { return File("machine"); }

    // A connection of its own each time.
    std::shared_ptr<IRegistry> Open(int patience_ms = 5000) const {
        return OpenRegistryStore(MachineFile(), File("user"), std::chrono::milliseconds(patience_ms));
    }

    // kKey with values "0", "1", ... that fill several pages.
    void Fill(uint32_t values = 400) const {
        const auto registry = Open();
        EXPECT_EQ(registry->CreateKey(kMachine, kKey), RegistryResult::kDone);
        for (uint32_t i = 0; i < values; ++i) EXPECT_EQ(Set(*registry, i), RegistryResult::kDone);
    }
    static RegistryResult Set(IRegistry& registry, uint32_t i) {
        return registry.SetValue(kMachine, kKey, std::to_wstring(i), Text(i));
    }
    static std::wstring Text(uint32_t i) { return std::wstring(100, L'x') + std::to_wstring(i); }
    static RegistryResult Query(IRegistry& registry, uint32_t i) {
        RegistryValue value;
        const RegistryResult result = registry.QueryValue(kMachine, kKey, std::to_wstring(i), value);
        if (result == RegistryResult::kDone) {
            EXPECT_EQ(value, RegistryValue(Text(i)));
        }
        return result;
    }

    std::vector<std::filesystem::path> SetAside() const {
        std::vector<std::filesystem::path> files;
        for (const auto& entry : std::filesystem::directory_iterator(m_folder.path())) {
            const std::string name = entry.path().filename();
            if (name.starts_with("machine.damaged-") && !name.ends_with("-wal") && !name.ends_with("-shm")) {
                files.push_back(entry.path());
            }
        }
        return files;
    }

    // SQL on the machine's store, made if it is missing.
    void Execute(const char* sql) const {
        sqlite3* database = nullptr;
        EXPECT_EQ(sqlite3_open(MachineFile().c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK)
            << sqlite3_errmsg(database);
        sqlite3_close(database);
    }

    const TemporaryFolder m_folder;
};

}  // namespace hx

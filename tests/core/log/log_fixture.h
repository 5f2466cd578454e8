// A machine of a test's own: an empty registry, a data folder, and a clock that stands until it is set.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>
#include <time.h>

#include <map>
#include <optional>
#include <vector>

#include "core/log/MLogger.h"
#include "core/log/ModuleLogger.h"
#include "platform/registry/registry.h"
#include "platform/system/files.h"
#include "platform/system/utf8.h"
#include "tests/platform/temporary_folder.h"

class FakeClock final : public hx::IClock {
public:
    int64_t WallMicroseconds() const override { return wall; }
    int64_t SteadyMicroseconds() const override { return steady; }

    static constexpr int64_t kSecond = 1'000'000;
    int64_t wall = 1'706'745'599 * kSecond + 123'456;  // 31-01-2024 at 23:59:59 in UTC
    int64_t steady = 5 * kSecond + 7;
};

class LogTest : public testing::Test {
protected:
    using Values = std::map<std::wstring, hx::RegistryValue>;

    static constexpr const wchar_t* kKey = L"Software\\Wow6432Node\\Orvel\\HXAPI4\\Logging";
    static constexpr const char* kTime = "31-01-2024 at 23:59:59";

    LogTest() {
        setenv("TZ", "UTC", 1);
        tzset();
        setenv("HX_DATA", m_folder.path().c_str(), 1);
        hx::SetRegistry(hx::MakeMemoryRegistry());
    }

    static void Configure(const Values& values) {
        hx::Registry()->CreateKey(hx::RegistryRoot::kLocalMachine, kKey);
        for (const auto& [name, value] : values) {
            hx::Registry()->SetValue(hx::RegistryRoot::kLocalMachine, kKey, name, value);
        }
    }
    static Values Configured() {
        std::vector<hx::NamedRegistryValue> listed;
        hx::Registry()->ListValues(hx::RegistryRoot::kLocalMachine, kKey, listed);
        Values values;
        for (const auto& each : listed) values.emplace(each.name, each.value);
        return values;
    }

    // What a module named "Mod" has after its start.
    hx::MLogger& Start() {
        m_loggers.push_back(
            std::make_unique<hx::MLogger>(L"Mod", hx::kLoggingKeyPath, m_module, m_clock, *m_folders));
        return *m_loggers.back();
    }
    static void LogError(hx::MLogger& logger, std::wstring_view message) {
        logger.Log({hx::MLogSeverity::kError, "Source", 28, "Class::Method", message});
    }

    std::filesystem::path LogFolder() const { return m_folder.path() / "Orvel" / "Logs"; }
    std::string Text(const std::string& file) const {
        std::string bytes;
        hx::ReadFile(LogFolder() / file, bytes);
        return bytes;
    }
    // The names in the log folder, sorted.
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        if (!std::filesystem::exists(LogFolder())) return names;
        for (const auto& entry : std::filesystem::directory_iterator(LogFolder())) {
            names.push_back(entry.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    TemporaryFolder m_folder;
    FakeClock m_clock;
    hx::ModuleVersion m_module{L"Product", L"4.0"};
    const hx::MSpecialFolderImplementation* m_folders = &hx::SpecialFolders();
    std::vector<std::unique_ptr<hx::MLogger>> m_loggers;
};

inline testing::AssertionResult Contains(const std::string& text, const std::string& part) {
    if (text.find(part) != std::string::npos) return testing::AssertionSuccess();
    return testing::AssertionFailure() << "\"" << part << "\" is not in\n" << text;
}

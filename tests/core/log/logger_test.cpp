// What is logged, and how the configuration decides.
#include <fnmatch.h>

#include "core/log/MFlowScope.h"
#include "tests/core/log/log_fixture.h"

namespace {

using hx::MLogSeverity;

class Logger : public LogTest {};

TEST_F(Logger, ARecordStandsAsItsFormatSays) {
    struct Row {
        uint32_t severity;
        std::wstring message;
        std::string level;
        std::string written;
    };
    const Row rows[] = {
        {0, L"went wrong", "Error", "went wrong\n"},
        {1, L"ends here\n", "Warning", "ends here\n"},
        {2, L"", "Message", "\n"},
        {3, L"two\nlines", "Flow", "two\nlines\n"},
        {7, L"\u00E4\U0001F600", "Unknown", "\xC3\xA4\xF0\x9F\x98\x80\n"},
        {UINT32_MAX, L"\n\n", "Unknown", "\n\n"},
    };
    Configure({{L"Severity", UINT32_MAX}});
    hx::MLogger& logger = Start();
    std::string expected = Text("Mod_20240131_235959.log");
    ASSERT_EQ(std::count(expected.begin(), expected.end(), '\n'), 4);
    for (const Row& row : rows) {
        logger.Log({static_cast<MLogSeverity>(row.severity), "Source", -28, "Class::Method", row.message});
        expected +=
            std::string(kTime) + "\n\t[Level]\t\t=\t" + row.level +
            "\n\t[File]\t\t=\tSource\n\t[Line]\t\t=\t-28\n\t[Location]\t=\tClass::Method\n\t[Message]\t=\t" +
            row.written;
        EXPECT_EQ(Text("Mod_20240131_235959.log"), expected);
    }
}

TEST_F(Logger, RecordsBearTheTimeAtWhichTheyAreLogged) {
    hx::MLogger& logger = Start();
    for (const char* time : {"01-02-2024 at 00:00:00", "01-02-2024 at 00:00:01"}) {
        m_clock.wall += FakeClock::kSecond;
        LogError(logger, L"x");
        EXPECT_TRUE(Contains(Text("Mod_20240131_235959.log"), std::string("\n") + time + "\n\t[Level]"));
    }
}

TEST_F(Logger, OnlySeveritiesUpToTheThresholdAreWritten) {
    for (const std::optional<uint32_t> threshold : {std::optional<uint32_t>(), {0}, {1}, {3}, {6}, {7}}) {
        hx::SetRegistry(hx::MakeMemoryRegistry());
        if (threshold) Configure({{L"Severity", *threshold}});
        Configure({{L"ClearLogFileUponStart", 1u}});
        hx::MLogger& logger = Start();
        for (const uint32_t severity : {0u, 1u, 2u, 3u, 7u, UINT32_MAX}) {
            const std::wstring message = L"severity " + std::to_wstring(severity);
            const auto as_severity = static_cast<MLogSeverity>(severity);
            logger.Log({as_severity, "S", 1, "L", message});
            const bool expected = severity <= threshold.value_or(0);
            EXPECT_EQ(logger.Writes(as_severity), expected);
            EXPECT_EQ(Contains(Text("Mod.log"), hx::ToUtf8(message) + "\n"), expected);
        }
    }
}

TEST_F(Logger, TheHeaderTellsModuleSystemAndStart) {
    Start();
    const char* const header =
        "\\*\\*\\* Module version Product 4.0\n\\*\\*\\* Windows version ?* ?* service pack ?*\n"
        "\\*\\*\\* Architecture ?*, [1-9]* processors\n\\*\\*\\* Module Mod started on 31-01-2024 at "
        "23:59:59\n";
    const std::string text = Text("Mod_20240131_235959.log");
    EXPECT_EQ(fnmatch(header, text.c_str(), 0), 0) << text;
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);
}

TEST_F(Logger, WritesBackExactlyWhatItReadAndDidNotFind) {
    const std::wstring folder = hx::FromUtf8((LogFolder() / "").native()).value();
    const hx::RegistryValue yes = 1u;
    const hx::RegistryValue no = 0u;
    const hx::RegistryValue device = L"LogFile";
    struct Row {
        const char* what;
        Values before;
        Values after;
        bool logs;
    };
    const Row rows[] = {
        {"nothing",
         {},
         {{L"LogAllModules", yes},
          {L"LoggingDevice", device},
          {L"Severity", 0u},
          {L"LogOutputFolder", folder},
          {L"ClearLogFileUponStart", 2u},
          {L"LogsMaxBeforeRoll", 10u}},
         true},
        {"not all modules", {{L"LogAllModules", no}}, {{L"LogAllModules", no}, {L"Mod", no}}, false},
        {"this module only",
         {{L"LogAllModules", no}, {L"Mod", yes}, {L"ClearLogFileUponStart", 0u}},
         {{L"LogAllModules", no},
          {L"Mod", yes},
          {L"LoggingDevice", device},
          {L"Severity", 0u},
          {L"LogOutputFolder", folder},
          {L"ClearLogFileUponStart", 0u}},
         true},
        {"values of another type",
         {{L"LogAllModules", L"no"},
          {L"LoggingDevice", 7u},
          {L"Severity", L"3"},
          {L"LogsMaxBeforeRoll", L""}},
         {{L"LogAllModules", L"no"},
          {L"LoggingDevice", 7u},
          {L"Severity", L"3"},
          {L"LogOutputFolder", folder},
          {L"ClearLogFileUponStart", 2u},
          {L"LogsMaxBeforeRoll", L""}},
         true},
        {"another device",
         {{L"LoggingDevice", L"logfile"}},
         {{L"LogAllModules", yes}, {L"LoggingDevice", L"logfile"}, {L"Severity", 0u}},
         false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        hx::SetRegistry(hx::MakeMemoryRegistry());
        std::filesystem::remove_all(LogFolder());
        Configure(row.before);
        hx::MLogger& logger = Start();
        EXPECT_EQ(Configured(), row.after);
        EXPECT_EQ(logger.Writes(MLogSeverity::kError), row.logs);
        EXPECT_EQ(Files().size(), row.logs ? 1u : 0u);
        LogError(logger, L"x");
        EXPECT_EQ(Files().size(), row.logs ? 1u : 0u);
    }
}

// Answers to every question and to every change the same, and counts them.
class FailingRegistry final : public hx::IRegistry {
public:
    FailingRegistry(hx::RegistryResult question, hx::RegistryResult change)
        : m_question(question), m_change(change) {}
    int questions = 0;
    int changes = 0;

private:
    hx::RegistryResult OpenKey(hx::RegistryRoot, std::wstring_view, hx::RegistryAccess) override {
        return Question();
    }
    hx::RegistryResult CreateKey(hx::RegistryRoot, std::wstring_view) override { return Change(); }
    hx::RegistryResult DeleteKey(hx::RegistryRoot, std::wstring_view) override { return Change(); }
    hx::RegistryResult QueryValue(hx::RegistryRoot, std::wstring_view, std::wstring_view,
                                  hx::RegistryValue&) override {
        return Question();
    }
    hx::RegistryResult SetValue(hx::RegistryRoot, std::wstring_view, std::wstring_view,
                                const hx::RegistryValue&) override {
        return Change();
    }
    hx::RegistryResult DeleteValue(hx::RegistryRoot, std::wstring_view, std::wstring_view) override {
        return Change();
    }
    hx::RegistryResult ListKeys(hx::RegistryRoot, std::wstring_view, std::vector<std::wstring>&) override {
        return Question();
    }
    hx::RegistryResult ListValues(hx::RegistryRoot, std::wstring_view,
                                  std::vector<hx::NamedRegistryValue>&) override {
        return Question();
    }
    hx::RegistryResult Question() {
        ++questions;
        return m_question;
    }
    hx::RegistryResult Change() {
        ++changes;
        return m_change;
    }

    const hx::RegistryResult m_question;
    const hx::RegistryResult m_change;
};

// Each question and each change may take as long as the store's patience.
TEST_F(Logger, LogsWithDefaultsAndAsksNoMoreWhereTheRegistryFails) {
    using hx::RegistryResult;
    struct Row {
        RegistryResult question, change;
        int questions, changes;
    };
    const Row rows[] = {
        {RegistryResult::kNotFound, RegistryResult::kAccessDenied, 6, 1},  // as for most users
        {RegistryResult::kNotFound, RegistryResult::kBusy, 1, 1},
        {RegistryResult::kBusy, RegistryResult::kDone, 1, 0},
        {RegistryResult::kIoFailed, RegistryResult::kDone, 1, 0},
        {RegistryResult::kAccessDenied, RegistryResult::kDone, 1, 0},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message()
                     << static_cast<uint32_t>(row.question) << ", " << static_cast<uint32_t>(row.change));
        std::filesystem::remove_all(LogFolder());
        const auto registry = std::make_shared<FailingRegistry>(row.question, row.change);
        hx::SetRegistry(registry);
        LogError(Start(), L"all the same");
        EXPECT_TRUE(Contains(Text("Mod_20240131_235959.log"), "all the same"));
        EXPECT_EQ(registry->questions, row.questions);
        EXPECT_EQ(registry->changes, row.changes);
    }
}

TEST_F(Logger, NeverRaises) {
    struct : hx::IClock {
        int64_t WallMicroseconds() const override {
            if (fails) throw std::bad_alloc();
            return 0;
        }
        int64_t SteadyMicroseconds() const override { return 0; }
        bool fails = true;
    } clock;
    const hx::MSpecialFolderImplementation& folders = hx::SpecialFolders();
    hx::MLogger unmade(L"Mod", hx::kLoggingKeyPath, m_module, clock, folders);
    EXPECT_FALSE(unmade.Writes(MLogSeverity::kError));
    LogError(unmade, L"x");
    clock.fails = false;
    hx::MLogger logger(L"Mod", hx::kLoggingKeyPath, m_module, clock, folders);
    clock.fails = true;
    LogError(logger, L"lost");
    clock.fails = false;
    LogError(logger, L"kept");
    EXPECT_TRUE(Contains(Text("Mod_19700101_000000.log"), "kept"));
    EXPECT_FALSE(Contains(Text("Mod_19700101_000000.log"), "lost"));
}

TEST_F(Logger, TheModulesLoggerIsSilentUntilOneIsInstalled) {
    EXPECT_FALSE(hx::ModuleLogger().Writes(MLogSeverity::kError));
    LogError(hx::ModuleLogger(), L"x");
    hx::MLogger& logger = Start();
    EXPECT_EQ(hx::SetModuleLogger(&logger), nullptr);
    hx::LogRegistryReport({L"/store", L"/store.bad", L"broken"});
    hx::LogRegistryReport({L"/store", L"", L"unreadable"});
    EXPECT_EQ(hx::SetModuleLogger(nullptr), &logger);
    EXPECT_FALSE(hx::ModuleLogger().Writes(MLogSeverity::kError));
    const std::string text = Text("Mod_20240131_235959.log");
    EXPECT_TRUE(Contains(text, "Error\n"));
    EXPECT_TRUE(Contains(text, "/store cannot be used: broken\nIt was set aside as /store.bad\n"));
    EXPECT_TRUE(text.ends_with("/store cannot be used: unreadable\n"));
}

TEST_F(Logger, AScopeTellsItsBeginningAndEnd) {
    struct : hx::MFlowLoggerImplementation {
        void OnScopeEntered(const char* source, const char* method) noexcept override {
            calls += std::string("(") + source + " " + method;
        }
        void OnScopeLeft(const char* source, const char* method) noexcept override {
            calls += std::string(" ") + source + " " + method + ")";
        }
        std::string calls;
    } follower;
    const auto pass_through = [](hx::MLogger& logger) {
        const hx::MFlowScope scope("Class::Method", "Class", 18, logger);
        LogError(logger, L"inside");
    };
    Configure({{L"Severity", 2u}});
    pass_through(Start());
    EXPECT_FALSE(Contains(Text("Mod_20240131_235959.log"), "[Level]\t\t=\tFlow"));

    Configure({{L"Severity", 3u}});
    m_clock.wall += FakeClock::kSecond;
    EXPECT_EQ(hx::SetFlowLogger(&follower), nullptr);
    pass_through(Start());
    EXPECT_EQ(hx::SetFlowLogger(nullptr), &follower);
    pass_through(*m_loggers.back());
    EXPECT_EQ(follower.calls, "(Class Class::Method Class Class::Method)");
    const std::string fields =
        "\n\t[Level]\t\t=\tFlow\n\t[File]\t\t=\tClass\n\t[Line]\t\t=\t18\n\t[Location]\t=\tClass::Method\n";
    const std::string text = Text("Mod_20240201_000000.log");
    const size_t entering = text.find(fields + "\t[Message]\t=\tEntering Class::Method\n");
    const size_t inside = text.find("inside\n", entering);
    const size_t leaving = text.find(fields + "\t[Message]\t=\tLeaving Class::Method\n", inside);
    EXPECT_NE(leaving, std::string::npos) << text;
}

}  // namespace

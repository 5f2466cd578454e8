// The files of a log: where they are, what a start does to them, and what happens if they cannot be written.
#include <sys/wait.h>
#include <unistd.h>

#include "core/errors/MErrorLocation.h"
#include "platform/system/folders.h"
#include "tests/core/log/log_fixture.h"

namespace {

using Names = std::vector<std::string>;

class LoggerFiler : public LogTest {
protected:
    hx::MLoggerFiler Filer() { return {L"Mod", hx::kLoggingKeyPath, L"", m_module, m_clock, *m_folders}; }
    void StartAndLog(std::wstring_view message) { LogError(Start(), message); }
};

TEST_F(LoggerFiler, AppendingKeepsAndClearingEmptiesTheFileOfAllRuns) {
    for (const uint32_t mode : {0u, 7u, 1u}) {  // an unknown mode loses nothing either
        SCOPED_TRACE(mode);
        Configure({{L"ClearLogFileUponStart", mode}});
        StartAndLog(L"first in " + std::to_wstring(mode));
        StartAndLog(L"second in " + std::to_wstring(mode));
        EXPECT_EQ(Files(), Names{"Mod.log"});
        EXPECT_EQ(Contains(Text("Mod.log"), "first in " + std::to_string(mode)), mode != 1);
        EXPECT_TRUE(Contains(Text("Mod.log"), "second in " + std::to_string(mode)));
    }
    EXPECT_TRUE(Text("Mod.log").starts_with("*** Module version")) << "no byte order mark";
}

TEST_F(LoggerFiler, RollingKeepsTheNewestRuns) {
    std::filesystem::create_directories(LogFolder() / "Mod_20000101_000001.log");
    const Names others = {"Mod.log",           "Mod_20000101_0000000.log", "Mod_20000101-000000.log",
                          "Mod2_2000_000.log", "Mod_20000101_000000.txt",  "mod_20000101_000000.log"};
    for (const std::string& name : others) std::ofstream(LogFolder() / name);
    std::ofstream(LogFolder() / "Mod_xxxxxxxx_xxxxxx.log");  // counts: newer than any number
    Configure({{L"LogsMaxBeforeRoll", 3u}});
    for (int start = 0; start < 5; ++start) {
        StartAndLog(L"run");
        m_clock.wall += FakeClock::kSecond;
    }
    Names expected = others;
    expected.insert(expected.end(), {"Mod_20000101_000001.log", "Mod_20240201_000002.log",
                                     "Mod_20240201_000003.log", "Mod_xxxxxxxx_xxxxxx.log"});
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(Files(), expected);
}

TEST_F(LoggerFiler, StartsWithinOneSecondShareTheirFile) {
    StartAndLog(L"first");
    StartAndLog(L"second");
    EXPECT_EQ(Files(), Names{"Mod_20240131_235959.log"});
    EXPECT_TRUE(Contains(Text("Mod_20240131_235959.log"), "first\n*** Module version"));
    EXPECT_TRUE(Contains(Text("Mod_20240131_235959.log"), "second\n"));
}

// The new run's file is then the oldest by name: it is deleted empty and made again by the header.
TEST_F(LoggerFiler, AClockThatJumpsBackLosesNoRecord) {
    Configure({{L"LogsMaxBeforeRoll", 2u}});
    for (const wchar_t* run : {L"1", L"2"}) {
        StartAndLog(std::wstring(L"run ") + run);
        m_clock.wall += FakeClock::kSecond;
    }
    m_clock.wall -= 3600 * FakeClock::kSecond;
    StartAndLog(L"run 3");
    LogError(*m_loggers[0], L"more of run 1");
    EXPECT_EQ(Files(),
              (Names{"Mod_20240131_230001.log", "Mod_20240131_235959.log", "Mod_20240201_000000.log"}));
    EXPECT_TRUE(Text("Mod_20240131_230001.log").starts_with("*** Module version"));
    EXPECT_TRUE(Contains(Text("Mod_20240131_230001.log"), "run 3"));
    EXPECT_TRUE(Contains(Text("Mod_20240131_235959.log"), "more of run 1"));
    EXPECT_TRUE(Contains(Text("Mod_20240201_000000.log"), "run 2"));
}

TEST_F(LoggerFiler, NoRunKeptStillHasTheFileOfThisOne) {
    Configure({{L"LogsMaxBeforeRoll", 0u}});
    for (int start = 0; start < 2; ++start) {
        StartAndLog(L"run");
        m_clock.wall += FakeClock::kSecond;
    }
    EXPECT_EQ(Files(), Names{"Mod_20240201_000000.log"});
    EXPECT_TRUE(Text("Mod_20240201_000000.log").starts_with("*** Module version"));
}

TEST_F(LoggerFiler, TheFolderIsTheConfiguredOneHoweverItEnds) {
    std::filesystem::create_directory(m_folder.path() / "\xC3\xA4 b");
    const std::wstring folder = hx::FromUtf8(m_folder.path().native()).value() + L"/\u00E4 b";
    Configure({{L"ClearLogFileUponStart", 0u}});
    for (const wchar_t* end : {L"", L"/", L"\\"}) {
        Configure({{L"LogOutputFolder", folder + end}});
        EXPECT_EQ(Filer().FileName(), m_folder.path() / "\xC3\xA4 b/Mod.log");
        EXPECT_TRUE(Filer().Write(L"")) << "an empty text is a line";
    }
    std::string bytes;
    hx::ReadFile(m_folder.path() / "\xC3\xA4 b/Mod.log", bytes);
    EXPECT_EQ(bytes, "\n\n\n");
}

TEST_F(LoggerFiler, AFileThatCannotBeWrittenIsToldAndNothingElseHappens) {
    m_folder.Write("file", "");
    std::filesystem::create_directories(m_folder.path() / "taken" / "Mod.log");
    std::filesystem::create_directory(m_folder.path() / "full");
    std::filesystem::create_symlink("/dev/full", m_folder.path() / "full" / "Mod.log");
    const std::wstring root = hx::FromUtf8(m_folder.path().native()).value();
    struct Row {
        const char* what;
        std::wstring folder;
    };
    const Row rows[] = {
        {"missing", root + L"/missing"},
        {"a file", root + L"/file"},
        {"not writable", L"/proc"},
        {"full", root + L"/full"},
        {"a folder has the name", root + L"/taken"},
        {"empty", L""},
        {"NUL", root + std::wstring(L"\0/x", 3)},
        {"long", root + L"/" + std::wstring(5000, L'x')},
    };
    for (const Row& row : rows) {
        for (const uint32_t mode : {0u, 1u, 2u}) {
            if (mode == 2 && row.what == std::string("full")) continue;  // its file has another name
            if (mode == 2 && row.what == std::string("a folder has the name")) continue;
            SCOPED_TRACE(std::string(row.what) + ", mode " + std::to_string(mode));
            Configure({{L"LogOutputFolder", row.folder}, {L"ClearLogFileUponStart", mode}});
            EXPECT_FALSE(Filer().Write(L"text"));
            StartAndLog(L"text");
        }
    }
    EXPECT_FALSE(std::filesystem::exists(m_folder.path() / "missing")) << "only the default folder is made";
    EXPECT_TRUE(Files().empty());
}

TEST_F(LoggerFiler, TheDefaultFolderIsMadeAlsoOnceItIsConfigured) {
    StartAndLog(L"x");
    std::filesystem::remove_all(LogFolder());
    StartAndLog(L"x");
    EXPECT_EQ(Files(), Names{"Mod_20240131_235959.log"});
}

TEST_F(LoggerFiler, ARelativeFolderIsTheOneAtTheStart) {
    const std::filesystem::path before = std::filesystem::current_path();
    for (const char* folder : {"logs", "other/logs"})
        std::filesystem::create_directories(m_folder.path() / folder);
    Configure({{L"ClearLogFileUponStart", 0u}, {L"LogOutputFolder", L"logs"}});
    std::filesystem::current_path(m_folder.path());
    hx::MLogger& logger = Start();
    std::filesystem::current_path(m_folder.path() / "other");
    LogError(logger, L"later");
    std::filesystem::current_path(before);
    std::string bytes;
    hx::ReadFile(m_folder.path() / "logs/Mod.log", bytes);
    EXPECT_TRUE(Contains(bytes, "later"));
    EXPECT_FALSE(std::filesystem::exists(m_folder.path() / "other/logs/Mod.log"));
}

// Ends the process with 0 if it logs in its user's folder and leaves the configuration as it is.
TEST_F(LoggerFiler, AUserWhoCannotWriteToTheMachinesFolderHasOneOfHisOwn) {
    constexpr uid_t kNobody = 65534;
    const std::wstring machine = L"/var/lib/Orvel/Logs/";
    const auto runs_as_operator = [&](const Values& values) {
        if (getuid() == 0 && setresuid(kNobody, kNobody, kNobody) != 0) return 3;
        unsetenv("HX_DATA");
        setenv("XDG_STATE_HOME", m_folder.path().c_str(), 1);
        if (hx::MayWriteIn(hx::ToUtf8(machine))) return 2;
        Configure(values);
        StartAndLog(L"mine");
        return Contains(Text("Mod_20240131_235959.log"), "mine") &&
                       Configured().contains(L"LogOutputFolder") == values.contains(L"LogOutputFolder") &&
                       (values.empty() || Configured()[L"LogOutputFolder"] == hx::RegistryValue(machine))
                   ? 0
                   : 1;
    };
    std::filesystem::permissions(m_folder.path(), std::filesystem::perms::all);
    for (const Values& values : {Values{}, Values{{L"LogOutputFolder", machine}}}) {
        std::filesystem::remove_all(m_folder.path() / "Orvel");
        const pid_t child = fork();
        if (child == 0) _exit(runs_as_operator(values));
        int status = -1;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        if (WIFEXITED(status) && WEXITSTATUS(status) == 2) GTEST_SKIP() << "this machine is everybody's";
        EXPECT_EQ(status, 0) << values.size();
    }
}

class NoFolders final : public hx::MSpecialFolderImplementation {
    std::wstring GetAllUsersApplicationDataFolder() const override { return Fail(); }
    std::wstring GetUserApplicationDataFolder() const override { return Fail(); }
    std::wstring GetProgramFilesSubfolder(std::wstring_view) const override { return Fail(); }
    std::wstring GetProgramFilesFolder() const override { return Fail(); }
    std::wstring GetSharedComponentsInstallationFolder(std::wstring_view, bool) const override {
        return Fail();
    }
    std::wstring GetCommonProgramFilesFolder() const override { return Fail(); }
    std::wstring GetLogFolder(std::wstring_view) const override { return Fail(); }
    std::wstring GetTempFolder() const override { return Fail(); }
    static std::wstring Fail() { throw hx::MException(hx::MError(L"NoFolders:Fail")); }
};

TEST_F(LoggerFiler, WithoutADefaultFolderAConfiguredOneIsUsed) {
    const NoFolders folders;
    m_folders = &folders;
    Configure({{L"ClearLogFileUponStart", 0u}});
    EXPECT_TRUE(Filer().FileName().empty());
    EXPECT_FALSE(Filer().Write(L"text"));
    StartAndLog(L"x");
    EXPECT_FALSE(Configured().contains(L"LogOutputFolder")) << "a folder that is missing today only";
    Configure({{L"LogOutputFolder", hx::FromUtf8(m_folder.path().native()).value()}});
    EXPECT_TRUE(Filer().Write(L"text"));
}

}  // namespace

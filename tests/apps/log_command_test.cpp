// hxctl log: what a module has logged, and what happened in it.
#include <fnmatch.h>
#include <signal.h>
#include <stdio.h>

#include "tests/apps/hxctl_fixture.h"

namespace {

class LogCommand : public Hxctl {
protected:
    LogCommand() { m_logs = "data/Orvel/Logs/"; }

    void WriteLog(const std::string& name, const std::string& bytes) const {
        std::filesystem::create_directories(m_folder / m_logs);
        Write(m_logs + name, bytes);
    }
    std::string m_logs;
};

const std::string kHeader = "*** Module version M 1\n*** Module M started on 31-01-2024 at 23:59:59\n";
const std::string kFullHeader =
    "*** Module version M\n*** Windows version W\n*** Architecture A\n*** Module M started\n";
const std::string kFullHeaderJson =
    ",\"*** Module version M\",\"*** Windows version W\",\"*** Architecture A\",\"*** Module M started\"";
const std::string kRecord =
    "31-01-2024 at 23:59:59\n\t[Level]\t\t=\tError\n\t[File]\t\t=\tF\n\t[Line]\t\t=\t7\n"
    "\t[Location]\t=\tC::M\n\t[Message]\t=\tone\n\ntwo \xC3\xA4\n";

TEST_F(LogCommand, SaysWhereItLooked) {
    const std::string folder = (m_folder / m_logs).string();
    Check({
        {"log", "", 1, "", "hxctl: no log of module HXScannerCtrls in the folder \"" + folder + "\"\n"},
        {"log --follow --module X", "", 1, "",
         "hxctl: no log of module X in the folder \"" + folder + "\"\n"},
    });
    EXPECT_FALSE(std::filesystem::exists(m_folder / "data")) << "looking makes nothing";
    EXPECT_FALSE(std::filesystem::exists(m_folder / "registry")) << "nor does it write the configuration";
}

TEST_F(LogCommand, ShowsTheNewestLogOfTheModule) {
    WriteLog("HXScannerCtrls.log", "of all runs");
    Check({{"log", "", 0, "of all runs", ""}});
    WriteLog("HXScannerCtrls_20240131_235959.log", "newest run\n");
    WriteLog("HXScannerCtrls_20240131_235958.log", "older run\n");
    WriteLog("HXScannerCtrls_20240201_0000000.log", "another name\n");
    WriteLog("Other_20250101_000000.log", "another module\n");
    Check({
        {"log", "", 0, "newest run\n", ""},
        {"log --module Other", "", 0, "another module\n", ""},
    });
}

TEST_F(LogCommand, ShowsTheLogThatTheLibraryWrote) {
    EXPECT_EQ(Run("settings new --type 257").exit, 0);
    const Answer answer = Run("log");
    EXPECT_EQ(answer.exit, 0);
    const char* const header =
        "\\*\\*\\* Module version HXScannerCtrls [0-9]*\n\\*\\*\\* Windows version ?*\n"
        "\\*\\*\\* Architecture ?* processors\n\\*\\*\\* Module HXScannerCtrls started on "
        "[0-9][0-9]-[0-9][0-9]-[0-9][0-9][0-9][0-9] at [0-9][0-9]:[0-9][0-9]:[0-9][0-9]\n";
    EXPECT_EQ(fnmatch(header, answer.out.c_str(), 0), 0) << answer.out;
}

TEST_F(LogCommand, ADamagedStoreIsLoggedOnceByWhoeverFindsIt) {
    std::filesystem::create_directory(m_folder / "registry");
    const std::string reason = "The registry's store " + (m_folder / "registry/machine.registry").string();
    for (const char* command : {"settings new --type 257", "keys get 79", "log"}) {
        SCOPED_TRACE(command);
        std::filesystem::remove_all(m_folder / "data");
        Write("registry/machine.registry", "no store at all");
        const Answer answer = Run(command);
        const bool logged_by_the_library = std::string_view(command).starts_with("settings");
        EXPECT_EQ(answer.err.find(reason) != std::string::npos, !logged_by_the_library) << answer.err;
        const std::string log = Run("log").out;
        const size_t at = log.find(reason);
        EXPECT_NE(at, std::string::npos) << log;
        EXPECT_EQ(log.find(reason, at + 1), std::string::npos) << log;
    }
}

TEST_F(LogCommand, GivesRecordsAsJson) {
    const std::string name = (m_folder / m_logs / "HXScannerCtrls_20240131_235959.log").string();
    const std::string start = "{\"file\":\"" + name + "\",";
    const std::string header =
        "\"header\":[\"*** Module version M 1\",\"*** Module M started on 31-01-2024 at 23:59:59\"],";
    const std::string record =
        "{\"time\":\"31-01-2024 at 23:59:59\",\"level\":\"Error\",\"file\":\"F\",\"line\":\"7\","
        "\"location\":\"C::M\",\"message\":\"one\\n\\ntwo \xC3\xA4\"}";
    struct LogRow {
        std::string log;
        std::string json;
    };
    const LogRow rows[] = {
        {"", start + "\"header\":[],\"records\":[]}\n"},
        {kHeader + kRecord + kRecord, start + header + "\"records\":[" + record + "," + record + "]}\n"},
        {kHeader + kRecord + "*** no header\n" + kFullHeader + kRecord,
         start + header.substr(0, header.size() - 2) + kFullHeaderJson + "],\"records\":[" +
             record.substr(0, record.size() - 2) + "\\n*** no header\"}," + record + "]}\n"},
        {"cut off\n" + kRecord + "31-01-2024 at 23:59:59\n\t[Level]\t\t=\tErr\xFF",
         start + "\"header\":[],\"records\":[" + record +
             ",{\"time\":\"31-01-2024 at 23:59:59\",\"level\":\"Err\xEF\xBF\xBD\"}]}\n"},
    };
    for (const LogRow& row : rows) {
        WriteLog("HXScannerCtrls_20240131_235959.log", row.log);
        Check({{"log --json", "", 0, row.json, ""}});
    }
}

TEST_F(LogCommand, FollowsTheLogIntoTheNextRun) {
    WriteLog("HXScannerCtrls_20240131_235958.log", "one\n");
    FILE* const output =
        popen(("echo $$; exec '" + std::string(HX_BIN_DIR) + "/hxctl' log --follow").c_str(), "r");
    ASSERT_NE(output, nullptr);
    const auto next_line = [&] {
        char line[100] = "";
        EXPECT_NE(fgets(line, sizeof line, output), nullptr);
        return std::string(line);
    };
    const pid_t tool = std::stoi(next_line());
    EXPECT_EQ(next_line(), "one\n");
    std::ofstream(m_folder / m_logs / "HXScannerCtrls_20240131_235958.log", std::ios::app) << "two\n";
    EXPECT_EQ(next_line(), "two\n");
    WriteLog("HXScannerCtrls_20240131_235959.log", "next run\n");
    EXPECT_EQ(next_line(), "next run\n");
    WriteLog("HXScannerCtrls_20240131_235959.log", "anew\n");
    EXPECT_EQ(next_line(), "anew\n");
    EXPECT_EQ(kill(tool, SIGINT), 0);
    EXPECT_EQ(pclose(output), SIGINT);
}

TEST_F(LogCommand, WritesTheEventsOfASession) {
    std::filesystem::create_directory(m_folder / "data");
    Write("events", "old");
    Check({
        {"log --events events", "", 0, "10 events in events\n", ""},
        {"log --events events --json", "", 0, "{\"file\":\"events\",\"events\":10}\n", ""},
        {"log --events missing/events", "", 1, "", "hxctl: missing/events: the events cannot be written\n"},
        {"log --events ''", "", 2, "", "hxctl: --events needs the name of a file\n"},
        {"log --events data", "", 1, "", "hxctl: data: the events cannot be written\n"},
    });
    const std::string events = Read("events");
    EXPECT_TRUE(events.starts_with("%% Reference time: ")) << events;
    size_t at = 0;
    for (const char* event :
         {"\n% Log_module_added to HXScannerCtrls ",
          "\n% Scope_push in_class CCoMHXSettingsFactory at CCoMHXSettingsFactory::CreateSettingsObject ",
          "\n% Scope_pop in_class CCoMHXSettingsFactory at CCoMHXSettingsFactory::CreateSettingsObject ",
          "\n% Scope_push in_class CCoMHXConnSettings at CCoMHXConnSettings::WriteXmlBstr ",
          "\n% Scope_push in_class CCoMHXConnSettings at CCoMHXConnSettings::ReadXmlBstr ",
          "\n% Scope_push in_class CCoMHXConnSettings at CCoMHXConnSettings::ReadXmlBstr ",
          "\n% Log_module_removed to HXScannerCtrls "}) {
        at = events.find(event, at);
        ASSERT_NE(at, std::string::npos) << event << " is not in\n" << events;
        ++at;
    }
}

}  // namespace

// What errors, scopes and a module's start and end leave in the event store and in the log.
#include <thread>

#include "core/errors/MErrorCom.h"
#include "core/errors/MErrorLocation.h"
#include "core/log/MKLoggerAdapter.h"
#include "core/log/MModuleDiagnostics.h"
#include "core/messages/MDiagnosticsAtl.h"
#include "tests/core/log/log_fixture.h"

namespace {

using hx::MErrorLocation;

hx::MException Chain() {
    hx::MError older(L"A.B:C");
    older.AddParameter(L"n", L"v");
    hx::MException exception(older);
    exception.Append(hx::MError(L"D.E:F"));
    return exception;
}

class Diagnostics : public LogTest {
protected:
    Diagnostics() { Configure({{L"ClearLogFileUponStart", 0u}}); }
    ~Diagnostics() override { unsetenv("HX_EVENTS"); }

    static hx::ModuleVersion Version() { return {L"Product", L"4.0"}; }

    // The lines of events, without thread and time.
    static std::vector<std::string> EventLines(const std::string& dump) {
        std::vector<std::string> lines;
        for (size_t start = 0; start < dump.size(); start = dump.find('\n', start) + 1) {
            if (dump.compare(start, 2, "% ") != 0) continue;
            lines.push_back(dump.substr(start, dump.find(" in_thread", start) - start));
        }
        return lines;
    }
    static std::vector<std::string> EventLines(const hx::MModuleDiagnostics& diagnostics) {
        return EventLines(hx::ToUtf8(diagnostics.Events()->DumpText()));
    }
};

TEST_F(Diagnostics, EveryReportIsAnEvent) {
    static MErrorLocation location("Class", "Method");  // entered while nobody listens
    location.Set(reinterpret_cast<const void*>(16), 7);
    const hx::MModuleDiagnostics diagnostics(L"Mod", hx::kLoggingKeyPath, &Version);
    static const MErrorLocation entered("Class", "Other");
    hx::MakeError(location, L"Root");
    hx::MakeCascadeError(entered, L"Cascade");
    hx::Dismiss(location, hx::MError(L"X.Y:Z"));
    hx::Dismiss(entered, hx::MErrorCom(E_ABORT));
    {
        const hx::MFlowScope scope("Class::Method", "Class", 1);
        hx::DiagnosticsRegistry().OnException(location, Chain(), 3);
    }
    const std::vector<std::string> expected = {
        "% Log_module_added to Mod",
        "% Root_error in_class Class for_object 0x10 to state_Root at Method",
        "% Cascade_error in_class Class to state_Cascade at Other",
        "% Dismissed_error in_class Class for_object 0x10 to state_X.Y:Z at Method",
        "% Return_error in_class MErrorCom for_object * to state_80004004 at MErrorCom",
        "% Dismissed_error in_class Class to state_MErrorCom.MErrorCom: at Other",
        "% Scope_push in_class Class at Class::Method",
        "% Return_error in_class Class for_object 0x10 to state_D.E:F at Method",
        "% Scope_pop in_class Class at Class::Method",
    };
    std::vector<std::string> lines = EventLines(diagnostics);
    ASSERT_EQ(lines.size(), expected.size());
    // The object is one of the test's stack.
    const size_t address = lines[4].find("0x");
    lines[4] = lines[4].substr(0, address) + "*" + lines[4].substr(lines[4].find(' ', address));
    EXPECT_EQ(lines, expected);
}

TEST_F(Diagnostics, AnExceptionAtAnEntryPointIsLogged) {
    static MErrorLocation location("Class", "Method");
    location.Set(reinterpret_cast<const void*>(0xAB), 34);
    const hx::MModuleDiagnostics diagnostics(L"Mod", hx::kLoggingKeyPath, &Version);
    hx::DiagnosticsRegistry().OnException(location, Chain(), 3);
    EXPECT_TRUE(
        Contains(Text("Mod.log"),
                 "\n\t[Level]\t\t=\tError\n\t[File]\t\t=\tClass\n\t[Line]\t\t=\t34\n"
                 "\t[Location]\t=\tMethod\n\t[Message]\t=\tAn exception of kind 3 ended in object 0xab\n"
                 "Error codes:\nD.E:F ()\nA.B:C ($n=\"v\")\n"));
    EXPECT_EQ(hx::MDiagnosticsAtl::MExceptionAsErrorinfo(CLSID_NULL, Chain(), IID_IUnknown, E_ABORT),
              E_ABORT);
    EXPECT_TRUE(Contains(Text("Mod.log"),
                         "\n\t[File]\t\t=\tMDiagnosticsAtl\n\t[Line]\t\t=\t23\n\t[Location]\t=\t"
                         "MDiagnosticsAtl::MExceptionAsErrorinfo\n\t[Message]\t=\t"));
    EXPECT_TRUE(Text("Mod.log").ends_with("\nError codes:\nD.E:F ()\nA.B:C ($n=\"v\")\n"));
    EXPECT_EQ(EventLines(diagnostics).back(),
              "% Scope_pop in_class MDiagnosticsAtl at MDiagnosticsAtl::MExceptionAsErrorinfo");
    SetErrorInfo(0, nullptr);
}

TEST_F(Diagnostics, AModulesEndTakesAllBackAndDumpsWhereItIsAsked) {
    const std::filesystem::path file = m_folder.path() / "events";
    struct Row {
        const char* what;
        std::optional<std::string> variable;
        std::filesystem::path dump;
    };
    const Row rows[] = {
        {"not asked", std::nullopt, {}},
        {"a file", file, file},
        {"the default", "", LogFolder() / "DebugDump.log"},
        {"a folder", m_folder.path(), {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        if (row.variable) setenv("HX_EVENTS", row.variable->c_str(), 1);
        {
            const hx::MModuleDiagnostics diagnostics(L"Mod", hx::kLoggingKeyPath, &Version);
            EXPECT_TRUE(hx::ModuleLogger().Writes(hx::MLogSeverity::kError));
        }
        EXPECT_FALSE(hx::ModuleLogger().Writes(hx::MLogSeverity::kError));
        EXPECT_EQ(hx::SetDiagnosticsRegistry(nullptr), nullptr);
        EXPECT_EQ(hx::SetFlowLogger(nullptr), nullptr);
        if (row.dump.empty()) continue;
        std::string dump;
        EXPECT_FALSE(hx::ReadFile(row.dump, dump));
        EXPECT_EQ(EventLines(dump),
                  (std::vector<std::string>{"% Log_module_added to Mod", "% Log_module_removed to Mod"}));
    }
    EXPECT_TRUE(Contains(Text("Mod.log"), "cannot be written to the file \"" + m_folder.path().string()));
    EXPECT_EQ(Files(), (std::vector<std::string>{"DebugDump.log", "Mod.log"}));
}

TEST_F(Diagnostics, AModulesEndLeavesWhatAnotherHasInstalled) {
    std::optional<hx::MModuleDiagnostics> first(std::in_place, L"Mod", hx::kLoggingKeyPath, &Version);
    const hx::MModuleDiagnostics second(L"Mod", hx::kLoggingKeyPath, &Version);
    first.reset();
    EXPECT_TRUE(hx::ModuleLogger().Writes(hx::MLogSeverity::kError));
    static const MErrorLocation location("Class", "Later");
    hx::MakeError(location, L"Root");
    EXPECT_EQ(EventLines(second).back(), "% Root_error in_class Class to state_Root at Later");
}

TEST_F(Diagnostics, ThreadsReportAtTheSameTime) {
    constexpr int kThreads = 4;
    constexpr int kErrors = 300;
    const hx::MModuleDiagnostics diagnostics(L"Mod", hx::kLoggingKeyPath, &Version);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i) {
        threads.emplace_back([i] {
            for (int error = 0; error < kErrors; ++error) {
                const hx::MFlowScope scope("Threads::Run", "Threads", 1);
                static MErrorLocation location("Threads", "Run");
                location.Set(&error, i);
                try {
                    hx::Throw(location, hx::MakeError(location, std::to_wstring(error)));
                } catch (const hx::MException& exception) {
                    hx::DiagnosticsRegistry().OnException(location, exception, i);
                }
                if (error % 100 == 0)
                    hx::ModuleLogger().Log({hx::MLogSeverity::kError, "T", i, "Run", L"log"});
            }
        });
    }
    (void)diagnostics.Events()->DumpText();
    for (std::thread& thread : threads) thread.join();
    const std::vector<std::string> lines = EventLines(diagnostics);
    EXPECT_EQ(lines.size(), 1u + kThreads * kErrors * 4);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "% Scope_push in_class Threads at Threads::Run"),
              kThreads * kErrors);
    const std::string log = Text("Mod.log");
    size_t records = 0;
    for (size_t at = log.find("[Level]"); at != std::string::npos; at = log.find("[Level]", at + 1))
        ++records;
    EXPECT_EQ(records, size_t{kThreads} * (kErrors + kErrors / 100));
}

}  // namespace

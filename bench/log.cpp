// Logging: a record that is written, one that is not, and an error that is raised, recorded and caught.
#include <fcntl.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <stdexcept>

#include "bench/comparisons.h"
#include "bench/expect.h"
#include "core/errors/MErrorLocation.h"
#include "core/log/MKLoggerAdapter.h"
#include "core/log/ModuleLogger.h"
#include "platform/registry/registry.h"
#include "platform/system/append.h"

namespace hx::bench {
namespace {

constexpr size_t kRepeated = 1000;  // calls that are too short to be timed one by one

// A log of its own, in append mode, which goes with it.
class TemporaryLog {
public:
    TemporaryLog() {
        std::string pattern = (std::filesystem::temp_directory_path() / "hxbench_XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for the log");
        m_folder = pattern;
        SetRegistry(MakeMemoryRegistry());
        LoggingValues values(kLoggingKeyPath, {});
        values.Get(L"LogOutputFolder", m_folder.wstring());
        values.Get(L"ClearLogFileUponStart", static_cast<uint32_t>(LogFileMode::kAppend));
        m_logger.emplace(L"Bench", kLoggingKeyPath, ModuleVersion{L"hxbench", L"1"});
    }
    TemporaryLog(const TemporaryLog&) = delete;
    TemporaryLog& operator=(const TemporaryLog&) = delete;
    ~TemporaryLog() { std::filesystem::remove_all(m_folder); }

    MLogger& Logger() { return *m_logger; }
    std::filesystem::path File(const char* name) const { return m_folder / name; }
    std::string Text() const {
        std::string bytes;
        ReadFile(File("Bench.log"), bytes);
        return bytes;
    }

private:
    std::filesystem::path m_folder;
    std::optional<MLogger> m_logger;
};

constexpr std::wstring_view kMessage =
    L"An exception of kind 3 ended in object 0x55d0c0ffee10\nError codes:\n"
    L"MLaserProfileSettings.ValidateProfileName:ProfileNameContains ($invalidCharacter=\"/\")";

void LogOne(MLogger& logger, MLogSeverity severity) {
    logger.Log({severity, "CCoMHXConnSettings", 34, "ReadXmlBstr", kMessage});
}

void AppendBare(const char* path, const std::string& bytes) {
    const int file = open(path, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    const auto written = write(file, bytes.data(), bytes.size());
    Expect(close(file) == 0 && written == static_cast<ssize_t>(bytes.size()), "bare append", "one record");
}

// The method's error with two parameters, as any method raises it.
void RaiseAndCatch() {
    static MErrorLocation location("MLaserProfileSettings", "ValidateProfileName");
    try {
        location.Set(&location, 28);
        MError error = MakeError(location, L"ProfileNameContains");
        error.AddParameter(L"invalidCharacter", L"/");
        error.AddParameter(L"position", 12);
        Throw(location, error);
    } catch (const MException& exception) {
        Expect(exception.GetChain().size() == 1, "HX", "raise and catch");
    }
}

// `most`: the most that it may take, as a ratio to what it is beside or as a time; empty: no aim.
std::vector<std::string> Row(const char* what, double ours, const char* beside, double theirs,
                             const std::string& most, bool met) {
    return {what,
            FormatTime(ours),
            beside,
            FormatTime(theirs),
            FormatNumber(ours / theirs, 2),
            most.empty() ? "-" : most,
            most.empty() ? "-" : (met ? "yes" : "no")};
}

void AddWriting(Benchmark& benchmark, Table& table, TemporaryLog& log) {
    constexpr double kMost = 1.5;
    const size_t header = log.Text().size();
    LogOne(log.Logger(), MLogSeverity::kError);
    const std::string record = log.Text().substr(header);
    const std::string bare = log.File("bare");
    const std::string ours = log.File("Bench.log");
    // Both files grow as logs do, and begin anew before they fill the disk.
    const auto grow = [](const std::string& file) {
        return [file, records = size_t{0}]() mutable {
            if (++records % 50'000 == 0) MakeEmptyFile(file);
        };
    };
    const std::vector<double> medians =
        Compete({{"HX", grow(ours), [&] { LogOne(log.Logger(), MLogSeverity::kError); }},
                 {"bare", grow(bare), [&] { AppendBare(bare.c_str(), record); }}},
                benchmark.HowMuch());
    Expect(log.Text().ends_with(record.substr(record.find('\n'))), "HX", "one record");
    table.Add(Row("a record written", medians[0], "bare open, append, close", medians[1],
                  FormatNumber(kMost, 1) + " times", medians[0] <= kMost * medians[1]));
}

void AddSkipping(Benchmark& benchmark, Table& table, TemporaryLog& log) {
    constexpr double kMost = 20e-9;
    const std::string before = log.Text();
    SetModuleLogger(&log.Logger());
    volatile int64_t threshold = 0;
    volatile uint64_t passed = 0;
    const std::vector<double> medians = Compete({{"HX", [] {},
                                                  [] {
                                                      for (size_t i = 0; i < kRepeated; ++i)
                                                          LogOne(ModuleLogger(), MLogSeverity::kWarning);
                                                  }},
                                                 {"comparison", [] {},
                                                  [&] {
                                                      for (size_t i = 0; i < kRepeated; ++i) {
                                                          if (threshold >= 1) passed = passed + 1;
                                                      }
                                                  }}},
                                                benchmark.HowMuch());
    SetModuleLogger(nullptr);
    Expect(log.Text() == before, "HX", "a record above the threshold");
    const double ours = medians[0] / kRepeated;
    table.Add(Row("a record above the threshold", ours, "bare comparison", medians[1] / kRepeated,
                  FormatTime(kMost), ours <= kMost));
}

void AddRaising(Benchmark& benchmark, Table& table) {
    constexpr double kMost = 3e-6;
    KLogger events;
    MKLoggerAdapter adapter(events);
    const std::vector<double> medians =
        Compete({{"HX", [&] { SetDiagnosticsRegistry(&adapter); }, RaiseAndCatch},
                 {"nobody", [] { SetDiagnosticsRegistry(nullptr); }, RaiseAndCatch},
                 {"int", [] {},
                  [] {
                      try {
                          throw 1;
                      } catch (int number) {
                          Expect(number == 1, "int", "raise and catch");
                      }
                  }}},
                benchmark.HowMuch());
    SetDiagnosticsRegistry(nullptr);
    table.Add(Row("an error raised and caught, with events", medians[0], "the same, nobody listening",
                  medians[1], FormatTime(kMost), medians[0] <= kMost));
    table.Add(Row("an error raised and caught, with events", medians[0], "throw and catch of a number",
                  medians[2], {}, true));
}

}  // namespace

void CompareLogging(Benchmark& benchmark) {
    Table table("Log",
                "A record of an exception with one error code, in append mode, beside the plain system calls "
                "with the same bytes; a record that the default threshold holds back; and an error of a "
                "method, with two parameters, that is raised and caught while the event store is on.",
                {"What", "HX takes", "Beside", "It takes", "HX / it", "At most", "Met"});
    TemporaryLog log;
    AddWriting(benchmark, table, log);
    AddSkipping(benchmark, table, log);
    AddRaising(benchmark, table);
    benchmark.report.Add(table.Markdown());
}

}  // namespace hx::bench

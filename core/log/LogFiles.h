// Where the logs of one module lie: one file that every run uses, and files of single runs, whose names hold
// the time of the run's start. Used by the logger that writes them and by tools that show them. Any thread.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "core/log/LoggingValues.h"
#include "core/log/MSpecialFolderImplementation.h"
#include "platform/system/clock.h"

namespace hx {

// "ClearLogFileUponStart": what a start does to the log. Any other value is taken for kAppend, which loses
// nothing.
enum class LogFileMode : uint32_t { kAppend = 0, kClear = 1, kRoll = 2 };

// "LogOutputFolder", made absolute now; the default is the company's log folder. Where the machine's log
// folder is configured and this process cannot write there, the default, which is then the user's, takes its
// place.
struct LogFolder {
    std::wstring text;        // empty if none is configured and the system has none
    bool is_default = false;  // so that it may be made if it is missing
};
LogFolder GetLogFolder(LoggingValues& values, std::wstring_view company,
                       const MSpecialFolderImplementation& folders);
LogFileMode GetLogFileMode(LoggingValues& values);

class LogFiles {
public:
    LogFiles(std::wstring_view folder, std::wstring_view module_name);

    std::filesystem::path OfAllRuns() const;
    std::filesystem::path OfRun(const LocalTime& start) const;
    // The files of runs that are there, oldest start first.
    std::vector<std::filesystem::path> Runs() const;

private:
    std::string m_folder;  // ends with a separator
    std::string m_module_name;
};

}  // namespace hx

// The log of one module, where its configuration says that it is: read as it grows, or for the errors in it.
// Writes nothing, neither there nor into the configuration. One thread at a time.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/log/LogFiles.h"

namespace hosting {

// As they stand in the log: UTF-8, or whatever bytes were logged; the time is that of the machine.
struct LoggedError {
    std::string time;
    std::string text;  // may have several lines
};

class ModuleLog {
public:
    explicit ModuleLog(std::wstring_view module) : ModuleLog(module, Configuration()) {}

    // Nothing if there is no log.
    std::optional<std::filesystem::path> Newest() const;
    // What was added to the file since the last call; all of it if it is another one or was emptied.
    std::string ReadMore(const std::filesystem::path& path);
    // The newest ones, oldest first, of this run and of those before it.
    std::vector<LoggedError> LastErrors(size_t most) const;

    const std::wstring& Folder() const { return m_folder; }

private:
    struct Configuration {
        Configuration();
        std::wstring folder;
        hx::LogFileMode mode;
    };
    ModuleLog(std::wstring_view module, const Configuration& configuration)
        : m_folder(configuration.folder), m_mode(configuration.mode), m_files(m_folder, module) {}
    // Those that there are, newest first.
    std::vector<std::filesystem::path> Files() const;

    const std::wstring m_folder;
    const hx::LogFileMode m_mode;
    const hx::LogFiles m_files;
    std::filesystem::path m_path;
    uintmax_t m_read = 0;
};

}  // namespace hosting

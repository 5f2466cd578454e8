// hxctl log: the newest log of a module, where its configuration says that it is. Writes nothing, neither
// there nor into the configuration.
#include <chrono>
#include <fstream>
#include <iostream>
#include <iterator>
#include <thread>

#include "apps/hxctl/command.h"
#include "apps/hxctl/log_records.h"
#include "apps/hxctl/registry_reports.h"
#include "core/log/LogFiles.h"
#include "platform/system/utf8.h"

namespace hxctl {
namespace {

namespace fs = std::filesystem;

// Follows one module's log from file to file.
class LogReader {
public:
    explicit LogReader(std::wstring_view module) : LogReader(module, Configuration()) {}

    // Nothing if there is no log.
    std::optional<fs::path> Newest() const {
        const std::vector<fs::path> runs = m_files.Runs();
        std::error_code error;
        const bool has_common = fs::is_regular_file(m_files.OfAllRuns(), error);
        if (!runs.empty() && (m_mode == hx::LogFileMode::kRoll || !has_common)) return runs.back();
        if (has_common) return m_files.OfAllRuns();
        return std::nullopt;
    }

    // What was added to the file since the last call; all of it if it is another one or was emptied.
    std::string ReadMore(const fs::path& path) {
        std::error_code error;
        const auto size = fs::file_size(path, error);
        if (error) return {};
        if (path != m_path || size < m_read) m_read = 0;
        m_path = path;
        std::ifstream file(path, std::ios::binary);
        file.seekg(static_cast<std::streamoff>(m_read));
        std::string text(std::istreambuf_iterator<char>(file), {});
        m_read += text.size();
        return text;
    }

    const std::wstring& Folder() const { return m_folder; }

private:
    struct Configuration {
        Configuration() {
            const std::wstring_view company = hx::LoggingValues::kCompanyKey;
            hx::LoggingValues values(hx::kLoggingKeyPath, company, hx::LoggingValues::Missing::kLeave);
            folder = hx::GetLogFolder(values, company, hx::SpecialFolders()).text;
            mode = hx::GetLogFileMode(values);
        }
        std::wstring folder;
        hx::LogFileMode mode;
    };
    LogReader(std::wstring_view module, const Configuration& configuration)
        : m_folder(configuration.folder), m_mode(configuration.mode), m_files(m_folder, module) {}

    const std::wstring m_folder;
    const hx::LogFileMode m_mode;
    const hx::LogFiles m_files;
    fs::path m_path;
    uintmax_t m_read = 0;
};

std::string Shown(const fs::path& path, std::string text, bool json) {
    if (!json) return text;
    // A log may hold bytes of other programs.
    constexpr auto kReplace = Json::error_handler_t::replace;
    return ReadLogRecords(path, text).dump(-1, ' ', false, kReplace) + "\n";
}

// Returns when the output cannot be written any more; most often it is interrupted.
Outcome Follow(LogReader& reader, fs::path path, bool json) {
    constexpr std::chrono::milliseconds kPause(100);
    while (true) {
        // Looked up first, so that the older file is read to its end before a newer one.
        const auto newest = reader.Newest();
        const std::string text = reader.ReadMore(path);
        if (!text.empty()) std::cout << Shown(path, text, json) << std::flush;
        if (!std::cout) return {};
        if (newest && *newest != path) {
            path = *newest;
        } else {
            std::this_thread::sleep_for(kPause);
        }
    }
}

}  // namespace

Outcome RunLog(const LogRequest& request, bool json) {
    const auto module = hx::FromUtf8(request.module);
    if (!module) return {kUsage, {}, "the module's name is no UTF-8"};
    LogReader reader(*module);
    // Following may never return, and what was found in the configuration's store is part of the log.
    TellRegistryReports();
    const auto newest = reader.Newest();
    if (!newest) {
        return Refused("no log of module " + request.module + " in the folder \"" +
                       hx::ToUtf8(reader.Folder()) + "\"");
    }
    if (request.follow) return Follow(reader, *newest, json);
    return {kDone, Shown(*newest, reader.ReadMore(*newest), json), {}};
}

}  // namespace hxctl

#include "apps/hosting/report/ModuleLog.h"

#include <algorithm>
#include <fstream>
#include <iterator>

#include "apps/hosting/report/LogRecords.h"

namespace hosting {
namespace {

namespace fs = std::filesystem;

// Of a file that one run after the other has added to: enough for more errors than anybody reads.
constexpr uintmax_t kTail = 4 << 20;

std::string ReadFrom(const fs::path& path, uintmax_t offset) {
    std::ifstream file(path, std::ios::binary);
    file.seekg(static_cast<std::streamoff>(offset));
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::string TextIn(const nlohmann::ordered_json& record, const char* field) {
    const auto found = record.find(field);
    return found == record.end() ? std::string() : found->get<std::string>();
}

}  // namespace

ModuleLog::Configuration::Configuration() {
    const std::wstring_view company = hx::LoggingValues::kCompanyKey;
    hx::LoggingValues values(hx::kLoggingKeyPath, company, hx::LoggingValues::Missing::kLeave);
    folder = hx::GetLogFolder(values, company, hx::SpecialFolders()).text;
    mode = hx::GetLogFileMode(values);
}

std::vector<fs::path> ModuleLog::Files() const {
    std::vector<fs::path> files = m_files.Runs();
    std::ranges::reverse(files);
    std::error_code error;
    const fs::path of_all_runs = m_files.OfAllRuns();
    if (fs::is_regular_file(of_all_runs, error)) {
        files.insert(m_mode == hx::LogFileMode::kRoll ? files.end() : files.begin(), of_all_runs);
    }
    return files;
}

std::optional<fs::path> ModuleLog::Newest() const {
    const std::vector<fs::path> files = Files();
    return files.empty() ? std::nullopt : std::optional(files.front());
}

std::string ModuleLog::ReadMore(const fs::path& path) {
    std::error_code error;
    const auto size = fs::file_size(path, error);
    if (error) return {};
    if (path != m_path || size < m_read) m_read = 0;
    m_path = path;
    std::string text = ReadFrom(path, m_read);
    m_read += text.size();
    return text;
}

std::vector<LoggedError> ModuleLog::LastErrors(size_t most) const {
    std::vector<LoggedError> errors;  // newest first
    for (const fs::path& path : Files()) {
        if (errors.size() >= most) break;
        std::error_code error;
        const uintmax_t size = fs::file_size(path, error);
        if (error) continue;
        const auto log = ReadLogRecords({}, ReadFrom(path, size > kTail ? size - kTail : 0));
        const auto& records = log.at("records");
        for (auto record = records.rbegin(); record != records.rend() && errors.size() < most; ++record) {
            if (TextIn(*record, "level") != "Error") continue;
            errors.push_back({TextIn(*record, "time"), TextIn(*record, "message")});
        }
    }
    std::ranges::reverse(errors);
    return errors;
}

}  // namespace hosting

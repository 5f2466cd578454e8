#include "core/log/LogFiles.h"

#include <algorithm>

#include "core/errors/MErrorLocation.h"
#include "core/log/LogTime.h"
#include "platform/system/append.h"
#include "platform/system/folders.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

constexpr const char* kExtension = ".log";

std::wstring DefaultFolder(std::wstring_view company, const MSpecialFolderImplementation& folders) {
    try {
        return folders.GetLogFolder(company);
    } catch (const MException& exception) {
        static MErrorLocation location("LogFiles", "DefaultFolder");
        location.Set(nullptr, 25);
        Dismiss(location, *exception.GetChain().back());
        return {};
    }
}

}  // namespace

LogFolder GetLogFolder(LoggingValues& values, std::wstring_view company,
                       const MSpecialFolderImplementation& folders) {
    const std::wstring usual = DefaultFolder(company, folders);
    constexpr std::wstring_view kName = L"LogOutputFolder";
    LogFolder folder;
    folder.text = usual.empty() ? values.GetUnlessMissing(kName, usual) : values.Get(kName, usual);
    folder.is_default = folder.text == usual;
    return folder;
}

LogFileMode GetLogFileMode(LoggingValues& values) {
    const auto mode = static_cast<LogFileMode>(
        values.Get(L"ClearLogFileUponStart", static_cast<uint32_t>(LogFileMode::kRoll)));
    return mode == LogFileMode::kClear || mode == LogFileMode::kRoll ? mode : LogFileMode::kAppend;
}

LogFiles::LogFiles(std::wstring_view folder, std::wstring_view module_name)
    : m_folder(ToUtf8(folder)), m_module_name(ToUtf8(module_name)) {
    if (EndsWithSeparator(folder)) m_folder.pop_back();
    m_folder += static_cast<char>(kPathSeparator);
}

std::filesystem::path LogFiles::OfAllRuns() const {
    return m_folder + m_module_name + kExtension;
}

std::filesystem::path LogFiles::OfRun(const LocalTime& start) const {
    return m_folder + m_module_name + '_' + ToUtf8(FileTimeText(start)) + kExtension;
}

std::vector<std::filesystem::path> LogFiles::Runs() const {
    const std::string prefix = m_module_name + '_';
    const size_t length = OfRun({}).filename().native().size();
    std::vector<std::string> names;
    std::vector<std::filesystem::path> runs;
    if (ListFiles(m_folder, names)) return runs;
    std::erase_if(names, [&](const std::string& name) {
        return name.size() != length || !name.starts_with(prefix) || !name.ends_with(kExtension) ||
               name.find('_', prefix.size()) == std::string::npos;
    });
    std::ranges::sort(names);
    for (const std::string& name : names) runs.emplace_back(m_folder + name);
    return runs;
}

}  // namespace hx

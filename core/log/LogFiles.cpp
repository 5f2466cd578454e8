#include "core/log/LogFiles.h"

#include <algorithm>

#include "core/errors/MErrorLocation.h"
#include "core/log/LogTime.h"
#include "core/log/MSpecialFolderImplementationWindows.h"
#include "platform/system/append.h"
#include "platform/system/folders.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

constexpr const char* kExtension = ".log";

// Empty if there is none.
template <class Find>
std::wstring FolderOrNone(Find find) {
    try {
        return find();
    } catch (const MException& exception) {
        static MErrorLocation location("LogFiles", "GetLogFolder");
        location.Set(nullptr, 25);
        Dismiss(location, *exception.GetChain().back());
        return {};
    }
}

// Fixed now, so that the log does not move when the program changes its current folder.
std::wstring Absolute(const std::wstring& folder) {
    const std::filesystem::path path = ToUtf8(folder);
    if (folder.empty() || path.is_absolute()) return folder;
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? folder : FromUtf8(absolute.native()).value_or(folder);
}

}  // namespace

LogFolder GetLogFolder(LoggingValues& values, std::wstring_view company,
                       const MSpecialFolderImplementation& folders) {
    constexpr std::wstring_view kName = L"LogOutputFolder";
    const std::wstring usual = FolderOrNone([&] { return folders.GetLogFolder(company); });
    const std::wstring machine =
        FolderOrNone([&] { return MSpecialFolderImplementationWindows().GetMachineLogFolder(company); });
    // What is written back holds for all users, so it must not be a folder of this one.
    const bool is_for_all = !usual.empty() && usual == machine;
    LogFolder folder;
    folder.text = is_for_all ? values.Get(kName, usual) : values.GetUnlessMissing(kName, usual);
    // Nor may a run of somebody who can write to the machine's folder silence those who cannot.
    if (folder.text == machine && !MayWriteIn(ToUtf8(machine))) folder.text = usual;
    folder.is_default = folder.text == usual;
    folder.text = Absolute(folder.text);
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

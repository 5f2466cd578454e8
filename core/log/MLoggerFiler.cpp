#include "core/log/MLoggerFiler.h"

#include "core/log/LogTime.h"
#include "platform/system/append.h"
#include "platform/system/folders.h"
#include "platform/system/system_description.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

// The file that was just made counts, too; it comes back with the first write. What cannot be deleted stays.
void DeleteOldest(const LogFiles& files, size_t remaining) {
    const std::vector<std::filesystem::path> runs = files.Runs();
    for (size_t i = 0; i + remaining < runs.size(); ++i) DeleteFileAt(runs[i]);
}

}  // namespace

MLoggerFiler::MLoggerFiler(std::wstring_view module_name, std::wstring_view key_path,
                           std::wstring_view company, ModuleVersion module, const IClock& clock,
                           const MSpecialFolderImplementation& folders)
    : MLoggerFiler(module_name, LoggingValues(key_path, company), company, std::move(module), clock,
                   folders) {}

MLoggerFiler::MLoggerFiler(std::wstring_view module_name, LoggingValues values, std::wstring_view company,
                           ModuleVersion module, const IClock& clock,
                           const MSpecialFolderImplementation& folders)
    : m_module_name(module_name), m_module(std::move(module)), m_clock(clock) {
    const LogFolder folder = GetLogFolder(values, company, folders);
    // Without a folder the file would end up in the system's root.
    if (folder.text.empty()) return;
    if (folder.is_default) MakeFolder(ToUtf8(folder.text));
    MakeFile(values, LogFiles(folder.text, module_name));
}

void MLoggerFiler::MakeFile(LoggingValues& values, const LogFiles& files) {
    constexpr uint32_t kRunsKept = 10;
    switch (GetLogFileMode(values)) {
        case LogFileMode::kAppend:
            m_file_name = files.OfAllRuns();
            break;
        case LogFileMode::kClear:
            m_file_name = files.OfAllRuns();
            MakeEmptyFile(m_file_name);
            break;
        case LogFileMode::kRoll:
            // A run that started within the same second keeps what it has written.
            m_file_name = files.OfRun(ToLocalTime(m_clock.WallMicroseconds()));
            MakeFileIfMissing(m_file_name);
            DeleteOldest(files, values.Get(L"LogsMaxBeforeRoll", kRunsKept));
            break;
    }
}

void MLoggerFiler::WriteHeader() {
    const SystemDescription system = DescribeSystem();
    std::wstring text;
    text.append(L"*** Module version ").append(m_module.file_description).append(L" ");
    text.append(m_module.product_version);
    text.append(L"\n*** Windows version ").append(system.product).append(L" ").append(system.version);
    text.append(L" service pack ").append(system.service_pack);
    text.append(L"\n*** Architecture ").append(system.architecture).append(L", ");
    text.append(system.processors).append(L" processors");
    text.append(L"\n*** Module ").append(m_module_name).append(L" started on ");
    text.append(RecordTimeText(ToLocalTime(m_clock.WallMicroseconds())));
    Write(text);
}

bool MLoggerFiler::Write(std::wstring_view text) {
    std::string bytes = ToUtf8(text);
    if (!bytes.ends_with('\n')) bytes += '\n';
    return !m_file_name.empty() && !AppendToFile(m_file_name, bytes);
}

}  // namespace hx

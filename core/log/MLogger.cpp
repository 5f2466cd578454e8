#include "core/log/MLogger.h"

#include "core/log/LogTime.h"

namespace hx {

MLogger::MLogger(std::wstring_view module_name, std::wstring_view key_path, const ModuleVersion& module,
                 const IClock& clock, const MSpecialFolderImplementation& folders) noexcept
    : m_clock(&clock) {
    try {
        Configure(module_name, key_path, module, folders);
    } catch (...) {
        // A module that cannot log works all the same.
        m_threshold = kSilent;
    }
}

void MLogger::Configure(std::wstring_view module_name, std::wstring_view key_path,
                        const ModuleVersion& module, const MSpecialFolderImplementation& folders) {
    const std::wstring kFile = L"LogFile";
    const std::wstring_view company = LoggingValues::kCompanyKey;
    LoggingValues values(key_path, company);
    if (!values.Get(L"LogAllModules", true) && !values.Get(module_name, false)) return;
    const std::wstring device = values.Get(L"LoggingDevice", kFile);
    const auto threshold = values.Get(L"Severity", static_cast<uint32_t>(MLogSeverity::kError));
    if (device != kFile) return;
    m_device = std::make_unique<MLoggerFiler>(module_name, values, company, module, *m_clock, folders);
    m_device->WriteHeader();
    m_threshold = threshold;
}

void MLogger::WriteRecord(const MLogRecord& record) noexcept {
    constexpr size_t kKept = 16384;  // characters
    try {
        const std::lock_guard guard(m_critical_section);
        m_text.clear();
        AppendRecordText(m_text, TimeText(), record);
        m_device->Write(m_text);
        if (m_text.capacity() > kKept) std::wstring().swap(m_text);
    } catch (...) {
        // Whoever logs a failure has enough to do with that one.
    }
}

std::wstring_view MLogger::TimeText() {
    const int64_t now = m_clock->WallMicroseconds();
    const int64_t second = now / 1'000'000;
    if (second != m_time_second || m_time_text.empty()) {
        m_time_text = RecordTimeText(ToLocalTime(now));
        m_time_second = second;
    }
    return m_time_text;
}

}  // namespace hx

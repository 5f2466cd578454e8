// The log of one module. Created at the module's start, which reads its configuration; then anybody may log,
// on any thread. Logging never raises: a record that cannot be written is lost, and the program goes on.
//
//     ModuleLogger().Log({MLogSeverity::kError, "MLocale", 28, "MLocale::MLocale", message});
//
// A record above the threshold costs one comparison: nothing of it is copied or put together.
#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>

#include "core/log/MLogRecord.h"
#include "core/log/MLoggerFiler.h"

namespace hx {

class MLogger {
public:
    // A silent one.
    MLogger() noexcept = default;
    // Reads the configuration below the key path, with whatever is missing written there, and writes the
    // header. Silent if neither all modules nor this one are to log. `clock` and `folders` outlive the
    // logger.
    MLogger(std::wstring_view module_name, std::wstring_view key_path, const ModuleVersion& module,
            const IClock& clock = SystemClock(),
            const MSpecialFolderImplementation& folders = SpecialFolders()) noexcept;
    MLogger(const MLogger&) = delete;
    MLogger& operator=(const MLogger&) = delete;

    // Whether a record of that severity is written. For callers whose message is costly to make.
    bool Writes(MLogSeverity severity) const { return static_cast<int64_t>(severity) <= m_threshold; }

    void Log(const MLogRecord& record) noexcept {
        if (Writes(record.severity)) WriteRecord(record);
    }

private:
    void Configure(std::wstring_view module_name, std::wstring_view key_path, const ModuleVersion& module,
                   const MSpecialFolderImplementation& folders);
    void WriteRecord(const MLogRecord& record) noexcept;
    // With m_critical_section held.
    std::wstring_view TimeText();

    static constexpr int64_t kSilent = -1;

    // Of the severities that are written the highest; constant once the logger is made.
    int64_t m_threshold = kSilent;
    const IClock* m_clock = nullptr;
    std::mutex m_critical_section;  // guards what follows
    std::unique_ptr<MLoggingDevice> m_device;
    std::wstring m_text;  // of the record being written; kept for its memory
    std::wstring m_time_text;
    int64_t m_time_second = -1;
};

}  // namespace hx

// One entry of a module's log, as whoever logs hands it over: nothing is copied or put together unless the
// entry is written. Any thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace hx {

// Any other 32-bit value may be logged, too; its name is "Unknown".
enum class MLogSeverity : uint32_t { kError = 0, kWarning = 1, kMessage = 2, kFlow = 3 };

struct MLogRecord {
    MLogSeverity severity = MLogSeverity::kError;
    std::string_view file;      // the name of the source, in ASCII
    int32_t line = 0;           // a number that the logging site keeps, whatever happens to the file
    std::string_view location;  // the method, in ASCII
    std::wstring_view message;
};

std::wstring_view SeverityName(MLogSeverity severity);

// Appends the record as it stands in the log, without a line break behind it. `time` is a RecordTimeText.
void AppendRecordText(std::wstring& text, std::wstring_view time, const MLogRecord& record);

}  // namespace hx

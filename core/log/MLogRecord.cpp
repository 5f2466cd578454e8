#include "core/log/MLogRecord.h"

#include <charconv>
#include <iterator>

namespace hx {
namespace {

constexpr std::wstring_view kSeverityNames[] = {L"Error", L"Warning", L"Message", L"Flow"};

}  // namespace

std::wstring_view SeverityName(MLogSeverity severity) {
    const auto number = static_cast<uint32_t>(severity);
    return number < std::size(kSeverityNames) ? kSeverityNames[number] : L"Unknown";
}

void AppendRecordText(std::wstring& text, std::wstring_view time, const MLogRecord& record) {
    const auto append_ascii = [&text](std::string_view ascii) { text.append(ascii.begin(), ascii.end()); };
    char line[12];
    const char* const line_end = std::to_chars(line, line + sizeof line, record.line).ptr;
    // The tabs align the values.
    text.append(time).append(L"\n\t[Level]\t\t=\t").append(SeverityName(record.severity));
    text.append(L"\n\t[File]\t\t=\t");
    append_ascii(record.file);
    text.append(L"\n\t[Line]\t\t=\t");
    append_ascii({line, line_end});
    text.append(L"\n\t[Location]\t=\t");
    append_ascii(record.location);
    text.append(L"\n\t[Message]\t=\t").append(record.message);
}

}  // namespace hx

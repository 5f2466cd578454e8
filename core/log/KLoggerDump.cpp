// The event store as text.
#include <cstdlib>

#include "core/errors/MException.h"
#include "core/log/HexText.h"
#include "core/log/KLogger.h"
#include "core/log/LogTime.h"
#include "core/log/LoggingValues.h"
#include "core/log/MSpecialFolderImplementation.h"
#include "platform/system/files.h"
#include "platform/system/folders.h"
#include "platform/system/utf8.h"

namespace hx {
namespace {

constexpr int64_t kMicroseconds = 1'000'000;  // in a second

// Seconds with six places.
std::wstring TimeText(int64_t microseconds) {
    const std::wstring places = std::to_wstring(std::abs(microseconds % kMicroseconds));
    std::wstring text = microseconds < 0 ? L"-" : L"";
    text.append(std::to_wstring(std::abs(microseconds / kMicroseconds))).append(L".");
    return text.append(6 - places.size(), L'0').append(places);
}

std::wstring NameText(const std::string& name) {
    return std::wstring(name.begin(), name.end());
}

// On one line, whatever it holds.
std::wstring NameText(const std::wstring& name) {
    std::wstring text = name;
    for (wchar_t& c : text) {
        if (c < L' ') c = L' ';
    }
    return text;
}

std::wstring NameText(uint64_t address) {
    return std::wstring(L"0x").append(HexText(address).View());
}

std::wstring NameText(uint32_t number) {
    return std::to_wstring(number);
}

template <class Table>
void AppendPart(std::wstring& text, std::wstring_view words, const Table& table, KNameNumber number) {
    if (number == kNoName) return;
    text += words;
    if (number == kUnknownName) {
        text += L"(unknown)";
    } else if (const auto* const name = table.Find(number)) {
        text += NameText(*name);
    } else {
        text += L"*OUT OF BOUNDS*";
    }
}

}  // namespace

std::wstring KLogger::ReferenceText() const {
    constexpr int64_t kClocksAgree = kMicroseconds;
    const int64_t wall_passed = m_clock.WallMicroseconds() - m_reference_wall;
    const int64_t steady_passed = m_clock.SteadyMicroseconds() - m_reference_steady;
    std::wstring text = L"%% Reference time: " + TimeText(m_reference_wall);
    if (std::abs(wall_passed - steady_passed) > kClocksAgree) return text += L" is wrong.";
    const int64_t milliseconds = m_reference_wall % kMicroseconds / 1000;
    return text.append(L" is approximately ")
        .append(std::to_wstring(milliseconds))
        .append(L"ms past ")
        .append(RecordTimeText(ToLocalTime(m_reference_wall)));
}

void KLogger::AppendText(std::wstring& text, const Event& event) const {
    const std::wstring_view name = KLoggerEventName(event.event);
    const bool is_timing_point = name == KLoggerEventName(KLoggerEvent::kTimingPoint);
    text.append(L"% ").append(name.empty() ? L"unknown event" : name);
    AppendPart(text, L" in_class ", m_classes, event.in_class);
    AppendPart(text, L" for_object ", m_objects, event.for_object);
    AppendPart(text, L" to state_", m_states, event.to_state);
    AppendPart(text, L" to ", m_modules, event.to);
    AppendPart(text, is_timing_point ? L" at_point " : L" at ", m_points, event.at);
    AppendPart(text, L" in_thread ", m_threads, event.in_thread);
    text.append(L"\t").append(TimeText(event.time - m_reference_steady)).append(L"\n");
}

std::wstring KLogger::DumpText() const {
    std::wstring text = ReferenceText();
    text.append(L"\n%% absolute reference timestamp: ")
        .append(TimeText(m_reference_steady))
        .append(L"\n%%\n");
    const std::lock_guard guard(m_mutex);
    const uint64_t oldest = m_count > kCapacity ? m_count - kCapacity : 0;
    for (uint64_t i = oldest; i < m_count; ++i) AppendText(text, m_events[i % kCapacity]);
    return text;
}

bool KLogger::Dump() const {
    return Dump(DefaultDumpFile());
}

bool KLogger::Dump(const std::filesystem::path& file) const {
    return !file.empty() && !WritePrivateFile(file, ToUtf8(DumpText()));
}

std::filesystem::path KLogger::DefaultDumpFile() {
    try {
        const std::filesystem::path folder =
            ToUtf8(SpecialFolders().GetLogFolder(LoggingValues::kCompanyKey));
        MakeFolder(folder);
        return folder / "DebugDump.log";
    } catch (const MException&) {
        return {};
    }
}

}  // namespace hx

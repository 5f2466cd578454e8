#include "simulator/recorder/RecorderSettings.h"

#include <algorithm>
#include <cstdio>

#include "core/keys/MRegistryKeyLib.h"
#include "platform/system/clock.h"
#include "platform/system/folders.h"
#include "platform/system/utf8.h"

namespace hx::simulator {
namespace {

namespace fs = std::filesystem;

enum RecorderKey : uint32_t {
    kEnable = 24,
    kEnableCustomName = 25,
    kActiveDataset = 26,
    kTargetFolder = 27,
    kDatasetPathName = 28,
    kReduceTrackingData = 29,
    kMaxTrackingCycles = 30,
};

constexpr int32_t kUsualMostCycles = 10;
constexpr wchar_t kUsualFolder[] = L"Orvel/Recordings";
constexpr char kExtension[] = ".hxtracking";

template <class T>
T Read(RecorderKey key, const T& fallback) {
    T value{};
    Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(key).Get(value, fallback);
    return value;
}

std::wstring ReadText(RecorderKey key) {
    return Read<std::wstring>(key, {});
}

fs::path PathOf(std::wstring_view text) {
    return fs::path(ToUtf8(text));
}

fs::path TargetFolder() {
    const std::wstring folder = ReadText(kTargetFolder);
    if (!folder.empty()) return PathOf(folder);
    std::wstring data;
    FindSpecialFolder(SpecialFolder::kAllUsersData, data);
    return PathOf(data) / PathOf(kUsualFolder);
}

// "2025-03-19_14-05-09.hxtracking"; with a number if there is one of this second.
fs::path NameByTime(const fs::path& folder) {
    const LocalTime now = ToLocalTime(SystemClock().WallMicroseconds());
    char name[80];
    std::snprintf(name, sizeof name, "%04d-%02d-%02d_%02d-%02d-%02d", now.year, now.month, now.day, now.hour,
                  now.minute, now.second);
    std::error_code error;
    fs::path path = folder / name;
    for (int next = 2; fs::exists(path += kExtension, error); ++next) {
        path = folder / name;
        path += '-' + std::to_string(next);
    }
    return path;
}

}  // namespace

RecorderSettings ReadRecorderSettings() {
    RecorderSettings settings;
    settings.enabled = Read(kEnable, false);
    if (!settings.enabled) return settings;
    const std::wstring name = Read(kEnableCustomName, false) ? ReadText(kDatasetPathName) : std::wstring();
    // An absolute name replaces the folder.
    settings.target = name.empty() ? NameByTime(TargetFolder()) : TargetFolder() / PathOf(name);
    settings.keep_every = static_cast<uint32_t>(std::max(Read<int32_t>(kReduceTrackingData, 0), 1));
    settings.most_cycles =
        static_cast<uint64_t>(std::max(Read<int32_t>(kMaxTrackingCycles, kUsualMostCycles), 0));
    return settings;
}

bool SetActiveDataset(const fs::path& recording) {
    const std::wstring text = FromUtf8(recording.native()).value_or(std::wstring());
    return Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(kActiveDataset).Set(text);
}

}  // namespace hx::simulator

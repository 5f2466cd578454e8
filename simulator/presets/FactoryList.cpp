#include "simulator/presets/FactoryList.h"

#include <algorithm>
#include <unordered_set>

namespace hx::simulator {
namespace {

constexpr wchar_t kCustomName[] = L"Custom";

}  // namespace

PresetList FactoryList(const ScannerModel& model) {
    PresetList list;
    list.presets.reserve(model.presets.size());
    for (const FactoryPreset& preset : model.presets) {
        list.presets.push_back({ProfileOf(model, preset), preset.display_name});
    }
    if (Contains(list, kDefaultProfileName)) list.selected = kDefaultProfileName;
    return list;
}

StoredPreset CustomOf(const ScannerModel& model) {
    StoredPreset custom;
    for (const FactoryPreset& preset : model.presets) {
        if (std::wstring_view(preset.name) == kDefaultProfileName) custom.profile = ProfileOf(model, preset);
    }
    custom.profile.ProfileName = kCustomName;
    custom.display_name = kCustomName;
    return custom;
}

void AddMissing(PresetList& list, std::vector<StoredPreset> presets) {
    std::unordered_set<std::wstring> names;
    for (const StoredPreset& preset : list.presets) names.insert(preset.profile.ProfileName);
    for (StoredPreset& preset : presets) {
        if (names.insert(preset.profile.ProfileName).second) list.presets.push_back(std::move(preset));
    }
}

bool Contains(const PresetList& list, std::wstring_view name) {
    return std::ranges::any_of(
        list.presets, [&](const StoredPreset& preset) { return preset.profile.ProfileName == name; });
}

}  // namespace hx::simulator

// Which presets belong to whom, by their names, and the list that a scanner is delivered with. For the preset
// store; any thread.
#pragma once

#include "settings/profile/ProfileNames.h"
#include "simulator/presets/PresetStore.h"

namespace hx::simulator {

inline bool IsHidden(std::wstring_view name) {
    return name.starts_with(L'@');
}
// The factory's, that is; the unsaved profile of an operator is not.
inline bool IsPredefined(std::wstring_view name) {
    return name.starts_with(L'$') && name != kCustomProfileName;
}
inline bool IsUsers(std::wstring_view name) {
    return !name.starts_with(L'$') && !IsHidden(name);
}

// With the default selected, if the model has one.
PresetList FactoryList(const ScannerModel& model);

// A user's preset with the values of the model's default.
StoredPreset CustomOf(const ScannerModel& model);

// Appends those whose names are not in the list yet.
void AddMissing(PresetList& list, std::vector<StoredPreset> presets);

bool Contains(const PresetList& list, std::wstring_view name);

}  // namespace hx::simulator

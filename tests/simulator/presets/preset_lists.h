// A scanner's model and lists of presets for the tests of the store, and for the process that they kill.
#pragma once

#include <string>

#include "simulator/presets/PresetStore.h"

namespace hx::simulator {

inline constexpr FactoryPreset kFactoryPresets[] = {
    {L"$DEFAULT", L"Standard", 40.0, 0.25, 1, true, true, 20, 5.0, 75.0, true},
    {L"@CHECK", L"", 10.0, 0.5, 1, false, false, 30, 1.0, 60.0, false},
    {L"$DARKMATTE", L"Dark & matte", 90.0, 1.0, 4, false, true, 15, 2.5, 80.0, false},
};

inline ScannerModel MakeModel(const wchar_t* name) {
    ScannerModel model{};
    model.name = name;
    model.longest_exposure_us = 1000;
    model.presets = kFactoryPresets;
    return model;
}

inline const ScannerModel kModel = MakeModel(L"HX");
inline const ScannerModel kOtherModel = MakeModel(L"T820");

inline StoredPreset MakePreset(const std::wstring& name) {
    StoredPreset preset;
    preset.profile.ProfileName = name;
    preset.display_name = L"<" + name + L">";
    return preset;
}

// The factory's presets and so many of a user's.
inline PresetList MakeList(const std::wstring& prefix, int users) {
    PresetList list;
    for (const FactoryPreset& preset : kFactoryPresets) {
        list.presets.push_back({ProfileOf(kModel, preset), preset.display_name});
    }
    for (int i = 0; i < users; ++i) list.presets.push_back(MakePreset(prefix + std::to_wstring(i)));
    list.selected = list.presets.back().profile.ProfileName;
    return list;
}

// What the killed process saves by turns; none of the one's user's presets is in the other.
inline const PresetList kKillLists[] = {MakeList(L"first", 20), MakeList(L"second", 35)};
inline constexpr wchar_t kKillOwner[] = L"Arm #1";

}  // namespace hx::simulator

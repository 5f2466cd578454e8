// The presets of one owner, as the scanner API keeps them, and presets as profile records and back.
// Operations throw a FailedCall.
#pragma once

#include "apps/hxctl/scanner/desk.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hxctl {

struct NamedPreset {
    hx::Bstr name;
    hx::Bstr display_name;
    hx::ComPtr<IDynamicSettingsPreset> preset;
};

struct StoredPresets {
    std::vector<NamedPreset> presets;
    hx::Bstr selected;

    // Null if there is none; exact.
    const NamedPreset* Find(std::wstring_view name) const;
};

// What the API signals once about them becomes a notice, and they are then read again.
StoredPresets LoadPresets(Desk& desk, ICalibrationHandle& handle, const hx::Bstr& owner);
void SavePresets(ICalibrationHandle& handle, const hx::Bstr& owner, const StoredPresets& presets);

hx::MLaserProfileSettings ProfileOf(const NamedPreset& preset);
void SetValues(IDynamicSettingsPreset& preset, const hx::MLaserProfileSettings& profile);

}  // namespace hxctl

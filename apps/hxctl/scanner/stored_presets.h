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

// An outcome that the API signals once is put into `notice`, and the presets are then read again.
StoredPresets LoadPresets(ICalibrationHandle& handle, const hx::Bstr& owner, std::string& notice);
void SavePresets(ICalibrationHandle& handle, const hx::Bstr& owner, const StoredPresets& presets);

hx::MLaserProfileSettings ProfileOf(const NamedPreset& preset);
void SetValues(IDynamicSettingsPreset& preset, const hx::MLaserProfileSettings& profile);

}  // namespace hxctl

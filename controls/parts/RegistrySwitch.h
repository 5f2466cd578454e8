// What a settings page shows only where the registry says so. For the page and its parts.
#pragma once

#include <cstdint>

#include "core/keys/MRegistryKeyLib.h"

namespace hx {

// Ids in the catalog of keys.
enum class RegistrySwitch : uint32_t {
    kOutputExposureInRows = 76,
    kAllow3dFilteringHXHH = 77,
    kAllowAutoDetectForHX = 78,
    kAllowHardwareDialogGainDropDown = 79,
    kShowFrequencyReductionSlider = 88,
    kAllowHWDlgFovModification = 89,
};

// Off unless it was set.
inline bool IsOn(RegistrySwitch of_registry) {
    bool on = false;
    const auto key_id = static_cast<uint32_t>(of_registry);
    Orvel::RegistryKeys::MRegistryKeyLib::GetRegistryKey(key_id).Get(on, false);
    return on;
}

}  // namespace hx

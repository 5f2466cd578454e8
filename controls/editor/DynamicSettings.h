// Moves the values of profiles between presets of the scanner API and the record that a page's controls show,
// and compares presets. Part of the dialog base of the settings pages. On the thread of the user interface.
//
// A failing call of a preset, and what a scanner cannot do, is raised as an MException
// "BaseDynamicSettingsDlg.Operation:Call".
#pragma once

#include <vector>

#include "controls/editor/DynamicSettingsData.h"
#include "hxapi/IDynamicSettingsPreset.h"

namespace hx {

class DynamicSettings {
public:
    // Hundredths of a percent of the longest exposure, at least 1 %. Both throw "ExposureTimeRangeNotSet" as
    // long as that is not known.
    int32_t ExposureFromMicroSecondsToPercentage(double exposure_us) const;
    // Never 0.
    double ExposureFromPercentageToMicroSeconds(int32_t hundredths_of_percent) const;

    // Fills the record; values between its steps and beyond its bounds are taken as the nearest. A gain that
    // the scanner lacks is not taken ("GainNotSupported"). A failure leaves the values before the failing one
    // taken.
    void BaseSettingsToData(IDynamicSettingsPreset& preset);
    // The first failure leaves the later values unwritten.
    void BaseDataToSettings(IDynamicSettingsPreset& preset) const;
    // The values, and not the name. Nothing is written unless all could be read.
    void CopySettings(IDynamicSettingsPreset& source, IDynamicSettingsPreset& destination) const;
    // Exposures count as the same within half a percent of the longest one: those of a scanner drift.
    bool SettingsAreDifferent(IDynamicSettingsPreset& baseline, IDynamicSettingsPreset& edited) const;

    DynamicSettingsData& Data() { return m_data; }
    const DynamicSettingsData& Data() const { return m_data; }
    // Those that the connected scanner has; if there are none, any gain is taken.
    std::vector<uint32_t>& SupportedGains() { return m_supported_gains; }
    const std::vector<uint32_t>& SupportedGains() const { return m_supported_gains; }

private:
    DynamicSettingsData m_data;
    std::vector<uint32_t> m_supported_gains;
};

}  // namespace hx

// One row for each value of a profile: how it is read from a preset, how written, what it is in the record of
// a page, and when two of them differ. All operations on profiles walk these rows.
#pragma once

#include <array>
#include <cmath>
#include <string>

#include "controls/editor/DynamicSettingsData.h"
#include "hxapi/IDynamicSettingsPreset.h"

namespace hx {

// Every kind of value fits into a double without loss.
struct PresetField {
    const wchar_t* getter;
    const wchar_t* setter;
    HRESULT (*get)(IDynamicSettingsPreset& preset, double& value);
    HRESULT (*set)(IDynamicSettingsPreset& preset, double value);
    // Null where the scanner has a say: exposure and gain.
    void (*take)(DynamicSettingsData& data, double value);
    double (*give)(const DynamicSettingsData& data);
    double tolerance;                  // up to which two are the same
    bool error_names_the_side = true;  // of a comparison
};

inline constexpr size_t kPresetFieldCount = 9;
inline constexpr size_t kExposureField = 2;
inline constexpr size_t kGainField = 3;
// In the order in which they are read and compared.
extern const std::array<PresetField, kPresetFieldCount> kPresetFields;
// In which they are written: places in kPresetFields.
inline constexpr std::array<size_t, kPresetFieldCount> kPresetWriteOrder = {0, 2, 3, 1, 4, 5, 6, 7, 8};

// Half away from zero.
inline double Rounded(double value) {
    return std::copysign(std::floor(std::fabs(value) + 0.5), value);
}

// The nearest whole number within the bounds; the lower one for what is no number.
inline int32_t RoundedWithin(double value, int32_t lowest, int32_t highest) {
    const double rounded = Rounded(value);
    if (!(rounded > lowest)) return lowest;
    return rounded >= highest ? highest : static_cast<int32_t>(rounded);
}

}  // namespace hx

#include "controls/editor/DynamicSettings.h"

#include <algorithm>
#include <string>

#include "controls/api/ApiOperation.h"
#include "controls/editor/PresetField.h"

namespace hx {
namespace {

constexpr char kClass[] = "BaseDynamicSettingsDlg";
// Exposures are the same within this part of the longest one.
constexpr double kExposureSteps = 200.0;

double Value(const ApiOperation& operation, int32_t line, const PresetField& field,
             IDynamicSettingsPreset& preset, const wchar_t* side = L"") {
    double value = 0;
    const HRESULT result = field.get(preset, value);
    if (FAILED(result)) operation.Fail(line, field.getter + std::wstring(side), result);
    return value;
}

void SetValue(const ApiOperation& operation, int32_t line, const PresetField& field,
              IDynamicSettingsPreset& preset, double value) {
    operation.Check(line, field.setter, field.set(preset, value));
}

}  // namespace

int32_t DynamicSettings::ExposureFromMicroSecondsToPercentage(double exposure_us) const {
    static MErrorLocation location(kClass, "ExposureFromMicroSecondsToPercentage");
    if (m_data.exposure_range_max == 0) ApiOperation(location, this).Fail(38, L"ExposureTimeRangeNotSet");
    return RoundedWithin(exposure_us / m_data.exposure_range_max * kMostExposure, kLeastExposure,
                         kMostExposure);
}

double DynamicSettings::ExposureFromPercentageToMicroSeconds(int32_t hundredths_of_percent) const {
    static MErrorLocation location(kClass, "ExposureFromPercentageToMicroSeconds");
    if (m_data.exposure_range_max == 0) ApiOperation(location, this).Fail(45, L"ExposureTimeRangeNotSet");
    const double exposure_us =
        hundredths_of_percent / static_cast<double>(kMostExposure) * m_data.exposure_range_max;
    return exposure_us == 0.0 ? 1.0 : exposure_us;
}

void DynamicSettings::BaseSettingsToData(IDynamicSettingsPreset& preset) {
    static MErrorLocation location(kClass, "BaseSettingsToData");
    const ApiOperation operation(location, this);
    for (size_t i = 0; i < kPresetFieldCount; ++i) {
        const double value = Value(operation, 55, kPresetFields[i], preset);
        if (i == kExposureField) {
            m_data.exposure = ExposureFromMicroSecondsToPercentage(value);
        } else if (i == kGainField) {
            const auto gain = static_cast<uint32_t>(value);
            if (!m_supported_gains.empty() &&
                std::ranges::find(m_supported_gains, gain) == m_supported_gains.end()) {
                operation.Fail(62, L"GainNotSupported");
            }
            m_data.gain = gain;
        } else {
            kPresetFields[i].take(m_data, value);
        }
    }
}

void DynamicSettings::BaseDataToSettings(IDynamicSettingsPreset& preset) const {
    static MErrorLocation location(kClass, "BaseDataToSettings");
    const ApiOperation operation(location, this);
    for (const size_t i : kPresetWriteOrder) {
        const double value = i == kExposureField ? ExposureFromPercentageToMicroSeconds(m_data.exposure)
                                                 : kPresetFields[i].give(m_data);
        SetValue(operation, 77, kPresetFields[i], preset, value);
    }
}

void DynamicSettings::CopySettings(IDynamicSettingsPreset& source,
                                   IDynamicSettingsPreset& destination) const {
    static MErrorLocation location(kClass, "CopySettings");
    const ApiOperation operation(location, this);
    std::array<double, kPresetFieldCount> values;
    for (size_t i = 0; i < kPresetFieldCount; ++i) {
        values[i] = Value(operation, 87, kPresetFields[i], source);
    }
    for (const size_t i : kPresetWriteOrder) {
        SetValue(operation, 90, kPresetFields[i], destination, values[i]);
    }
}

bool DynamicSettings::SettingsAreDifferent(IDynamicSettingsPreset& baseline,
                                           IDynamicSettingsPreset& edited) const {
    static MErrorLocation location(kClass, "SettingsAreDifferent");
    const ApiOperation operation(location, this);
    for (size_t i = 0; i < kPresetFieldCount; ++i) {
        const PresetField& field = kPresetFields[i];
        const bool sided = field.error_names_the_side;
        const double stored = Value(operation, 101, field, baseline, sided ? L"A" : L"");
        const double now = Value(operation, 102, field, edited, sided ? L"B" : L"");
        const double tolerance =
            i == kExposureField ? m_data.exposure_range_max / kExposureSteps : field.tolerance;
        if (std::fabs(stored - now) > tolerance) return true;
    }
    return false;
}

}  // namespace hx

// The scanners that can be simulated: one row each, from which properties, presets, limits and the pictures
// that they take follow. Any thread.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "settings/profile/MLaserProfileSettings.h"

namespace hx::simulator {

// A preset that a scanner is delivered with. The name begins with "$", or with "@" if operators do not see
// it.
struct FactoryPreset {
    const wchar_t* name;
    const wchar_t* display_name;
    double laser_power_percent;
    double exposure_portion;  // of the model's longest exposure
    uint32_t gain;
    bool automatic_laser_power;
    bool edge_filter_3d;
    uint32_t signal_threshold_percent;
    double edge_filter;
    double max_inclination_degrees;
    bool reflection_filter;
};

struct ScannerModel {
    const wchar_t* name;  // by which a person chooses it
    const wchar_t* driver_internal_name;
    const wchar_t* driver_display_name;
    const wchar_t* device_internal_name;
    const wchar_t* device_display_name;
    const wchar_t* serial_number;
    uint32_t longest_exposure_us;
    double full_frame_rate_hz;  // of the whole field of view at full speed
    uint32_t columns;           // of the imager
    uint32_t rows;
    std::span<const uint32_t> gains;
    int32_t fov_managed;  // as FovManagementConfig tells it
    bool reduces_frequency;
    bool has_fov_indicator;
    const wchar_t* mount_rotation;  // "30deg", ...; null if the mount does not rotate
    uint32_t plane_count;
    std::span<const FactoryPreset> presets;
};

std::span<const ScannerModel> ScannerModels();
// By its name, without case; null if there is none.
const ScannerModel* FindScannerModel(std::wstring_view name);

// The values of a preset as this model has them.
MLaserProfileSettings ProfileOf(const ScannerModel& model, const FactoryPreset& preset);

// The properties document (root "Properties") of the model's driver and device.
std::wstring PropertiesOf(const ScannerModel& model);

}  // namespace hx::simulator

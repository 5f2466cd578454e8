// What of a profile and of the global settings makes the picture: plain values, which a thread copies without
// a heap. Any thread.
#pragma once

#include "hxapi/MGlobalScanningSettings.h"
#include "simulator/models/ScannerModel.h"

namespace hx::simulator {

struct OpticalSettings {
    double laser_power_percent = 0;
    double exposure_us = 0;
    double gain = 1;
    double signal_threshold_percent = 0;
    double max_inclination_degrees = 90;
    double edge_filter = 0;
    bool edge_filter_3d = false;
    bool reflection_filter = false;
    bool automatic_laser_power = false;
    MGlobalScanningSettings global;
};

OpticalSettings OpticalSettingsOf(const MLaserProfileSettings& profile,
                                  const MGlobalScanningSettings& global);

// Whether the model has such values.
bool Has(const ScannerModel& model, const MLaserProfileSettings& profile);
bool Has(const ScannerModel& model, const MGlobalScanningSettings& global);

}  // namespace hx::simulator

#include "simulator/scanner/OpticalSettings.h"

#include <algorithm>

namespace hx::simulator {
namespace {

// What is no number lies nowhere.
constexpr bool IsWithin(double value, double low, double high) {
    return value >= low && value <= high;
}

}  // namespace

OpticalSettings OpticalSettingsOf(const MLaserProfileSettings& profile,
                                  const MGlobalScanningSettings& global) {
    OpticalSettings settings;
    settings.laser_power_percent = profile.LaserPower;
    settings.exposure_us = profile.ExposureTime;
    settings.gain = profile.Gain;
    settings.signal_threshold_percent = profile.SignalThreshold;
    settings.max_inclination_degrees = profile.MaxInclination;
    settings.edge_filter = profile.EdgeFilter;
    settings.edge_filter_3d = profile.EdgeFilter3DEnabled;
    settings.reflection_filter = profile.RFEnabled;
    settings.automatic_laser_power = profile.DLPCEnabled;
    settings.global = global;
    return settings;
}

bool Has(const ScannerModel& model, const MLaserProfileSettings& profile) {
    return IsWithin(profile.LaserPower, 0, 100) && profile.ExposureTime > 0 &&
           IsWithin(profile.ExposureTime, 0, model.longest_exposure_us) && profile.SignalThreshold <= 100 &&
           IsWithin(profile.MaxInclination, 0, 90) && IsWithin(profile.EdgeFilter, 0, 100) &&
           std::ranges::count(model.gains, profile.Gain) != 0;
}

bool Has(const ScannerModel& model, const MGlobalScanningSettings& global) {
    // A field of view that pages do not offer can be had all the same: a service engineer may ask for it. An
    // indicator that is not there stays dark.
    return IsWithin(global.HorizontalFov, 0, 1) && IsWithin(global.VerticalFov, 0, 3) &&
           IsWithin(global.FovIndicator, 0, 100) &&
           IsWithin(global.FrequencySelection, 0, model.reduces_frequency ? 3 : 0);
}

}  // namespace hx::simulator

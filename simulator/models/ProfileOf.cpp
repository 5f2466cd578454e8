#include "simulator/models/ScannerModel.h"

namespace hx::simulator {

MLaserProfileSettings ProfileOf(const ScannerModel& model, const FactoryPreset& preset) {
    MLaserProfileSettings profile;
    profile.ProfileName = preset.name;
    profile.SetLaserPowerPercentage(preset.laser_power_percent);
    profile.ExposureTime = preset.exposure_portion * model.longest_exposure_us;
    profile.Gain = preset.gain;
    profile.DLPCEnabled = preset.automatic_laser_power;
    profile.EdgeFilter3DEnabled = preset.edge_filter_3d;
    profile.SignalThreshold = static_cast<uint16_t>(preset.signal_threshold_percent);
    profile.EdgeFilter = preset.edge_filter;
    profile.MaxInclination = preset.max_inclination_degrees;
    profile.RFEnabled = preset.reflection_filter;
    return profile;
}

}  // namespace hx::simulator

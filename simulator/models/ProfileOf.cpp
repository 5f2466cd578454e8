#include "simulator/models/ScannerModel.h"

namespace hx::simulator {

MLaserProfileSettings ProfileOf(const ScannerModel& model, const FactoryPreset& preset) {
    MLaserProfileSettings profile;
    profile.ProfileName = preset.name;
    profile.LaserPower = preset.laser_power_percent;
    profile.ExposureTime = preset.exposure_portion * model.longest_exposure_us;
    profile.SignalThreshold = static_cast<uint16_t>(preset.signal_threshold_percent);
    profile.MaxInclination = preset.max_inclination_degrees;
    profile.EdgeFilter3DEnabled = preset.edge_filter_3d;
    profile.EdgeFilter = preset.edge_filter;
    profile.DLPCEnabled = preset.automatic_laser_power;
    profile.RFEnabled = preset.reflection_filter;
    profile.Gain = preset.gain;
    return profile;
}

}  // namespace hx::simulator

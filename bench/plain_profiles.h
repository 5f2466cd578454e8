// The fields of MLaserProfileSettings, and many of them in one document.
#pragma once

#include <cstdint>
#include <vector>

#include "bench/plain_record.h"
#include "bench/tag.h"

namespace hx::bench {

template <class String>
struct PlainProfile : PlainRecord {
    uint32_t version = 6;
    String profile_name;
    uint32_t localisation_resource_id = 0;
    double laser_power = 0;
    double exposure_time = 0;
    uint16_t signal_threshold = 0;
    double max_inclination = 0;
    bool edge_filter_3d_enabled = false;
    double edge_filter = 0;
    bool dlpc_enabled = false;
    bool rf_enabled = false;
    uint16_t gain = 0;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Version"_tag, self.version);
        filer.Value("ProfileName"_tag, self.profile_name);
        filer.Value("LocalisationResourceID"_tag, self.localisation_resource_id);
        filer.Value("LaserPower"_tag, self.laser_power);
        filer.Value("ExposureTime"_tag, self.exposure_time);
        filer.Value("SignalThreshold"_tag, self.signal_threshold);
        filer.Value("MaxInclination"_tag, self.max_inclination);
        filer.Value("EdgeFilter3DEnabled"_tag, self.edge_filter_3d_enabled);
        filer.Value("EdgeFilter"_tag, self.edge_filter);
        filer.Value("DLPCEnabled"_tag, self.dlpc_enabled);
        filer.Value("RFEnabled"_tag, self.rf_enabled);
        filer.Value("Gain"_tag, self.gain);
    }

    bool operator==(const PlainProfile&) const = default;
};

template <class String>
struct PlainProfiles : PlainRecord {
    using Text = String;

    std::vector<PlainProfile<String>> profiles;

    template <class Filer, class Self>
    static void Exchange(Filer& filer, Self& self) {
        filer.Value("Profile"_tag, self.profiles);
    }

    bool operator==(const PlainProfiles&) const = default;
};

}  // namespace hx::bench

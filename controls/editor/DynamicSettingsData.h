// The values of a profile as the controls of a settings page show them. A page keeps one such record; it is
// filled from a preset and written into one by DynamicSettings.
#pragma once

#include <cstdint>

#include "platform/com/types.h"

namespace hx {

inline constexpr int32_t kLeastLaserPower = 1;
inline constexpr int32_t kMostLaserPower = 100;
inline constexpr int32_t kLeastExposure = 100;
inline constexpr int32_t kMostExposure = 10000;

struct DynamicSettingsData {
    int32_t laser_power = kLeastLaserPower;  // percent
    int32_t exposure = kLeastExposure;       // of the longest one [0.01 %]
    bool edit_notifications_enabled = true;  // false while the page itself writes into an edit
    uint32_t gain = 1;                       // of the imager, one that the scanner has
    int32_t edge_filter = 0;                 // 0 to 100
    int32_t max_inclination = 0;             // degrees, 0 to 90
    uint32_t signal_threshold = 0;           // percent, 0 to 100
    BOOL automatic_laser_power = FALSE;      // the scanner controls it ("DLPC")
    BOOL edge_filter_3d = FALSE;
    BOOL reflection_filter = TRUE;    // "RF"
    uint32_t exposure_range_max = 0;  // the scanner's longest exposure [us]; 0 while it is not known
};

}  // namespace hx

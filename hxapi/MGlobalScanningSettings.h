// How a scanner scans whatever profile is active: field of view, speed, mode. Filled and read by pages, and
// by the scanner API during a call; a plain value.
#pragma once

#include <cstdint>

struct MGlobalScanningSettings {
    int32_t HorizontalFov = 0;       // width of the field of view: 0 whole, 1 half
    int32_t VerticalFov = 0;         // its depth: 0 whole, 1 the near half, 2 half, 3 the far half
    int32_t FovIndicator = 0;        // brightness of the indicator light at the field of view [%]
    int32_t ScanningMode = 0;        // the scanner's own; to be given back as it was got
    int32_t FrequencySelection = 0;  // measuring speed: 0 full, 1 three quarters, 2 half, 3 a quarter
};

// Which parts of the field of view a scanner lets be chosen.
struct FovManagementConfig {
    // Negative: it does not say. 0: none, the field of view is not managed. 1 width, 2 depth, 3 both.
    int32_t Managed = 0;
};

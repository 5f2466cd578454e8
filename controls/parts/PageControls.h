// The numbers of the controls that the dialogs of both settings pages have.
#pragma once

#include <cstdint>

namespace hx {

enum PageControl : uint32_t {
    kPreviewControl = 106,
    kWidthFullLabel = 113,
    kWidthHalfLabel = 114,
    kHeightFullLabel = 115,
    kHeightHalfLabel = 116,
    kExposureSlider = 204,
    kExposureEdit = 206,
    kLaserPowerSlider = 207,
    kLaserPowerEdit = 210,
    kProfilesGroup = 215,
    kFieldOfViewGroup = 216,
    kAutomaticBox = 224,
    kEdgeFilter3DBox = 225,
    kFrameRateLabel = 228,
    kReflectionFilterBox = 253,
    kSettingsGroup = 260,
    kDetectButton = 269,
    kHeightSlider = 276,
    kWidthSlider = 277,
    kExposureRowsLabel = 285,
    kGainList = 286,
    kGainLabel = 287,
};

}  // namespace hx

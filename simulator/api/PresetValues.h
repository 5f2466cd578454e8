// The values of presets as they cross the interface: which ones there are, and how those of anybody's preset
// are read. Any thread.
#pragma once

#include <limits>

#include "hxapi/IDynamicSettingsPreset.h"
#include "platform/com/comptr.h"
#include "settings/profile/MLaserProfileSettings.h"

namespace hx::simulator {

// Not below `least` nor above `most`; what is no number is in no range.
struct ValueRange {
    double least;
    double most;

    bool Has(double value) const { return value >= least && value <= most; }
};

inline constexpr ValueRange kPercentRange{0, 100};
inline constexpr ValueRange kInclinationRange_degrees{0, 90};
inline constexpr ValueRange kGainRange{1, 65535};
// Above 0, and a number.
inline constexpr ValueRange kExposureRange_us{std::numeric_limits<double>::min(),
                                              std::numeric_limits<double>::max()};

// Reads a preset, of this library or another, with its name: S_OK; what a getter fails with; E_INVALIDARG for
// an object that is no preset and for values that a preset cannot have. Throws std::bad_alloc.
HRESULT ReadPreset(const ComPtr<IUnknown>& object, MLaserProfileSettings& profile);

}  // namespace hx::simulator

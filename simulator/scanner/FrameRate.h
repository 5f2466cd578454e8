// How fast a model takes laser lines. Any thread.
#pragma once

#include <cstdint>

#include "hxapi/MGlobalScanningSettings.h"
#include "simulator/models/ScannerModel.h"

namespace hx::simulator {

// Half the depth has half the rows to read, half the width a few columns less; the speed that is chosen comes
// off that, and an exposure has to be over before the next begins.
double FrameRateHz(const ScannerModel& model, const MGlobalScanningSettings& global, double exposure_us);

// How many rows the shutter passes meanwhile.
int32_t RowsOf(const ScannerModel& model, double exposure_us);

}  // namespace hx::simulator

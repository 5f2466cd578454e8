// Looks for the exposure or the laser power with the best signal, by taking pictures. Any thread; they take
// some milliseconds.
#pragma once

#include <optional>

#include "simulator/scanner/Picture.h"

namespace hx::simulator {

// How good the signal is: 1 if every column has a point of the best signal; less for points that are weak or
// missing, much less for saturated ones. Nothing if there is no point at all.
std::optional<double> SignalScore(PictureMaker& maker, const ScannerModel& model, const Surface& surface,
                                  uint64_t cycle, const OpticalSettings& settings);

// At the other settings as they are; nothing if nothing is seen at any value. Whole microseconds.
std::optional<double> BestExposure(const ScannerModel& model, const Surface& surface, uint64_t cycle,
                                   const OpticalSettings& settings);
std::optional<double> BestLaserPower(const ScannerModel& model, const Surface& surface, uint64_t cycle,
                                     const OpticalSettings& settings);

}  // namespace hx::simulator

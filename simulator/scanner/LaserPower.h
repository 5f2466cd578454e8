// The automatic control of the laser power: from one picture to the power of the next. Any thread.
#pragma once

#include "simulator/scanner/Picture.h"

namespace hx::simulator {

inline constexpr double kLowestLaserPower_percent = 1;
inline constexpr double kHighestLaserPower_percent = 100;
// The signal that measures best, of the imager's range.
inline constexpr double kBestSignal = 0.7;

double NextLaserPower(double percent, const Picture& picture);

}  // namespace hx::simulator

#include "simulator/scanner/LaserPower.h"

#include <algorithm>

namespace hx::simulator {
namespace {

// In one step at most, so that a bright spot that passes does not make the line flicker.
constexpr double kStep = 1.25;
constexpr uint32_t kSaturatedPart = 50;  // one in so many may be

double FactorFor(const Picture& picture) {
    if (picture.points.empty()) return kStep;
    const auto count = static_cast<uint32_t>(picture.points.size());
    if (picture.saturated_count > count / kSaturatedPart) return 1 / kStep;
    double sum = 0;
    for (const TrackingPoint& point : picture.points) sum += point.signal;
    return kBestSignal * kTrackingSignalSaturated * count / std::max(sum, 1.0);
}

}  // namespace

double NextLaserPower(double percent, const Picture& picture) {
    const double factor = std::clamp(FactorFor(picture), 1 / kStep, kStep);
    return std::clamp(percent * factor, kLowestLaserPower_percent, kHighestLaserPower_percent);
}

}  // namespace hx::simulator

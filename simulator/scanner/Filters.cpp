#include "simulator/scanner/Filters.h"

#include <algorithm>
#include <cmath>

namespace hx::simulator {
namespace {

constexpr double kMirroredPart = 0.35;  // of the light that a polished surface sends on
constexpr double kFalseHeight = 0.18;   // of the depth; longer ways look nearer
constexpr size_t kShiftParts = 5;       // of the columns, by which a reflection lands aside
constexpr size_t k3DEdgeColumns = 3;
constexpr double kEdgeColumnsPerPercent = 0.2;

size_t EdgeColumns(const OpticalSettings& settings) {
    const auto by_value = static_cast<size_t>(std::lround(settings.edge_filter * kEdgeColumnsPerPercent));
    return by_value + (settings.edge_filter_3d ? k3DEdgeColumns : 0);
}

}  // namespace

void AddReflections(const MeasurementArea& area, std::span<Sight> sights, std::span<Sight> spare) {
    std::ranges::copy(sights, spare.begin());
    const size_t shift = sights.size() / kShiftParts;
    for (size_t i = 0; i < sights.size(); ++i) {
        const Sight& source = spare[i];
        const double signal = kMirroredPart * source.mirrored;
        if (!source.is_there || signal <= 0) continue;
        // Towards the middle, where there is more to hit.
        Sight& hit = sights[i < sights.size() / 2 ? i + shift : i - shift];
        if (hit.is_there && hit.signal >= signal) continue;
        hit = source;
        hit.at_jump = false;
        hit.mirrored = 0;
        hit.signal = signal;
        hit.y_mm = std::max(source.y_mm - kFalseHeight * area.Depth(), area.near_mm);
    }
}

void DropSteep(const OpticalSettings& settings, std::span<Sight> sights) {
    for (Sight& sight : sights) {
        if (sight.inclination_degrees > settings.max_inclination_degrees) sight.is_there = false;
    }
}

void DropEdges(const OpticalSettings& settings, std::span<Sight> sights) {
    const size_t columns = EdgeColumns(settings);
    if (columns == 0) return;
    // Behind the last jump that was passed, then the same from the other end.
    const auto drop = [columns](auto first, auto last) {
        for (size_t left = 0; first != last; ++first) {
            if (first->at_jump) left = columns;
            if (left == 0) continue;
            first->is_there = false;
            --left;
        }
    };
    drop(sights.begin(), sights.end());
    drop(sights.rbegin(), sights.rend());
}

}  // namespace hx::simulator

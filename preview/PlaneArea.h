// Where a laser plane measures in the present field of view: a polygon in the plane's own millimetres. Copied
// from what the scanner tells on its thread, used on the thread of the user interface.
#pragma once

#include <cstdint>
#include <vector>

#include "hxapi/ITrackingCycleObserver.h"

namespace hx::preview {

// More planes or corners than any scanner has are left out, so that what is kept is bounded.
inline constexpr uint32_t kMostPlanes = 16;
inline constexpr uint32_t kMostCorners = 256;
// Whoever measures in larger numbers than these has made a mistake.
inline constexpr double kFarthest_mm = 1e9;

struct PlanePoint {
    double x_mm = 0;
    double y_mm = 0;

    bool operator==(const PlanePoint&) const = default;
};

struct PlaneArea {
    int32_t plane_number = 0;
    std::vector<PlanePoint> corners_mm;

    // False for what is no number.
    bool Contains(double x_mm, double y_mm) const;
    bool operator==(const PlaneArea&) const = default;
};

// Those of at least three corners, all of which are numbers within reach; of several for one plane the last.
// Throws std::bad_alloc.
std::vector<PlaneArea> CopyAreas(const TrackingArea* areas, uint32_t area_count);

}  // namespace hx::preview

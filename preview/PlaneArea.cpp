#include "preview/PlaneArea.h"

#include <algorithm>
#include <cmath>

namespace hx::preview {
namespace {

bool IsWithinReach(const PlanePoint& point) {
    return std::abs(point.x_mm) <= kFarthest_mm && std::abs(point.y_mm) <= kFarthest_mm;
}

}  // namespace

bool PlaneArea::Contains(double x_mm, double y_mm) const {
    if (!IsWithinReach({x_mm, y_mm}) || corners_mm.empty()) return false;
    bool inside = false;
    const PlanePoint* before = &corners_mm.back();
    for (const PlanePoint& corner : corners_mm) {
        const bool crosses = (corner.y_mm > y_mm) != (before->y_mm > y_mm);
        if (crosses) {
            const double along = (y_mm - corner.y_mm) / (before->y_mm - corner.y_mm);
            if (x_mm < corner.x_mm + along * (before->x_mm - corner.x_mm)) inside = !inside;
        }
        before = &corner;
    }
    return inside;
}

std::vector<PlaneArea> CopyAreas(const TrackingArea* areas, uint32_t area_count) {
    std::vector<PlaneArea> copies;
    if (areas == nullptr) return copies;
    for (uint32_t i = 0; i < std::min(area_count, kMostPlanes); ++i) {
        const TrackingArea& area = areas[i];
        if (area.corners_mm == nullptr || area.corner_count < 3 || area.corner_count > kMostCorners) continue;
        PlaneArea copy{area.plane_number, {}};
        for (size_t corner = 0; corner < area.corner_count; ++corner) {
            copy.corners_mm.push_back({area.corners_mm[2 * corner], area.corners_mm[2 * corner + 1]});
        }
        if (!std::ranges::all_of(copy.corners_mm, IsWithinReach)) continue;
        std::erase_if(copies,
                      [&](const PlaneArea& other) { return other.plane_number == copy.plane_number; });
        copies.push_back(std::move(copy));
    }
    return copies;
}

}  // namespace hx::preview

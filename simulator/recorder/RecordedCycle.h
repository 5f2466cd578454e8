// A tracking cycle with all that belongs to it, in memory of its own, which is used again for the next one.
#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "hxapi/ITrackingCycleObserver.h"

namespace hx::simulator {

struct RecordedCycle {
    struct Area {
        int32_t plane_number = 0;
        std::vector<double> corners_mm;
        friend bool operator==(const Area&, const Area&) = default;
    };

    // Where from, and what the scanner's areas were by then.
    void Take(std::wstring_view its_device, std::span<const TrackingArea> its_areas,
              const TrackingCycle& its_cycle) {
        device = its_device;
        areas.resize(its_areas.size());
        for (size_t i = 0; i < areas.size(); ++i) {
            areas[i].plane_number = its_areas[i].plane_number;
            areas[i].corners_mm.assign(its_areas[i].corners_mm,
                                       its_areas[i].corners_mm + size_t{2} * its_areas[i].corner_count);
        }
        cycle = its_cycle;
        points.assign(its_cycle.points, its_cycle.points + its_cycle.point_count);
        cycle.points = nullptr;  // they are here now
    }

    std::wstring_view device;  // a name that lives for ever
    std::vector<Area> areas;
    TrackingCycle cycle{};
    std::vector<TrackingPoint> points;
};

}  // namespace hx::simulator

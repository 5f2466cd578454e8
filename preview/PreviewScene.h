// What there is to be seen at the moment: the areas, the points within them, and the hint that follows from
// their signals. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <vector>

#include "preview/NewestCycles.h"
#include "preview/SignalHint.h"

namespace hx::preview {

struct VisiblePoint {
    float x_mm = 0;
    float y_mm = 0;
    uint16_t signal = 0;  // 0 to kTrackingSignalSaturated
};

class PreviewScene {
public:
    // Takes what is new; false if nothing is. Throws std::bad_alloc; the next call makes up for it.
    bool Update(NewestCycles& cycles);

    // Empty while there is nothing to be seen.
    const std::vector<PlaneArea>& Areas() const { return m_areas; }
    const std::vector<VisiblePoint>& Points() const { return m_points; }
    Hint CurrentHint() const { return m_hint.Current(); }
    // Another one with each change.
    uint64_t Version() const { return m_version; }
    uint64_t AreasVersion() const { return m_areas_version; }

private:
    void Clip();
    void Add(const PlaneLine& line);

    TakenCycles m_taken;
    bool m_behind = false;  // what was taken is not shown yet
    std::vector<PlaneArea> m_areas;
    std::vector<VisiblePoint> m_points;
    SignalCounts m_counts;
    SignalHint m_hint;
    uint64_t m_version = 0;
    uint64_t m_areas_version = 0;
};

}  // namespace hx::preview

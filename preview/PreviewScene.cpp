#include "preview/PreviewScene.h"

#include <algorithm>

namespace hx::preview {

bool PreviewScene::Update(NewestCycles& cycles) {
    if (cycles.Take(m_taken)) m_behind = true;
    if (!m_behind) return false;
    const std::vector<PlaneArea> nothing;
    const std::vector<PlaneArea>& areas = m_taken.blank ? nothing : m_taken.areas;
    if (areas != m_areas) {
        ++m_areas_version;
        m_areas = areas;
    }
    ++m_version;
    Clip();
    if (m_taken.blank || m_taken.lines.empty()) {
        m_hint.Reset();
    } else {
        m_hint.Next(m_counts);
    }
    m_behind = false;
    return true;
}

void PreviewScene::Clip() {
    m_points.clear();
    m_counts = {};
    if (m_taken.blank) return;
    for (const PlaneLine& line : m_taken.lines) Add(line);
}

void PreviewScene::Add(const PlaneLine& line) {
    for (const PlaneArea& area : m_areas) {
        if (area.plane_number != line.plane_number) continue;
        for (const TrackingPoint& point : line.points) {
            if (!area.Contains(point.x_mm, point.y_mm)) continue;
            const uint16_t signal = std::min(point.signal, kTrackingSignalSaturated);
            m_points.push_back({point.x_mm, point.y_mm, signal});
            m_counts.Add(signal);
        }
    }
}

}  // namespace hx::preview

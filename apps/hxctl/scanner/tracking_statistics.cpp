#include "apps/hxctl/scanner/tracking_statistics.h"

#include <algorithm>

namespace hxctl {

HRESULT TrackingStatistics::OnTrackingAreas(const TrackingArea*, uint32_t) {
    return S_OK;
}

HRESULT TrackingStatistics::OnTrackingCycle(const TrackingCycle* cycle) {
    if (cycle == nullptr) return E_POINTER;
    const std::scoped_lock lock(m_mutex);
    // Numbers that begin anew are those of a scanner that was initialised again.
    if (m_totals.cycles != 0 && cycle->number > m_last_number) {
        const uint64_t steps = cycle->number - m_last_number;
        m_totals.lost += steps - 1;
        m_totals.intervals += steps;
        m_totals.time_us += cycle->time_us - m_last_us;
    }
    m_last_number = cycle->number;
    m_last_us = cycle->time_us;
    const uint64_t count = cycle->point_count;
    m_totals.fewest_points = m_totals.cycles == 0 ? count : std::min(m_totals.fewest_points, count);
    m_totals.most_points = std::max(m_totals.most_points, count);
    ++m_totals.cycles;
    m_totals.points += count;
    m_totals.saturated += cycle->saturated_count;
    m_totals.columns += cycle->column_count;
    for (uint32_t i = 0; i < cycle->point_count; ++i) m_totals.signal += cycle->points[i].signal;
    return S_OK;
}

TrackingTotals TrackingStatistics::Totals() const {
    const std::scoped_lock lock(m_mutex);
    return m_totals;
}

}  // namespace hxctl

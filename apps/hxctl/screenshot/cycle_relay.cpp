#include "apps/hxctl/screenshot/cycle_relay.h"

namespace hxctl {

HRESULT CycleRelay::OnTrackingAreas(const TrackingArea* areas, uint32_t area_count) {
    return m_next->OnTrackingAreas(areas, area_count);
}

HRESULT CycleRelay::OnTrackingCycle(const TrackingCycle* cycle) {
    const HRESULT result = m_next->OnTrackingCycle(cycle);
    ++m_cycles;
    return result;
}

}  // namespace hxctl

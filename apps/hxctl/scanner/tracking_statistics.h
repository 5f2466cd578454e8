// An observer that counts what a scanner sees. Filled on the scanner's thread, read on any.
#pragma once

#include <mutex>

#include "hxapi/ITrackingCycleObserver.h"
#include "platform/com/implements.h"

namespace hxctl {

struct TrackingTotals {
    uint64_t cycles = 0;
    uint64_t lost = 0;  // numbers that were left out
    uint64_t points = 0;
    uint64_t fewest_points = 0;  // of a cycle
    uint64_t most_points = 0;
    uint64_t saturated = 0;
    uint64_t columns = 0;  // as many points as there could have been
    uint64_t signal = 0;   // of all points together
    uint64_t intervals = 0;
    int64_t time_us = 0;  // of the intervals
};

class TrackingStatistics final
    : public hx::Implements<TrackingStatistics, hx::FreeThreaded, ITrackingCycleObserver> {
public:
    HRESULT STDMETHODCALLTYPE OnTrackingAreas(const TrackingArea* areas, uint32_t area_count) override;
    HRESULT STDMETHODCALLTYPE OnTrackingCycle(const TrackingCycle* cycle) override;

    TrackingTotals Totals() const;

private:
    mutable std::mutex m_mutex;  // guards what follows
    TrackingTotals m_totals;
    uint64_t m_last_number = 0;
    int64_t m_last_us = 0;
};

}  // namespace hxctl

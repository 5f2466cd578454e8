// An observer that keeps what it sees, and lets a test wait for it. Any thread.
#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <vector>

#include "hxapi/ITrackingCycleObserver.h"
#include "platform/com/implements.h"

struct SeenCycle {
    TrackingCycle cycle;  // without its points
    std::vector<TrackingPoint> points;
    size_t areas_told;  // before it
};

class SeenCycles final : public hx::Implements<SeenCycles, hx::FreeThreaded, ITrackingCycleObserver> {
public:
    HRESULT STDMETHODCALLTYPE OnTrackingAreas(const TrackingArea* areas, uint32_t area_count) override {
        const std::lock_guard lock(m_mutex);
        ++m_areas_told;
        m_corners.clear();
        for (uint32_t i = 0; i < area_count; ++i) {
            m_corners.insert(m_corners.end(), areas[i].corners_mm,
                             areas[i].corners_mm + 2 * areas[i].corner_count);
        }
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE OnTrackingCycle(const TrackingCycle* cycle) override {
        {
            const std::lock_guard lock(m_mutex);
            SeenCycle seen{*cycle, {cycle->points, cycle->points + cycle->point_count}, m_areas_told};
            seen.cycle.points = nullptr;
            m_seen.push_back(std::move(seen));
        }
        m_changed.notify_all();
        if (during_cycle) during_cycle();
        return E_FAIL;  // which nobody looks at
    }

    void WaitFor(size_t count) {
        std::unique_lock lock(m_mutex);
        m_changed.wait(lock, [&] { return m_seen.size() >= count; });
    }
    std::vector<SeenCycle> Seen() const {
        const std::lock_guard lock(m_mutex);
        return m_seen;
    }
    // Of all areas, one after the other.
    std::vector<double> Corners() const {
        const std::lock_guard lock(m_mutex);
        return m_corners;
    }

    // On the tracking thread; set before the observer is handed over.
    std::function<void()> during_cycle;

private:
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<SeenCycle> m_seen;
    std::vector<double> m_corners;
    size_t m_areas_told = 0;
};

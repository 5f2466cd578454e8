// An observer that passes on to another one what the scanner sees, and counts it. Called on the scanner's
// thread, asked on any.
#pragma once

#include <atomic>

#include "hxapi/ITrackingCycleObserver.h"
#include "platform/com/implements.h"

namespace hxctl {

class CycleRelay final : public hx::Implements<CycleRelay, hx::FreeThreaded, ITrackingCycleObserver> {
public:
    explicit CycleRelay(hx::ComPtr<ITrackingCycleObserver> next) : m_next(std::move(next)) {}

    HRESULT STDMETHODCALLTYPE OnTrackingAreas(const TrackingArea* areas, uint32_t area_count) override;
    HRESULT STDMETHODCALLTYPE OnTrackingCycle(const TrackingCycle* cycle) override;

    uint32_t Cycles() const { return m_cycles; }

private:
    const hx::ComPtr<ITrackingCycleObserver> m_next;
    std::atomic<uint32_t> m_cycles{0};
};

}  // namespace hxctl

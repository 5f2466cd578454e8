#include "simulator/recorder/CycleQueue.h"

#include <new>
#include <utility>

namespace hx::simulator {

CycleQueue::CycleQueue(uint32_t keep_every, uint64_t most_cycles)
    : m_slots(kSlots), m_keep_every(keep_every), m_most_cycles(most_cycles) {
    for (RecordedCycle& slot : m_slots) slot.points.reserve(kUsualPoints);
}

bool CycleQueue::Put(std::wstring_view device, std::span<const TrackingArea> areas,
                     const TrackingCycle& cycle) noexcept {
    {
        const std::lock_guard lock(m_mutex);
        if (m_closed || (m_most_cycles != 0 && m_kept == m_most_cycles)) return false;
        if (m_seen++ % m_keep_every != 0) return true;
        if (m_count == m_slots.size()) {
            ++m_dropped;
            return true;
        }
        try {
            m_slots[(m_first + m_count) % m_slots.size()].Take(device, areas, cycle);
        } catch (const std::bad_alloc&) {
            ++m_dropped;
            return true;
        }
        ++m_count;
        ++m_kept;
    }
    m_changed.notify_one();
    return true;
}

bool CycleQueue::Take(RecordedCycle& recorded) {
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return m_count != 0 || m_closed; });
    if (m_count == 0) return false;
    std::swap(recorded, m_slots[m_first]);
    m_first = (m_first + 1) % m_slots.size();
    --m_count;
    return true;
}

void CycleQueue::Close() {
    {
        const std::lock_guard lock(m_mutex);
        m_closed = true;
    }
    m_changed.notify_one();
}

uint64_t CycleQueue::DroppedCount() const {
    const std::lock_guard lock(m_mutex);
    return m_dropped;
}

}  // namespace hx::simulator

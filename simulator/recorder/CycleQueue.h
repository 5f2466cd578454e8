// Cycles on their way from tracking threads to the writer: so many at most, in memory that is taken once. Who
// puts one in never waits for the disk. Any thread puts in, one takes out.
#pragma once

#include <condition_variable>
#include <mutex>

#include "simulator/recorder/RecordedCycle.h"

namespace hx::simulator {

class CycleQueue {
public:
    // Of the cycles put in, every `keep_every`-th is kept, `most_cycles` at most (0: without end).
    CycleQueue(uint32_t keep_every, uint64_t most_cycles);

    // False if no more cycles are wanted. One that finds no room is dropped.
    bool Put(std::wstring_view device, std::span<const TrackingArea> areas,
             const TrackingCycle& cycle) noexcept;
    // Waits for one; its memory is given in exchange. False if there are none left after Close.
    bool Take(RecordedCycle& recorded);
    // What comes now is not wanted any more.
    void Close();

    uint64_t DroppedCount() const;

private:
    static constexpr size_t kSlots = 64;
    static constexpr size_t kUsualPoints = 1280;

    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::vector<RecordedCycle> m_slots;
    size_t m_first = 0;
    size_t m_count = 0;
    bool m_closed = false;
    uint64_t m_seen = 0;
    uint64_t m_kept = 0;
    uint64_t m_dropped = 0;
    const uint32_t m_keep_every;
    const uint64_t m_most_cycles;
};

}  // namespace hx::simulator

// When the next cycle is due, and which number it has. Time is what the caller says it is; one thread at a
// time.
#pragma once

#include <chrono>
#include <cstdint>

namespace hx::simulator {

class CyclePace {
public:
    using Time = std::chrono::steady_clock::time_point;

    // The first cycle, number 0, is due at once.
    void Restart(Time now) { *this = CyclePace(now); }
    Time Due() const { return m_due; }
    // Gives up the cycles whose whole time is over: they get lost, nothing piles up.
    void CatchUp(Time now, double frame_rate_hz);
    // On to the next, after one that was due.
    void Next(double frame_rate_hz);

    uint64_t Number() const { return m_number; }
    int64_t Time_us() const {
        return std::chrono::duration_cast<std::chrono::microseconds>(m_due - m_start).count();
    }

    CyclePace() = default;

private:
    explicit CyclePace(Time start) : m_start(start), m_due(start) {}

    Time m_start;
    Time m_due;
    uint64_t m_number = 0;
};

}  // namespace hx::simulator

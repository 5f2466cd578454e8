#include "simulator/scanner/CyclePace.h"

namespace hx::simulator {
namespace {

CyclePace::Time::duration PeriodOf(double frame_rate_hz) {
    return std::chrono::duration_cast<CyclePace::Time::duration>(
        std::chrono::duration<double>(1 / frame_rate_hz));
}

}  // namespace

void CyclePace::CatchUp(Time now, double frame_rate_hz) {
    if (now < m_due) return;
    const auto period = PeriodOf(frame_rate_hz);
    const auto lost = (now - m_due) / period;
    m_number += static_cast<uint64_t>(lost);
    m_due += lost * period;
}

void CyclePace::Next(double frame_rate_hz) {
    ++m_number;
    m_due += PeriodOf(frame_rate_hz);
}

}  // namespace hx::simulator

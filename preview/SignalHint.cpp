#include "preview/SignalHint.h"

#include <algorithm>

namespace hx::preview {

void SignalCounts::Add(uint16_t signal) {
    const uint32_t step = static_cast<uint32_t>(signal) * kSteps / (kTrackingSignalSaturated + 1);
    ++m_histogram[std::min(step, kSteps - 1)];
    ++m_points;
    if (signal >= kTrackingSignalSaturated) ++m_saturated;
}

double SignalCounts::SaturatedPortion() const {
    return m_points == 0 ? 0.0 : static_cast<double>(m_saturated) / m_points;
}

double SignalCounts::MedianPortion() const {
    if (m_points == 0) return 0.0;
    uint32_t below = 0;
    uint32_t step = 0;
    while ((below += m_histogram[step]) * 2 < m_points) ++step;
    return (step + 0.5) / kSteps;
}

Hint SignalHint::Next(const SignalCounts& counts) {
    const bool was_bright = m_hint == Hint::too_bright;
    const bool was_dark = m_hint == Hint::too_dark;
    const bool was_nothing = m_hint == Hint::nothing_seen;
    if (counts.Points() < (was_nothing ? kFewestSeenAgain_points : kFewestSeen_points)) {
        m_hint = Hint::nothing_seen;
    } else if (counts.SaturatedPortion() >= (was_bright ? kNotTooBright_portion : kTooBright_portion)) {
        m_hint = Hint::too_bright;
    } else if (counts.MedianPortion() < (was_dark ? kNotTooDark_portion : kTooDark_portion)) {
        m_hint = Hint::too_dark;
    } else {
        m_hint = Hint::none;
    }
    return m_hint;
}

}  // namespace hx::preview

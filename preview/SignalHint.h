// Whether the picture is too bright or too dark, told so that the hint does not flicker: a hint that is shown
// stays until the picture is clearly better. One object per window; not thread-safe.
#pragma once

#include <array>
#include <cstdint>

#include "hxapi/ITrackingCycleObserver.h"

namespace hx::preview {

enum class Hint { none, too_bright, too_dark, nothing_seen };

// The signals of all points that a picture shows.
class SignalCounts {
public:
    void Add(uint16_t signal);
    uint32_t Points() const { return m_points; }
    // Of the points; 0 if there are none.
    double SaturatedPortion() const;
    // Of the range, within half a hundredth of it; 0 if there are no points.
    double MedianPortion() const;

private:
    static constexpr uint32_t kSteps = 128;

    std::array<uint32_t, kSteps> m_histogram{};
    uint32_t m_points = 0;
    uint32_t m_saturated = 0;
};

class SignalHint {
public:
    // The place of a saturated point is less exact. A few glints are on any metal; more than every twentieth
    // point makes a surface that one would not measure so.
    static constexpr double kTooBright_portion = 0.05;
    static constexpr double kNotTooBright_portion = 0.02;
    // Half of the points are weaker than that: little is missing until they drop out, as those on slopes may
    // do already.
    static constexpr double kTooDark_portion = 0.15;
    static constexpr double kNotTooDark_portion = 0.20;
    // A point here and there does not make a line.
    static constexpr uint32_t kFewestSeen_points = 1;
    static constexpr uint32_t kFewestSeenAgain_points = 10;

    Hint Current() const { return m_hint; }
    // What is to be shown with the picture that has these signals.
    Hint Next(const SignalCounts& counts);
    void Reset() { m_hint = Hint::none; }

private:
    Hint m_hint = Hint::none;
};

}  // namespace hx::preview

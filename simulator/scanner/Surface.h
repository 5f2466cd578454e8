// The synthetic surfaces that lie in front of a simulated scanner, and move past it. In portions of the
// measurement area, so that every model sees the same. Any thread.
#pragma once

#include <span>
#include <string_view>

namespace hx::simulator {

struct SurfaceSpot {
    bool is_there = true;
    double depth = 0.5;       // from the near end of the measurement area, 0, to the far one, 1
    double slope = 0;         // of the depth over `across`
    double reflectivity = 1;  // of what comes back in all directions: white paper is 1
    double gloss = 0;         // of what a mirror would send back
};

struct Surface {
    const wchar_t* name;
    // `across` the middle of the measurement area from -1 to 1, and a little beyond; `travel`: how far the
    // surface has moved, in the same measure.
    SurfaceSpot (*at)(double across, double travel);
};

std::span<const Surface> Surfaces();
// Without case; null if there is none.
const Surface* FindSurface(std::wstring_view name);

}  // namespace hx::simulator

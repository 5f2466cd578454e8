#include "simulator/scanner/Surface.h"

#include <algorithm>
#include <cmath>

#include "platform/system/case_fold.h"

namespace hx::simulator {
namespace {

// What machining leaves on a surface.
double Texture(double across, double travel) {
    return 1 + 0.12 * std::sin(31 * across + 5 * travel) * std::sin(7 * across - 3 * travel);
}

SurfaceSpot Plane(double across, double travel) {
    const double tilt = 0.12 * std::sin(travel);
    return {true, 0.5 + 0.12 * std::sin(0.7 * travel) + tilt * across, tilt, 0.6 * Texture(across, travel),
            0};
}

// A stair that goes up and down again while it passes.
SurfaceSpot Steps(double across, double travel) {
    constexpr double kWidth = 0.45;
    constexpr double kDepths[] = {0.35, 0.5, 0.65, 0.5};
    const auto tread = static_cast<int64_t>(std::floor((across + 0.4 * travel) / kWidth));
    const auto kind = static_cast<size_t>(((tread % 4) + 4) % 4);
    return {true, kDepths[kind], 0, (kind % 2 == 0 ? 0.65 : 0.5) * Texture(across, travel), 0};
}

SurfaceSpot Waves(double across, double travel) {
    const double wide = 6 * across + travel;
    const double narrow = 17 * across - 2 * travel;
    return {true, 0.5 + 0.11 * std::sin(wide) + 0.03 * std::sin(narrow),
            0.66 * std::cos(wide) + 0.51 * std::cos(narrow), 0.6 * Texture(across, travel), 0};
}

// On a table.
SurfaceSpot Sphere(double across, double travel) {
    constexpr double kRadius = 0.5;
    constexpr double kHeight = 0.4;
    constexpr double kTable = 0.78;
    const double from_centre = across - 0.3 * std::sin(0.5 * travel);
    const double square = 1 - from_centre * from_centre / (kRadius * kRadius);
    if (square <= 1e-4) return {true, kTable, 0, 0.45 * Texture(across, travel), 0};
    const double bulge = std::sqrt(square);
    return {true, kTable - kHeight * bulge, kHeight * from_centre / (kRadius * kRadius * bulge), 0.75, 0};
}

// Metal with a polished patch.
SurfaceSpot Shiny(double across, double travel) {
    SurfaceSpot spot = Plane(across, travel);
    spot.reflectivity = 0.4 * Texture(across, travel);
    const bool is_polished = std::abs(across - 0.35 * std::sin(0.4 * travel)) < 0.22;
    if (is_polished) spot.gloss = 5;
    return spot;
}

SurfaceSpot Dark(double across, double travel) {
    const double wide = 3 * across + travel;
    return {true, 0.5 + 0.08 * std::sin(wide), 0.24 * std::cos(wide), 0.06 * Texture(across, travel), 0};
}

SurfaceSpot Nothing(double, double) {
    return {.is_there = false};
}

constexpr Surface kSurfaces[] = {
    {L"plane", &Plane}, {L"steps", &Steps}, {L"waves", &Waves},     {L"sphere", &Sphere},
    {L"shiny", &Shiny}, {L"dark", &Dark},   {L"nothing", &Nothing},
};

}  // namespace

std::span<const Surface> Surfaces() {
    return kSurfaces;
}

const Surface* FindSurface(std::wstring_view name) {
    const auto* const found = std::ranges::find_if(
        kSurfaces, [&](const Surface& surface) { return EqualsWithoutCase(name, surface.name); });
    return found == std::end(kSurfaces) ? nullptr : found;
}

}  // namespace hx::simulator

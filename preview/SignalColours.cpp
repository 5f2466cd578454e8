#include "preview/SignalColours.h"

#include <algorithm>
#include <cmath>

namespace hx::preview {
namespace {

using ui::Colour;

constexpr size_t kSteps = 4;

// From weak to strong; `saturated` beyond.
struct Ramp {
    std::array<Colour, kSteps> steps;
    Colour saturated;
    Colour warning;
    Colour warning_text;
};

constexpr Ramp kOnLight = {{{{104, 150, 205}, {52, 112, 190}, {38, 66, 152}, {16, 22, 84}}},
                           {214, 0, 110},
                           {255, 226, 150},
                           {40, 28, 0}};
constexpr Ramp kOnDark = {{{{58, 108, 184}, {64, 160, 212}, {124, 212, 214}, {250, 246, 190}}},
                          {255, 84, 170},
                          {92, 66, 0},
                          {255, 236, 190}};

uint8_t Mixed(uint8_t first, uint8_t second, double portion) {
    return static_cast<uint8_t>(std::lround(first + (second - first) * portion));
}

Colour Mixed(Colour first, Colour second, double portion) {
    return {Mixed(first.red, second.red, portion), Mixed(first.green, second.green, portion),
            Mixed(first.blue, second.blue, portion)};
}

Colour Blended(const Ramp& ramp, double portion) {
    const double place = portion * (kSteps - 1);
    const size_t step = std::min(static_cast<size_t>(place), kSteps - 2);
    return Mixed(ramp.steps[step], ramp.steps[step + 1], place - static_cast<double>(step));
}

Colour Stepped(const Ramp& ramp, double portion) {
    return ramp.steps[std::min(static_cast<size_t>(portion * kSteps), kSteps - 1)];
}

bool IsDark(Colour colour) {
    return 0.299 * colour.red + 0.587 * colour.green + 0.114 * colour.blue < 128;
}

}  // namespace

SignalColours MakeSignalColours(Colour window, Colour text, bool blend) {
    const Ramp& ramp = IsDark(window) ? kOnDark : kOnLight;
    SignalColours colours{};
    colours.window = window;
    colours.text = Mixed(window, text, 0.75);
    colours.area = Mixed(window, text, 0.05);
    colours.outline = Mixed(window, text, 0.55);
    colours.grid = Mixed(window, text, 0.14);
    colours.warning = ramp.warning;
    colours.warning_text = ramp.warning_text;
    for (size_t signal = 0; signal < kTrackingSignalSaturated; ++signal) {
        const double portion = static_cast<double>(signal) / kTrackingSignalSaturated;
        colours.points[signal] = blend ? Blended(ramp, portion) : Stepped(ramp, portion);
    }
    colours.points[kTrackingSignalSaturated] = ramp.saturated;
    return colours;
}

}  // namespace hx::preview

// The colours of the preview, for light and for dark windows: pale where the signal is weak, far from the
// background where it is strong, so that they differ in brightness for whoever does not see hues. Saturated
// points have a colour that no other has, and are larger. On the thread of the user interface.
#pragma once

#include <array>
#include <cstdint>

#include "hxapi/ITrackingCycleObserver.h"
#include "platform/ui/painter.h"

namespace hx::preview {

struct SignalColours {
    bool operator==(const SignalColours&) const = default;

    ui::Colour window;
    ui::Colour text;     // numbers of the scale
    ui::Colour area;     // inside the measurement areas
    ui::Colour outline;  // around them
    ui::Colour grid;
    ui::Colour warning;       // behind a hint
    ui::Colour warning_text;  // upon it
    // By the signal.
    std::array<ui::Colour, kTrackingSignalSaturated + 1> points;
};

// With `blend` the points' colours run with the signal, without it they are those of four steps.
SignalColours MakeSignalColours(ui::Colour window, ui::Colour text, bool blend);

}  // namespace hx::preview

// What becomes of the sights before they are points: false ones come in, and the scanner's filters take out
// what they are set to. Any thread.
#pragma once

#include <span>

#include "simulator/scanner/Optics.h"

namespace hx::simulator {

// A polished surface sends light to other columns, which see a false point where their own is weaker.
void AddReflections(const MeasurementArea& area, std::span<Sight> sights, std::span<Sight> spare);

// Those steeper than the settings allow.
void DropSteep(const OpticalSettings& settings, std::span<Sight> sights);

// Those beside jumps in depth: a few by the 3D edge filter, as many more as the edge filter's value tells.
void DropEdges(const OpticalSettings& settings, std::span<Sight> sights);

}  // namespace hx::simulator

// What each column of the imager sees of a surface: where its ray meets it, and how much light comes back.
// Physics alone: no noise, no filter, no limit of the imager. Any thread.
#pragma once

#include <span>

#include "simulator/models/ModelDetails.h"
#include "simulator/scanner/FieldOfView.h"
#include "simulator/scanner/OpticalSettings.h"
#include "simulator/scanner/Surface.h"

namespace hx::simulator {

struct Sight {
    bool is_there;
    bool at_jump;  // the laser line falls partly on one side of a jump in depth, partly on the other
    double y_mm;
    double inclination_degrees;  // of the surface against the beam
    double signal;               // of the imager's range up to kTrackingSignalSaturated, and beyond
    double mirrored;             // the part of it that a polished surface sends on to others
};

struct Scene {
    const ScannerModel& model;
    const Surface& surface;
    uint64_t cycle;
    uint32_t plane;
};

// A depth that no inclined surface reaches from one column to the next.
double JumpOf(const MeasurementArea& area);
// Of the middle of a column: -1 at the one edge of the imager, 1 at the other.
double AcrossOf(const ScannerModel& model, uint32_t column);

// One sight for each column of the view.
void Look(const Scene& scene, const OpticalSettings& settings, const FieldOfView& view,
          std::span<Sight> sights);

}  // namespace hx::simulator

// What the present field of view leaves of a measurement area and of the imager. Any thread.
#pragma once

#include <array>

#include "hxapi/MGlobalScanningSettings.h"
#include "simulator/models/ModelDetails.h"

namespace hx::simulator {

struct FieldOfView {
    double near_mm;
    double far_mm;
    double width_portion;
    uint32_t first_column;
    uint32_t column_count;
    double depth_portion;  // and so of the imager's rows
};

// Half the width: the middle columns. Half the depth: the near half, the middle one or the far one.
FieldOfView ViewOf(const ScannerModel& model, const MGlobalScanningSettings& global);

// x, y of its corners, in the order of the area's own.
std::array<double, 8> CornersOf(const FieldOfView& view, const MeasurementArea& area);

}  // namespace hx::simulator

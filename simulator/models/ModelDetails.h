// What the scanner API's interfaces do not show of a model: where it measures, and the numbers and dates that
// its properties tell. For the properties document and the optics; any thread.
#pragma once

#include "settings/properties/forms.h"
#include "simulator/models/ScannerModel.h"

namespace hx::simulator {

// A symmetrical trapezium that each laser plane measures in, in the plane's own coordinates.
struct MeasurementArea {
    double near_mm;  // along the line of sight
    double far_mm;
    double near_half_width_mm;
    double far_half_width_mm;

    double Depth() const { return far_mm - near_mm; }
    // By how much the half width grows with each millimetre of distance.
    double Spread() const { return (far_half_width_mm - near_half_width_mm) / Depth(); }
    double HalfWidthAt(double y_mm) const { return near_half_width_mm + (y_mm - near_mm) * Spread(); }
};

struct ModelDetails {
    const wchar_t* device_internal_name;
    MeasurementArea area;
    double plane_tilt_degrees;  // of each plane against its neighbour
    double resolution_mm;
    double deviation_mm;  // of a point on a bright surface
    const wchar_t* hardware_version;
    const wchar_t* fpga_serial_number;
    const wchar_t* firmware_version;
    CalendarDate manufactured;
    CalendarDate firmware_built;
    CalendarDate calibrated;
};

const ModelDetails& DetailsOf(const ScannerModel& model);

}  // namespace hx::simulator

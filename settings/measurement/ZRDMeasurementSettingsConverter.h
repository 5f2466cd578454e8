// Gives the hardware settings of a scanner of the ZRD family the values that it has when it is switched on.
// Any thread.
#pragma once

namespace hx {

class ZRDMeasurementSettings;

class ZRDMeasurementSettingsConverter {
public:
    // Everything is valid afterwards; the reference copy stays.
    static void GetDefaultMeasurementSettings(ZRDMeasurementSettings& record);
};

}  // namespace hx

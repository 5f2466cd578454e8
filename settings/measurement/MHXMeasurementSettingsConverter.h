// Gives the hardware settings of a scanner of the HX family the values that it has when it is switched on.
// Any thread.
#pragma once

namespace hx {

class MHXMeasurementSettings;

class MHXMeasurementSettingsConverter {
public:
    // Everything is valid afterwards; the reference copy stays.
    static void GetDefaultMeasurementSettings(MHXMeasurementSettings& record);
};

}  // namespace hx

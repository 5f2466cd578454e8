// The tool tip of a control: what it is for, with unit and range, and why it cannot be used now. Called by
// pages when they have enabled and disabled their controls, on the thread of the user interface.
#pragma once

#include "platform/ui/dialog.h"

namespace hx {

// Why a control is disabled: the number of the string that says so.
enum class Disabled : uint32_t {
    kNot = 0,
    kNotSetUp = 2901,        // no scanner has been connected yet, so that there is no profile
    kAutomaticPower = 2902,  // the scanner controls the laser power
    kNotConnected = 2903,    // or another scanner is
    kNo3DFilter = 2904,      // it is for the 3D filter, which is off
    kSpeedNotSelectable = 2905,
    kNotReadable = 2906,  // the profile or the scanner could not be read
};

// The string 3000 and the control's id of the module, and below it the reason. A control without such a
// string has the reason alone.
void SetHelp(ui::Control& control, const ResourceModule& module, Disabled disabled);

}  // namespace hx

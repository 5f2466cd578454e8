// What the diagnostics page shows of a scanner: one row for each value. On the thread of the user interface.
#pragma once

#include <span>
#include <string>

#include "settings/properties/MHXFamilyDeviceProperties.h"

namespace hx {

struct DiagnosticValue {
    // The controls of its name and of the value itself.
    uint32_t label;
    uint32_t value;
    // As it is shown.
    std::wstring (*text)(const MHXFamilyDeviceProperties& device);
    // Whether the model has it at all; null for what every model has.
    bool (*exists)(const MHXFamilyDeviceProperties& device) = nullptr;
};

// From the top of the page.
std::span<const DiagnosticValue> DiagnosticValues();

}  // namespace hx

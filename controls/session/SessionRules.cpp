#include "controls/session/SessionRules.h"

#include <algorithm>

namespace hx {
namespace {

using enum ConnectionAction;

constexpr ConnectionRow kMeasurementRows[] = {
    {0, 0, kReopenUnlessAcquired}, {0, 1, kReopenUnlessAcquired}, {0, 2, kReopenUnlessAcquired},
    {1, 0, kReleaseAndDrop},       {1, 1, kReopenUnlessAcquired}, {1, 2, kNothing},
    {2, 0, kReleaseAndDrop},       {2, 1, kReopenAfresh},         {2, 2, kNothing},
};

constexpr ConnectionRow kHandheldRows[] = {
    {0, 0, kReopenUnlessAcquired}, {0, 1, kReopenUnlessAcquired}, {0, 2, kReopenUnlessAcquired},
    {1, 0, kReleaseAndDrop},       {1, 1, kReopenUnlessAcquired}, {1, 2, kReopenUnlessAcquired},
    {2, 0, kReleaseAndDrop},       {2, 1, kReopenAfresh},         {2, 2, kNothing},
};

SessionLocations& MeasurementLocations() {
    static SessionLocations locations(kMeasurementPageClass);
    return locations;
}

SessionLocations& HandheldLocations() {
    static SessionLocations locations(kHandheldPageClass);
    return locations;
}

}  // namespace

SessionLocations::SessionLocations(const char* page_class)
    : acquire(page_class, "AcquireCalibrationHandle"),
      release(page_class, "ReleaseCalibrationHandle"),
      connection_change(page_class, "OnConnectionStateChange"),
      deselected(page_class, "OnDeselected"),
      destroy(page_class, "OnDestroy"),
      apply_settings(page_class, "ApplySettingsToHardware"),
      apply_global_settings(page_class, "ApplyGlobalScanningSettings") {}

ConnectionAction SessionRules::ActionFor(int32_t stored, int32_t arrived) const {
    const auto row = std::ranges::find_if(connection_rows, [&](const ConnectionRow& each) {
        return each.stored == stored && each.arrived == arrived;
    });
    return row != connection_rows.end() ? row->action : kNothing;
}

constinit const SessionRules kMeasurementSession = {&MeasurementLocations, kMeasurementRows, false, false};
constinit const SessionRules kHandheldSession = {&HandheldLocations, kHandheldRows, true, true};

}  // namespace hx

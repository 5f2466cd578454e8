// The kinds of settings that the scanner API keeps in profiles. High byte: device class (1 scanner, 2
// localiser, 4 trigger device, 8 clock synchronisation); low byte: what of it.
#pragma once

#include <cstdint>

enum ProfileSettingsType : int32_t {
    ScannerConnectionSettings = 257,
    ScannerMeasurementSettings = 258,
    LocaliserConnectionSettings = 513,
    LocaliserMeasurementSettingsForScanning = 514,
    LocaliserMeasurementSettingsForTactile = 516,
    LocaliserReadySettingsForScanning = 520,
    LocaliserReadySettingsForTactile = 528,
    TriggerDeviceMeasurementSettings = 1025,
    ClockSyncMeasurementSettings = 2049,
};

// The keys of the simulator: its recorder, its control program and the simulated localiser.
// A part of the table of MRegistryKeyLib.
#pragma once

#include "core/keys/RegistryKeyRow.h"

namespace Orvel::RegistryKeys {

inline constexpr RegistryKeyPlace kRecorder{kMachine, L"HXAPI4\\SimulatorRecorder"};
inline constexpr RegistryKeyPlace kControl{kUser, L"SimulatorControl"};
inline constexpr RegistryKeyPlace kControlSettings{kUser, L"SimulatorControl\\Settings"};
inline constexpr RegistryKeyPlace kControlDynamicSettings{kUser, L"SimulatorControl\\DynamicSettings"};
inline constexpr RegistryKeyPlace kControlConnection{kUser, L"SimulatorControl\\DeviceConnection"};
inline constexpr RegistryKeyPlace kSimulatedLocaliser{kUser,
                                                      L"ExternalLocaliserApplication\\SimulatorSettings"};

inline constexpr RegistryKeyRow kSimulatorKeys[] = {
    {24, kRecorder, L"Enable", kBoolean, 0, 24, 0,
     L"Simulator recorder: record data for the simulator [true|false]"},
    {25, kRecorder, L"EnableCustomDatasetName", kBoolean, 0, 24, 0,
     L"Simulator recorder: use the custom data-set name [true|false]"},
    {26, kRecorder, L"ActiveDataset", kString, 0, 24, 0,
     L"Simulator recorder: path name of the active data set [a path name]"},
    {27, kRecorder, L"TargetFolder", kString, 0, 24, 0,
     L"Simulator recorder: the folder of the recordings [a folder]"},
    {28, kRecorder, L"DatasetPathName", kString, 0, 24, 0,
     L"Simulator recorder: data-set path name; empty: made from date and time [a path name]"},
    {29, kRecorder, L"ReduceTrackingData", kInteger1, 0, 24, 0,
     L"Simulator recorder: keep only a part of the tracking data [0]"},
    {30, kRecorder, L"MaxTrackingCycles", kInteger1, 0, 24, 0,
     L"Simulator recorder: tracking cycles that are kept at most [10]"},
    {31, kRecorder, L"Qemu", kString, 0, 24, 0,
     L"Simulator recorder: the machine emulator that runs the simulated scanner []"},
    {140, kRecorder, L"PingRetries", kInteger1, 0, 24, 0,
     L"Simulator recorder: ping retries when the simulator is detected [30]"},
    {149, kRecorder, L"EnableInferredQualificationRecording", kBoolean, 0, 24, 0,
     L"Simulator recorder: record inferred qualifications [true|false]"},
    {35, kControl, L"ImportQualificationsFromDataSet", kBoolean, 0, 24, 0,
     L"Simulator control: import the qualifications of the data set [true|false]"},
    {32, kControlSettings, L"ScanSimulatorControlFirmwareImage", kString, 0, 24, 0,
     L"Simulator control: the firmware image of the simulated scanner [a path name]"},
    {33, kControlSettings, L"ScanSimulatorControlDataSet", kString, 0, 24, 0,
     L"Simulator control: the data set that is simulated [a path name]"},
    {34, kControlDynamicSettings, L"UseDynamicSettingsFromDataSet", kBoolean, 0, 24, 0,
     L"Simulator control: take the dynamic settings from the data set [true|false]"},
    {36, kControlDynamicSettings, L"ActiveDynamicSettings", kString, 0, 24, 0,
     L"Simulator control: the dynamic settings that are active [a profile name]"},
    {37, kControlConnection, L"UseProxySettingsFromDataSet", kBoolean, 0, 24, 0,
     L"Simulator control: take the proxy settings from the data set [true|false]"},
    {38, kControlConnection, L"IsProxyConnection", kBoolean, 0, 24, 0,
     L"Simulator control: connect through a proxy [true|false]"},
    {39, kControlConnection, L"ProxyType", kInteger0, 0, 24, 0,
     L"Simulator control: the kind of proxy [a number]"},
    {42, kSimulatedLocaliser, L"EnableDdsBroadcast", kBoolean, 0, 42, 0,
     L"Simulated localiser: announce it through the data service [true|false]"},
    {43, kSimulatedLocaliser, L"MinTriggerFrequency", kDouble, 0, 43, 0,
     L"Simulated localiser: lowest frequency of the trigger [a frequency in hertz]"},
    {44, kSimulatedLocaliser, L"MaxTriggerFrequency", kDouble, 0, 44, 0,
     L"Simulated localiser: highest frequency of the trigger [a frequency in hertz]"},
    {45, kSimulatedLocaliser, L"TriggerActiveState", kInteger0, 0, 45, 0,
     L"Simulated localiser: the level at which the trigger is active [a number]"},
    {46, kSimulatedLocaliser, L"MinPulseWidth", kInteger1, 0, 46, 0,
     L"Simulated localiser: shortest pulse of the trigger [a time in microseconds]"},
    {47, kSimulatedLocaliser, L"MaxReconstructedPositions", kInteger1, 0, 47, 0,
     L"Simulated localiser: positions that are reconstructed at most [a number]"},
    {48, kSimulatedLocaliser, L"LocaliserId", kString, 0, 48, 0,
     L"Simulated localiser: the name by which it is known [a name]"},
};

}  // namespace Orvel::RegistryKeys

// The keys of research, debugging, logs and statistics.
// A part of the table of MRegistryKeyLib.
#pragma once

#include "core/keys/RegistryKeyRow.h"

namespace Orvel::RegistryKeys {

inline constexpr RegistryKeyPlace kResearchLog{kMachine, L"HXAPI4\\Research\\SCI_Logging"};
inline constexpr RegistryKeyPlace kResearchDumps{kMachine,
                                                 L"HXAPI4\\Research\\Qualification\\PointCloudDumps"};
inline constexpr RegistryKeyPlace kResearch{kMachine, L"HXAPI4\\Research"};
inline constexpr RegistryKeyPlace kDebug{kMachine, L"HXAPI4\\Debug"};
inline constexpr RegistryKeyPlace kScanDataLog{kMachine, L"HXAPI4\\Logging\\SCI_Logging"};
inline constexpr RegistryKeyPlace kLogging{kMachine, L"HXAPI4\\Logging"};
inline constexpr RegistryKeyPlace kTemperatureLog{kMachine, L"HXAPI4\\Logging\\Temperatures"};
inline constexpr RegistryKeyPlace kPublicInterfaceLog{kMachine, L"HXAPI4\\MLogPublicInterface"};
inline constexpr RegistryKeyPlace kStatistics{kMachine, L"HXAPI4\\Statistics"};
inline constexpr RegistryKeyPlace kMeasuringArm{kMachine, L"HXAPI4\\RDS"};

inline constexpr RegistryKeyRow kResearchKeys[] = {
    {10, kResearchLog, L"Enable", kBoolean, 1, 10, 0,
     L"Research log: write scan data when the application asks for it [true|false]"},
    {11, kResearchLog, L"AlwaysEnable", kBoolean, 1, 10, 0,
     L"Research log: write scan data at all times [true|false]"},
    {12, kResearchLog, L"TargetFolder", kString, 1, 10, 0,
     L"Research log: the folder that it is written to [a folder]"},
    {13, kResearchLog, L"TargetSubFolder", kString, 1, 10, 0,
     L"Research log: the folder inside the target folder [a folder name]"},
    {14, kResearchLog, L"Format", kString, 1, 10, 0, L"Research log: the form of the files [a name]"},
    {15, kResearchLog, L"UnderSamplingPeriod", kInteger4, 1, 10, 0,
     L"Research log: one scan line of so many is written [a number]"},
    {16, kResearchLog, L"DumpLimiter", kInteger4, 1, 10, 0,
     L"Research log: so many scan lines are written at most [a number]"},
    {17, kResearchLog, L"Version", kInteger3, 1, 10, 0, L"Research log: the version of the files [a number]"},
    {18, kResearchLog, L"Level", kInteger3, 1, 10, 0, L"Research log: how much is written [a number]"},
    {19, kResearchLog, L"Run", kBoolean, 1, 19, 0, L"Research log: writing goes on now [true|false]"},
    {20, kResearchLog, L"FileNameSuffix", kString, 1, 20, 0,
     L"Research log: what is added to the file names [a text]"},
    {21, kResearchLog, L"Reinitialize", kBoolean, 1, 21, 0,
     L"Research log: read these settings again [true|false]"},
    {50, kResearchDumps, L"Enable", kBoolean, 1, 50, 0,
     L"Research on qualification: dump the point clouds [true|false]"},
    {51, kResearchDumps, L"EnableDateTimePostfix", kBoolean, 1, 51, 0,
     L"Research on qualification: add date and time to the names of the dumps [true|false]"},
    {76, kResearch, L"OutputExposureInRows", kBoolean, 1, 76, 0,
     L"Configuration dialogs: show the exposure in rows [true|false]"},
    {77, kResearch, L"Allow3dFilteringHXHH", kBoolean, 1, 77, 0,
     L"Configuration dialogs: show the 3D edge filter for HX handheld scanners [true|false]"},
    {80, kResearch, L"OutputHXConfiguration", kBoolean, 1, 80, 0,
     L"Configuration dialogs: write the applied scanner configuration to the debugger output [true|false]"},
    {81, kResearch, L"NominalCalibrationMap", kBoolean, 1, 81, 0,
     L"Nominal calibration map: use it instead of the one of the scanner [true|false]"},
    {82, kResearch, L"NominalCalibrationMapFileName", kString, 1, 82, 0,
     L"Nominal calibration map: the file that it is in [a path name]"},
    {88, kResearch, L"ShowFrequencyReductionSlider", kBoolean, 1, 88, 0,
     L"Configuration dialogs: show the frequency reduction slider [true|false]"},
    {78, kDebug, L"AllowAutoDetectForHX", kBoolean, 0, 78, 0,
     L"Configuration dialogs: show the exposure auto-detection button [true|false]"},
    {79, kDebug, L"AllowHardwareDialogGainDropDown", kBoolean, 0, 79, 0,
     L"Configuration dialogs: show the analog gain drop-down for supported scanners [true|false]"},
    {85, kDebug, L"ViewProperties", kBoolean, 0, 85, 0,
     L"Debugging: show the properties of driver and device [true|false]"},
    {151, kDebug, L"EnableNetworkInterfaceAndIpListing", kBoolean, 0, 151, 0,
     L"Debugging: list network interfaces and IP addresses [true|false]"},
    {22, kScanDataLog, L"Enable", kBoolean, 0, 22, 0, L"Scan data log: write scan data [true|false]"},
    {23, kScanDataLog, L"TargetFolder", kString, 0, 23, 0,
     L"Scan data log: the folder that it is written to [a folder]"},
    {41, kLogging, L"DumpFlowOnExit", kBoolean, 0, 41, 0,
     L"Log: dump the flow when the program exits [true|false]"},
    {136, kLogging, L"DynamicSettingsMaxBackups", kInteger2, 3, 136, 0,
     L"Dynamic settings: archived custom settings files kept per driver; the oldest is deleted after a new "
     L"one is created [10]"},
    {159, kTemperatureLog, L"Enable", kBoolean, 0, 159, 0,
     L"Temperature log: write the temperatures of the scanner [true|false]"},
    {160, kTemperatureLog, L"FileName", kString, 0, 160, 0,
     L"Temperature log: the file that they are written to [a path name]"},
    {161, kTemperatureLog, L"IntervalSeconds", kInteger0, 0, 161, 0,
     L"Temperature log: time between two records [a time in seconds]"},
    {144, kPublicInterfaceLog, L"DebugLevel", kInteger1, 0, 144, 0,
     L"Log of the public interface: how much is written [a number]"},
    {84, kStatistics, L"FrameRateWatching", kBoolean, 0, 84, 0,
     L"Statistics: watch the frame rate [true|false]"},
    {73, kMeasuringArm, L"CalibrationDate", kString, 0, 73, 0,
     L"Measuring arm: when it was calibrated [a date]"},
    {74, kMeasuringArm, L"LogPositionsToDebugOuput", kBoolean, 0, 74, 0,
     L"Measuring arm: write its positions to the debugger output [true|false]"},
    {75, kMeasuringArm, L"EsdEventSimulationDelay_s", kInteger0, 0, 75, 0,
     L"Measuring arm: delay of a simulated electrostatic discharge [a time in seconds]"},
};

}  // namespace Orvel::RegistryKeys

// The keys of the programs around the suite: example host, tray program, offline qualification.
// A part of the table of MRegistryKeyLib.
#pragma once

#include "core/keys/RegistryKeyRow.h"

namespace Orvel::RegistryKeys {

inline constexpr RegistryKeyPlace kExample{kUser, L"HXApiExample\\Configuration"};
inline constexpr RegistryKeyPlace kExampleUi{kUser, L"HXApiExample\\UI"};
inline constexpr RegistryKeyPlace kExampleDriverDialog{kUser, L"HXApiExample\\UI\\DriverConfigDialog"};
inline constexpr RegistryKeyPlace kExampleMachineUi{kMachine, L"HXApiExample\\UI"};
inline constexpr RegistryKeyPlace kTrayDataService{kUser, L"HXTray\\DDS"};
inline constexpr RegistryKeyPlace kTray{kUser, L"HXTray"};
inline constexpr RegistryKeyPlace kTrayMachine{kMachine, L"HXTray"};
inline constexpr RegistryKeyPlace kOfflineQualification{kUser, L"HXOfflineQualification\\Configuration"};

inline constexpr RegistryKeyRow kApplicationKeys[] = {
    {90, kExample, L"EnableDds", kBoolean, 0, 90, kCreate,
     L"Example host: use the data service [true|false]"},
    {91, kExample, L"AutoConnect", kBoolean, 0, 91, kCreate,
     L"Example host: connect when it starts [true|false]"},
    {92, kExample, L"ShowDdsEvents", kBoolean, 0, 92, kCreate,
     L"Example host: show the events of the data service [true|false]"},
    {100, kExample, L"DataLoggingLocation", kString, 0, 100, 0,
     L"Example host, data log: the folder that it is written to [a folder]"},
    {101, kExample, L"DataLoggingTracking", kBoolean, 0, 101, 0,
     L"Example host, data log: write tracking data [true|false]"},
    {102, kExample, L"DataLoggingTriggered", kBoolean, 0, 102, 0,
     L"Example host, data log: write triggered positions [true|false]"},
    {103, kExample, L"DataLoggingScanning", kBoolean, 0, 103, 0,
     L"Example host, data log: write scan data [true|false]"},
    {104, kExample, L"DataLoggingDateInFiles", kBoolean, 0, 104, 0,
     L"Example host, data log: put the date into the file names [true|false]"},
    {105, kExample, L"DataLoggingConfirmNames", kBoolean, 0, 105, 0,
     L"Example host, data log: ask for every file name [true|false]"},
    {111, kExample, L"LogLocalizerProperties", kBoolean, 0, 111, 0,
     L"Example host: log the properties of the localiser [true|false]"},
    {112, kExample, L"planeSelectionMode", kInteger0, 0, 112, 0,
     L"Example host: how the plane is selected [a number]"},
    {116, kExample, L"FacetConfiguration", kString, 0, 116, 0,
     L"Example host: the configuration of the facets [a text]"},
    {117, kExample, L"HandheldTactile", kBoolean, 0, 117, 0,
     L"Example host: measure tactile with a handheld scanner [true|false]"},
    {142, kExample, L"DataLoggingSeparateFilePerPatch", kBoolean, 0, 142, 0,
     L"Example host, data log: write a file for every patch [true|false]"},
    {145, kExample, L"DynamicSettingsV2", kBoolean, 0, 145, 0,
     L"Example host: use the second version of the dynamic settings [true|false]"},
    {146, kExample, L"UseRetrieveAllTriggerCycles", kBoolean, 0, 146, 0,
     L"Example host: retrieve all trigger cycles in one call [true|false]"},
    {153, kExample, L"InitApiAtConnect", kBoolean, 0, 153, kCreate,
     L"Example host: initialise the scanner API when it connects [true|false]"},
    {155, kExample, L"DataLoggingScanningExtraFields", kBoolean, 0, 155, 0,
     L"Example host, data log: write the extra fields of scan data [true|false]"},
    {165, kExample, L"MulthreadedGetPoints", kBoolean, 0, 165, 0,
     L"Example host: get points on several threads [true|false]"},
    {184, kExample, L"SdkUseThreadedDialogs", kBoolean, 0, 184, kCreate,
     L"Example host: let the scanner API show its dialogs on threads of their own [true|false]"},
    {93, kExampleUi, L"LastDriverSelectionCount", kInteger4, 0, 93, 0,
     L"Example host: how many drivers were selected last [a number]"},
    {94, kExampleUi, L"ApiLocale", kString, 0, 94, 0,
     L"Example host: the language of the scanner API [a locale name]"},
    {95, kExampleUi, L"RadioScanTactile", kInteger0, 0, 95, 0,
     L"Example host: scanning or tactile measuring, as chosen last [a number]"},
    {96, kExampleUi, L"TactileModeSelection", kInteger0, 0, 96, 0,
     L"Example host: tactile mode, as chosen last [a number]"},
    {97, kExampleUi, L"TactileFilterSelection", kInteger0, 0, 97, 0,
     L"Example host: tactile filter, as chosen last [a number]"},
    {98, kExampleUi, L"TactileTimeStep_ms", kInteger0, 0, 98, 0,
     L"Example host: time between two tactile points [a time in milliseconds]"},
    {99, kExampleUi, L"TactileDistanceStep_um", kInteger0, 0, 99, 0,
     L"Example host: distance between two tactile points [a length in micrometres]"},
    {106, kExampleUi, L"EnableStartStopButton", kBoolean, 0, 106, 0,
     L"Example host: show the buttons that start and stop [true|false]"},
    {109, kExampleUi, L"EnableShowDriverProperties", kBoolean, 0, 109, 0,
     L"Example host: show the button of the driver properties [true|false]"},
    {110, kExampleUi, L"EnableLogTimestamps", kBoolean, 0, 110, 0,
     L"Example host: put the time before every line of its log [true|false]"},
    {131, kExampleUi, L"EnablePlateQualificationOffline", kBoolean, 0, 131, 0,
     L"Example host: offer the offline plate qualification [true|false]"},
    {107, kExampleDriverDialog, L"DriverInternalName", kString, 0, 107, 0,
     L"Example host, driver configuration: internal name of the driver [a name]"},
    {108, kExampleDriverDialog, L"DeviceInternalName", kString, 0, 108, 0,
     L"Example host, driver configuration: internal name of the device [a name]"},
    {113, kExampleDriverDialog, L"DriverFunctionName", kString, 0, 113, 0,
     L"Example host, driver configuration: the function that is called [a name]"},
    {114, kExampleDriverDialog, L"Argument", kString, 0, 114, 0,
     L"Example host, driver configuration: the argument of the function [a text]"},
    {115, kExampleDriverDialog, L"Second_HXAPI_instance", kBoolean, 0, 115, 0,
     L"Example host, driver configuration: use a second instance of the scanner API [true|false]"},
    {137, kExampleMachineUi, L"QualificationPatchOrder", kString, 0, 137, 0,
     L"Example host: the order of the patches of a qualification [a list of patches]"},
    {86, kTrayDataService, L"ShowEvents", kBoolean, 0, 86, 0,
     L"Tray program: show the events of the data service [true|false]"},
    {87, kTrayDataService, L"ShowErrors", kBoolean, 0, 87, kCreate,
     L"Tray program: show the errors of the data service [true|false]"},
    {166, kTrayDataService, L"ShowHiddenDevices", kBoolean, 0, 166, 0,
     L"Tray program: show hidden devices too [true|false]"},
    {176, kTray, L"MaxShownToasts", kInteger1, 0, 176, 0,
     L"Tray program: notices that are shown at most at a time [a number]"},
    {167, kTrayMachine, L"Language", kString, 0, 167, 0,
     L"Tray program: the language of its texts [a locale name]"},
    {168, kTrayMachine, L"SignalStrengthUnitTest", kBoolean, 0, 168, 0,
     L"Tray program: test the display of the signal strength [true|false]"},
    {152, kOfflineQualification, L"SphereFacetConfigurationXml", kString, 0, 152, 0,
     L"Offline qualification: configuration of the sphere facet [an XML text]"},
};

}  // namespace Orvel::RegistryKeys

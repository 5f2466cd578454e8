// The keys that an installer or an outside service writes, and those that go with an installation.
// A part of the table of MRegistryKeyLib.
#pragma once

#include "core/keys/RegistryKeyRow.h"

namespace Orvel::RegistryKeys {

// Written by the outside maker's service, below its own company key.
inline constexpr RegistryKeyPlace kDataService{kMachine, L"RDS\\General", kRomer};
inline constexpr RegistryKeyPlace kDataServiceFolders{kMachine, L"RDS\\Directories", kRomer};
inline constexpr RegistryKeyPlace kInstallation{kMachine, L"HXAPI4\\InstallConfiguration"};
inline constexpr RegistryKeyPlace kSounds{kMachine, L"HXAPI4\\Sounds"};
inline constexpr RegistryKeyPlace kUndoFiles{kMachine, L"HXAPI4\\PrismUndoFiles"};

inline constexpr RegistryKeyRow kInstallationKeys[] = {
    {0, kDataService, L"RDS Version", kString, 2, 0, kView32,
     L"Measuring arm data service: the version of the service [a version]"},
    {1, kDataServiceFolders, L"LogFiles", kString, 2, 1, kView32,
     L"Measuring arm data service: the folder of its log files [a folder]"},
    {156, kInstallation, L"InstallationType", kString, 2, 156, 0,
     L"Installation: the kind of installation that was chosen [a name]"},
    {157, kInstallation, L"InstallationDirectory", kString, 2, 157, 0,
     L"Installation: the folder that the suite is installed in [a folder]"},
    {158, kInstallation, L"InstalledVersion", kString, 2, 158, 0,
     L"Installation: the version that is installed [a version]"},
    {4, kSounds, L"QualificationSound", kString, 0, 4, 0,
     L"Sounds: the sound that goes with a qualification [a sound file]"},
    {5, kSounds, L"SoundBlip", kString, 0, 5, 0, L"Sounds: the short sound of a single event [a sound file]"},
    {6, kSounds, L"SoundSuccess", kString, 0, 6, 0, L"Sounds: the sound of success [a sound file]"},
    {3, kUndoFiles, L"activate", kBoolean, 0, 3, 0,
     L"Undo files: keep files with which a step can be undone [true|false]"},
};

}  // namespace Orvel::RegistryKeys

// What a settings page reads of the way in which its scanner scans whatever the profile is. A page keeps the
// record, changes what is its own and gives all of it back, by ScannerSession::ApplyGlobalScanningSettings.
// On the thread of the user interface.
#pragma once

#include "controls/editor/SettingsPage.h"
#include "hxapi/MGlobalScanningSettings.h"

namespace hx {

// Those of the configured device. Throws "GetGlobalScanningSettings".
MGlobalScanningSettings ScanningSettingsOf(SettingsPage& page, MErrorLocation& location);
// Throws "GetFovManagementConfig".
FovManagementConfig FieldOfViewConfigOf(SettingsPage& page, MErrorLocation& location);

}  // namespace hx

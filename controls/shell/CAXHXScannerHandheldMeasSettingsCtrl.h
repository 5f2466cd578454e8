// The control of the page for handheld scanners. Made by its class; on the thread of the user interface.
#pragma once

#include "controls/handheld/CHandheldMeasSettingsDlg.h"
#include "controls/shell/ConfigCtrl.h"

namespace hx {

extern const ui::FullControlClass kHandheldMeasSettingsCtrlClass;

using CAXHXScannerHandheldMeasSettingsCtrl =
    ConfigCtrl<CHandheldMeasSettingsDlg, kHandheldMeasSettingsCtrlClass>;
extern template class ConfigCtrl<CHandheldMeasSettingsDlg, kHandheldMeasSettingsCtrlClass>;

}  // namespace hx

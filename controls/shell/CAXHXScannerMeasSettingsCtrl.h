// The control of the measurement settings' page. Made by its class; on the thread of the user interface.
#pragma once

#include "controls/measurement/CMeasSettingsDlg.h"
#include "controls/shell/ConfigCtrl.h"

namespace hx {

extern const ui::FullControlClass kMeasSettingsCtrlClass;

using CAXHXScannerMeasSettingsCtrl = ConfigCtrl<CMeasSettingsDlg, kMeasSettingsCtrlClass>;
extern template class ConfigCtrl<CMeasSettingsDlg, kMeasSettingsCtrlClass>;

}  // namespace hx

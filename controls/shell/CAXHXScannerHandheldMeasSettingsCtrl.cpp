#include "controls/shell/CAXHXScannerHandheldMeasSettingsCtrl.h"

#include "controls/shell/PageControlClass.h"

namespace hx {

constinit const ui::FullControlClass kHandheldMeasSettingsCtrlClass = PageControlClass(
    CLSID_HXScannerHandheldMeasSettingsCtrl, L"HXScannerMeasSettingsCtrls Control", {726, 413});

template class ConfigCtrl<CHandheldMeasSettingsDlg, kHandheldMeasSettingsCtrlClass>;

}  // namespace hx

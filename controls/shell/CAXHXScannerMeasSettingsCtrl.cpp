#include "controls/shell/CAXHXScannerMeasSettingsCtrl.h"

#include "controls/shell/PageControlClass.h"

namespace hx {

constinit const ui::FullControlClass kMeasSettingsCtrlClass =
    PageControlClass(CLSID_HXScannerMeasSettingsCtrl, L"HXScannerMeasSettingsCtrls Control", {726, 413});

template class ConfigCtrl<CMeasSettingsDlg, kMeasSettingsCtrlClass>;

}  // namespace hx

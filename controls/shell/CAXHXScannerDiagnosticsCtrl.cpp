#include "controls/shell/CAXHXScannerDiagnosticsCtrl.h"

#include "controls/shell/PageControlClass.h"

namespace hx {

constinit const ui::FullControlClass kDiagnosticsCtrlClass =
    PageControlClass(CLSID_HXScannerDiagnosticsCtrl, L"HXScanner Diagnostics Control", {420, 241});

template class ConfigCtrl<CDiagnosticsDlg, kDiagnosticsCtrlClass>;

}  // namespace hx

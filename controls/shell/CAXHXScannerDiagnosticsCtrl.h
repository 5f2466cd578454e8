// The control of the diagnostics page. Made by its class; on the thread of the user interface.
#pragma once

#include "controls/diagnostics/CDiagnosticsDlg.h"
#include "controls/shell/ConfigCtrl.h"

namespace hx {

extern const ui::FullControlClass kDiagnosticsCtrlClass;

using CAXHXScannerDiagnosticsCtrl = ConfigCtrl<CDiagnosticsDlg, kDiagnosticsCtrlClass>;
extern template class ConfigCtrl<CDiagnosticsDlg, kDiagnosticsCtrlClass>;

}  // namespace hx

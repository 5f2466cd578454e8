#include "server/CHXScannerCtrlsApp.h"

#include "controls/shell/ControlFactories.h"
#include "core/log/LoggingValues.h"
#include "platform/module/this_module.h"

namespace hx {

CHXScannerCtrlsApp::CHXScannerCtrlsApp() noexcept
    : m_diagnostics(L"HXScannerCtrls", kLoggingKeyPath, &ThisModuleVersion),
      m_controls(ControlFactoryRows()) {}

HRESULT CHXScannerCtrlsApp::GetClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
    m_diagnostics.SetInUse(true);
    const HRESULT found = m_settings.GetClassObject(clsid, iid, object);
    return found == S_OK ? found : m_controls.GetClassObject(clsid, iid, object);
}

HRESULT CHXScannerCtrlsApp::CanUnloadNow() noexcept {
    const HRESULT result = m_settings.CanUnloadNow();
    m_diagnostics.SetInUse(result != S_OK);
    return result;
}

HRESULT CHXScannerCtrlsApp::UpdateRegistry(RegistrationAction action) noexcept {
    m_diagnostics.SetInUse(true);
    const HRESULT result = UpdateLibraryRegistration(action);
    // Nothing was handed out: whoever came for this alone may unload the library without a question.
    CanUnloadNow();
    return result;
}

}  // namespace hx

#include "server/CHXScannerCtrlsApp.h"

#include "controls/shell/ControlFactories.h"
#include "core/log/LoggingValues.h"
#include "platform/module/this_module.h"

namespace hx {

CHXScannerCtrlsApp::CHXScannerCtrlsApp() noexcept
    : m_diagnostics(L"HXScannerCtrls", kLoggingKeyPath, &ThisModuleVersion),
      m_controls(ControlFactoryRows()) {}

HRESULT CHXScannerCtrlsApp::GetClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept {
    const HRESULT result = Enter([&] {
        const HRESULT found = m_settings.GetClassObject(clsid, iid, object);
        return found == S_OK ? found : m_controls.GetClassObject(clsid, iid, object);
    });
    // Nothing was handed out: whoever came for this alone may unload the library without a question.
    if (FAILED(result)) CanUnloadNow();
    return result;
}

HRESULT CHXScannerCtrlsApp::CanUnloadNow() noexcept {
    const std::lock_guard guard(m_mutex);
    const HRESULT result = m_settings.CanUnloadNow();
    m_diagnostics.SetInUse(result != S_OK);
    return result;
}

HRESULT CHXScannerCtrlsApp::UpdateRegistry(RegistrationAction action) noexcept {
    const HRESULT result = Enter([&] { return UpdateLibraryRegistration(action); });
    CanUnloadNow();
    return result;
}

template <class Call>
HRESULT CHXScannerCtrlsApp::Enter(Call call) noexcept {
    const ModuleLock counted;
    CanUnloadNow();
    return call();
}

}  // namespace hx

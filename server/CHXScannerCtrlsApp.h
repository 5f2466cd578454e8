// The application object: one static object, which starts the library while it is loaded, with its log and
// its event store, and ends it while it is unloaded. The entry points lead here. Any thread.
#pragma once

#include <mutex>

#include "core/log/MModuleDiagnostics.h"
#include "server/SettingsClasses.h"
#include "server/registration/LibraryRegistration.h"

namespace hx {

class CHXScannerCtrlsApp {
public:
    CHXScannerCtrlsApp() noexcept;

    // A class factory of this library, [caller owns]: of a settings class, or else whatever the factories of
    // the controls say. CLASS_E_CLASSNOTAVAILABLE for a class that is not here or an interface that its
    // factory lacks; E_POINTER. `*object` is null on failure.
    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) noexcept;
    // S_OK when nothing of this library is alive any more, else S_FALSE.
    HRESULT CanUnloadNow() noexcept;
    // Enters the library in the registry of the machine, or removes it from there; the results are those of
    // LibraryRegistration.h.
    HRESULT UpdateRegistry(RegistrationAction action) noexcept;

private:
    // What the call returns. Until it does it is counted as alive itself, so no other thread finds the
    // library unused between the call's beginning and what it hands out.
    template <class Call>
    HRESULT Enter(Call call) noexcept;

    std::mutex m_mutex;                // for counting, and telling the diagnostics of it, in one
    MModuleDiagnostics m_diagnostics;  // outlives the others, which may log
    SettingsClasses m_settings;
    ModuleClasses m_controls;
};

}  // namespace hx

// The library's entry points; what they do stands in CHXScannerCtrlsApp.h. Any thread.
#include "server/CHXScannerCtrlsApp.h"
#include "server/TypeLibrary.h"

namespace {

hx::CHXScannerCtrlsApp g_app;

const hx::ModuleTypes g_types(hx::kTypeLibrary);

}  // namespace

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return g_app.GetClassObject(clsid, iid, object);
}

STDAPI DllCanUnloadNow() {
    return g_app.CanUnloadNow();
}

STDAPI DllRegisterServer() {
    return g_app.UpdateRegistry(hx::RegistrationAction::kRegister);
}

STDAPI DllUnregisterServer() {
    return g_app.UpdateRegistry(hx::RegistrationAction::kUnregister);
}

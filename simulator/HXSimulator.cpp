// The simulator's entry points and its class table.
#include "hxapi/HXSimulatorClasses.h"
#include "platform/com/class_table.h"
#include "platform/module/this_module.h"
#include "platform/registry/class_registration.h"
#include "simulator/api/ApiObject.h"
#include "simulator/api/InitialiserObject.h"
#include "simulator/api/RecorderObject.h"
#include "simulator/threads/RetiredThreads.h"

namespace {

using namespace hx::simulator;

constexpr hx::ClassRow kClasses[] = {
    {CLSID_HXSimulator, kProgIdHXSimulator, L"Orvel.HXSimulator.HXApi", L"HXSimulator",
     L"Simulated scanner API", L"Both", &hx::CreateObject<ApiObject>},
    {CLSID_HXSimulatorCtrlsInitialiser, kProgIdCtrlsInitialiser, L"Orvel.Ctrls.CtrlsInitialiser",
     L"CtrlsInitialiser", L"Initialiser of controls for the simulated scanner API", L"Both",
     &hx::CreateObject<InitialiserObject>},
    {CLSID_HXSimulatorReplayCapture, kProgIdReplayCapture, L"Orvel.ReplayCapture", L"ReplayCapture",
     L"Recorder of the simulated scanner's tracking data", L"Both", &hx::CreateObject<RecorderObject>},
};

hx::ModuleClasses& Classes() {
    static hx::ModuleClasses classes(kClasses);
    return classes;
}

HRESULT UpdateRegistry(hx::RegistrationAction action) {
    return hx::AtBoundary(
        [&] { return hx::RegisterClassRows(kClasses, hx::ThisModule()->FileName(), action); });
}

}  // namespace

// A class factory of this library, [caller owns]. Any thread. CLASS_E_CLASSNOTAVAILABLE for a class that is
// not here or an interface that its factory lacks; E_POINTER.
STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    return Classes().GetClassObject(clsid, iid, object);
}

// S_OK when nothing of this library is alive any more, else S_FALSE. Any thread.
STDAPI DllCanUnloadNow() {
    const HRESULT result = Classes().CanUnloadNow();
    if (result == S_OK) JoinRetiredThreads();
    return result;
}

// The classes are entered in the registry of the machine, or removed. S_OK, SELFREG_E_CLASS, E_OUTOFMEMORY.
STDAPI DllRegisterServer() {
    return UpdateRegistry(hx::RegistrationAction::kRegister);
}

STDAPI DllUnregisterServer() {
    return UpdateRegistry(hx::RegistrationAction::kUnregister);
}

// The preview's entry points and its class table.
#include "hxapi/HXPreviewClasses.h"
#include "platform/com/class_table.h"
#include "platform/module/this_module.h"
#include "platform/registry/class_registration.h"
#include "preview/PreviewObject.h"

namespace {

constexpr hx::ClassRow kClasses[] = {
    {CLSID_HXPreview, kProgIdHXPreview, L"Orvel.HXPreview.FieldOfView", L"HXPreview",
     L"Field-of-view preview", L"Both", &hx::CreateObject<hx::preview::PreviewObject>},
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
    return Classes().CanUnloadNow();
}

// The classes are entered in the registry of the machine, or removed. S_OK, SELFREG_E_CLASS, E_OUTOFMEMORY.
STDAPI DllRegisterServer() {
    return UpdateRegistry(hx::RegistrationAction::kRegister);
}

STDAPI DllUnregisterServer() {
    return UpdateRegistry(hx::RegistrationAction::kUnregister);
}

// The library's entry points and its class table: one row per component class, from which the class objects,
// the listing and the tests of all classes follow. Its log and event store live as long as it is loaded.
#include "controls/shell/CAXHXScannerDiagnosticsCtrl.h"
#include "controls/shell/CAXHXScannerHandheldMeasSettingsCtrl.h"
#include "controls/shell/CAXHXScannerMeasSettingsCtrl.h"
#include "controls/shell/CAXHXScannerMeasSettingsPropPage.h"
#include "core/log/LoggingValues.h"
#include "core/log/MModuleDiagnostics.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/com/class_table.h"
#include "platform/module/this_module.h"
#include "server/CCoMHXConnSettings.h"
#include "server/CCoMHXMeasSettings.h"
#include "server/CCoMHXSettingsFactory.h"
#include "server/TypeLibrary.h"

namespace {

hx::MModuleDiagnostics g_diagnostics(L"HXScannerCtrls", hx::kLoggingKeyPath, &hx::ThisModuleVersion);

const hx::ModuleTypes g_types(hx::kTypeLibrary);

constexpr hx::ClassRow kClasses[] = {
    {CLSID_CoMHXMeasSettings, kProgIdHXMeasSettings, L"Orvel.HXScannerCtrls.HXMeasSettings",
     L"CoMHXMeasSettings", L"CoMHXMeasSettings Class", L"", &hx::CreateObject<hx::CCoMHXMeasSettings>},
    {CLSID_CoMHXSettingsFactory, kProgIdHXSettingsFactory, L"Orvel.HXScannerCtrls.HXSettingsFactory",
     L"CoMHXSettingsFactory", L"CoMHXSettingsFactory Class", L"Both",
     &hx::CreateObject<hx::CCoMHXSettingsFactory>},
    {CLSID_CoMHXConnSettings, kProgIdHXConnSettings, L"Orvel.HXScannerCtrls.HXConnSettings",
     L"CoMHXConnSettings", L"CoMHXConnSettings Class", L"", &hx::CreateObject<hx::CCoMHXConnSettings>},
    {CLSID_HXScannerMeasSettingsCtrl, kProgIdHXMeasSettingsCtrl, L"", L"HXScannerMeasSettingsCtrl",
     L"HXScannerMeasSettingsCtrls Control", L"Apartment",
     &hx::CreateObject<hx::CAXHXScannerMeasSettingsCtrl>},
    {CLSID_HXScannerHandheldMeasSettingsCtrl, kProgIdHXHandheldMeasSettingsCtrl, L"",
     L"HXScannerHandheldMeasSettingsCtrl", L"HXScannerMeasSettingsCtrls Control", L"Apartment",
     &hx::CreateObject<hx::CAXHXScannerHandheldMeasSettingsCtrl>},
    {CLSID_HXScannerDiagnosticsCtrl, kProgIdHXDiagnosticsCtrl, L"", L"HXScannerDiagnosticsCtrl",
     L"HXScanner Diagnostics Control", L"Apartment", &hx::CreateObject<hx::CAXHXScannerDiagnosticsCtrl>},
    {CLSID_HXScannerMeasSettingsPropPage, kProgIdHXMeasSettingsPropPage, L"", L"",
     L"HXScannerMeasSettings Property Page", L"", &hx::CreateObject<hx::CAXHXScannerMeasSettingsPropPage>},
};

hx::ModuleClasses& Classes() {
    static hx::ModuleClasses classes(kClasses);
    return classes;
}

}  // namespace

// A class factory of this library, [caller owns]. Any thread. CLASS_E_CLASSNOTAVAILABLE for a class that is
// not here or an interface that its factory lacks; E_POINTER.
STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, void** object) {
    g_diagnostics.SetInUse(true);
    return Classes().GetClassObject(clsid, iid, object);
}

// S_OK when nothing of this library is alive any more, else S_FALSE. Any thread.
STDAPI DllCanUnloadNow() {
    const HRESULT result = Classes().CanUnloadNow();
    g_diagnostics.SetInUse(result != S_OK);
    return result;
}

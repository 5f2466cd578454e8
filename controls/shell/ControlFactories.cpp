#include "controls/shell/ControlFactories.h"

#include <iterator>
#include <string>

#include "controls/shell/CAXHXScannerDiagnosticsCtrl.h"
#include "controls/shell/CAXHXScannerHandheldMeasSettingsCtrl.h"
#include "controls/shell/CAXHXScannerMeasSettingsCtrl.h"
#include "controls/shell/CAXHXScannerMeasSettingsPropPage.h"
#include "controls/shell/PageControlClass.h"
#include "platform/registry/class_registration.h"

namespace hx {
namespace {

constexpr uint32_t kStringSettingsControl = 1;
constexpr uint32_t kStringPropertyPage = 3;
constexpr uint32_t kStringDiagnosticsControl = 29;
constexpr uint32_t kToolboxBitmap = 2;
constexpr std::wstring_view kTypeLibraryVersion = L"1.0";

// `write` enters the class under the name that the string resource gives it.
template <class Write>
HRESULT Update(const ClassRow& row, uint32_t name, const FactoryRegistration& registration, Write write) {
    ClassRegistration of = {row.clsid, row.prog_id,          row.version_independent_prog_id,
                            L"",       registration.library, row.threading_model};
    if (registration.action == RegistrationAction::kUnregister)
        return DeleteClassRegistration(registration.registry, of, registration.error);
    const std::wstring* const type_name = registration.module.String(name);
    if (type_name == nullptr) {
        registration.error = {0, L"there is no string " + std::to_wstring(name)};
        return E_FAIL;
    }
    of.description = *type_name;
    return write(of);
}

HRESULT UpdateControl(const ClassRow& row, uint32_t name, const FactoryRegistration& registration) {
    return Update(row, name, registration, [&](const ClassRegistration& of) {
        if (registration.module.Bitmap(kToolboxBitmap) == nullptr) {
            registration.error = {0, L"there is no bitmap " + std::to_wstring(kToolboxBitmap)};
            return E_FAIL;
        }
        return WriteControlRegistration(
            registration.registry, of,
            {kToolboxBitmap, kPageMiscStatus, LIBID_HXScannerCtrls, kTypeLibraryVersion}, registration.error);
    });
}

// Both controls of settings are entered alike, and so under one type name.
struct SettingsCtrlFactory {
    static HRESULT UpdateRegistry(const ClassRow& row, const FactoryRegistration& registration) {
        return UpdateControl(row, kStringSettingsControl, registration);
    }
};

struct CAXHXScannerMeasSettingsCtrlFactory : SettingsCtrlFactory {
    static constexpr ClassRow kRow = {CLSID_HXScannerMeasSettingsCtrl,
                                      kProgIdHXMeasSettingsCtrl,
                                      L"",
                                      L"HXScannerMeasSettingsCtrl",
                                      L"",
                                      L"Apartment",
                                      &CreateObject<CAXHXScannerMeasSettingsCtrl>};
};

struct CAXHXScannerHandheldMeasSettingsCtrlFactory : SettingsCtrlFactory {
    static constexpr ClassRow kRow = {CLSID_HXScannerHandheldMeasSettingsCtrl,
                                      kProgIdHXHandheldMeasSettingsCtrl,
                                      L"",
                                      L"HXScannerHandheldMeasSettingsCtrl",
                                      L"",
                                      L"Apartment",
                                      &CreateObject<CAXHXScannerHandheldMeasSettingsCtrl>};
};

struct CAXHXScannerDiagnosticsCtrlFactory {
    static constexpr ClassRow kRow = {CLSID_HXScannerDiagnosticsCtrl,
                                      kProgIdHXDiagnosticsCtrl,
                                      L"",
                                      L"HXScannerDiagnosticsCtrl",
                                      L"",
                                      L"Apartment",
                                      &CreateObject<CAXHXScannerDiagnosticsCtrl>};
    static HRESULT UpdateRegistry(const ClassRow& row, const FactoryRegistration& registration) {
        return UpdateControl(row, kStringDiagnosticsControl, registration);
    }
};

struct CAXHXScannerMeasSettingsPropPageFactory {
    static constexpr ClassRow kRow = {CLSID_HXScannerMeasSettingsPropPage,
                                      kProgIdHXMeasSettingsPropPage,
                                      L"",
                                      L"",
                                      L"",
                                      L"",
                                      &CreateObject<CAXHXScannerMeasSettingsPropPage>};
    static HRESULT UpdateRegistry(const ClassRow& row, const FactoryRegistration& registration) {
        return Update(row, kStringPropertyPage, registration, [&](const ClassRegistration& of) {
            return WriteClassRegistration(registration.registry, of, registration.error);
        });
    }
};

constexpr ClassRow kRows[] = {
    CAXHXScannerMeasSettingsCtrlFactory::kRow,
    CAXHXScannerHandheldMeasSettingsCtrlFactory::kRow,
    CAXHXScannerDiagnosticsCtrlFactory::kRow,
    CAXHXScannerMeasSettingsPropPageFactory::kRow,
};

constexpr ControlFactory kFactories[] = {
    {kRows[0], &CAXHXScannerMeasSettingsCtrlFactory::UpdateRegistry},
    {kRows[1], &CAXHXScannerHandheldMeasSettingsCtrlFactory::UpdateRegistry},
    {kRows[2], &CAXHXScannerDiagnosticsCtrlFactory::UpdateRegistry},
    {kRows[3], &CAXHXScannerMeasSettingsPropPageFactory::UpdateRegistry},
};
static_assert(std::size(kFactories) == std::size(kRows));

}  // namespace

std::span<const ControlFactory> ControlFactories() {
    return kFactories;
}

std::span<const ClassRow> ControlFactoryRows() {
    return kRows;
}

}  // namespace hx

#include "server/registration/RegistrationSteps.h"

#include <span>

#include "controls/shell/ControlFactories.h"
#include "hxapi/HXScannerCtrlsClasses.h"
#include "platform/registry/type_library_registration.h"
#include "server/SettingsClasses.h"
#include "server/TypeLibrary.h"

namespace hx {
namespace {

constexpr uint32_t kApplicationScript = 103;
constexpr uint32_t kComponentsScript = 202;

HRESULT RunScript(RegistrationRun& run, uint32_t id, std::span<const RegistrationReplacement> replacements) {
    run.resource = id;
    const std::wstring* const script = run.module.Registration(id);
    if (script == nullptr) {
        run.error = {0, L"there is no such script"};
        return E_FAIL;
    }
    return RunRegistrationScript(run.registry, *script, replacements, run.action, run.error);
}

HRESULT RunScriptOf(const SettingsClass& each, RegistrationRun& run) {
    const RegistrationReplacement replacements[] = {{L"MODULE", run.library}};
    return RunScript(run, each.registration_script, replacements);
}

HRESULT UpdateCategoriesOf(const SettingsClass& each, RegistrationRun& run) {
    return RegisterCategories(run.registry, each.row.clsid, each.categories, run.action, run.error);
}

}  // namespace

HRESULT RunApplicationScript(RegistrationRun& run) {
    const std::wstring application = GuidToText(APPID_HXScannerCtrls);
    const RegistrationReplacement replacements[] = {{L"APPID", application}};
    return RunScript(run, kApplicationScript, replacements);
}

HRESULT UpdateSettingsClasses(RegistrationRun& run) {
    const bool is_registering = run.action == RegistrationAction::kRegister;
    for (const SettingsClass& each : SettingsClasses::List()) {
        HRESULT result = is_registering ? RunScriptOf(each, run) : UpdateCategoriesOf(each, run);
        if (SUCCEEDED(result))
            result = is_registering ? UpdateCategoriesOf(each, run) : RunScriptOf(each, run);
        if (FAILED(result)) return result;
    }
    return S_OK;
}

HRESULT UpdateTypeLibrary(RegistrationRun& run) {
    const std::wstring version =
        std::to_wstring(kTypeLibrary.major_version) + L"." + std::to_wstring(kTypeLibrary.minor_version);
    const TypeLibraryRegistration of = {kTypeLibrary.libid, version, kTypeLibrary.description, run.library};
    return run.action == RegistrationAction::kRegister
               ? WriteTypeLibraryRegistration(run.registry, of, run.error)
               : DeleteTypeLibraryRegistration(run.registry, of, run.error);
}

HRESULT UpdateControls(RegistrationRun& run) {
    const FactoryRegistration registration = {run.registry, run.action, run.module, run.library, run.error};
    for (const ControlFactory& factory : ControlFactories()) {
        const HRESULT result = factory.update_registry(factory.row, registration);
        if (FAILED(result)) return result;
    }
    return S_OK;
}

HRESULT RunComponentsScript(RegistrationRun& run) {
    return RunScript(run, kComponentsScript, {});
}

}  // namespace hx

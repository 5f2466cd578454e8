#include "server/registration/LibraryRegistration.h"

#include "core/log/HexText.h"
#include "core/log/ModuleLogger.h"
#include "platform/com/boundary.h"
#include "platform/com/errorinfo.h"
#include "platform/module/this_module.h"
#include "platform/registry/registration_keys.h"
#include "server/registration/RegistrationSteps.h"

namespace hx {
namespace {

// What a failure of a step is to the caller, if it is no code that stands for it.
constexpr HRESULT kItsOwn = S_FALSE;
constexpr HRESULT kIgnored = S_OK;

struct Step {
    std::wstring_view name;
    HRESULT (*run)(RegistrationRun& run);
    HRESULT failure;
};

// The type library is entered twice, once for the machine and once for what hosts controls: in the same keys,
// but with a code of its own.
constexpr Step kSteps[] = {
    {L"application", &RunApplicationScript, kIgnored},
    {L"settings classes", &UpdateSettingsClasses, kItsOwn},
    {L"type library", &UpdateTypeLibrary, kItsOwn},
    {L"type library of the controls", &UpdateTypeLibrary, SELFREG_E_TYPELIB},
    {L"controls and property page", &UpdateControls, SELFREG_E_CLASS},
    {L"place of components", &RunComponentsScript, kItsOwn},
};

// In English: for the log, and for whoever installs the library.
std::wstring FailureText(const Step& step, const RegistrationRun& run, HRESULT result) {
    std::wstring text = run.action == RegistrationAction::kRegister ? L"Registering " : L"Unregistering ";
    text.append(run.library).append(L", ").append(step.name);
    if (run.resource != 0) text += L", script " + std::to_wstring(run.resource);
    if (run.error.line != 0) text += L", line " + std::to_wstring(run.error.line);
    if (!run.error.text.empty()) text += L": " + run.error.text;
    return text.append(L" (0x").append(HexText(static_cast<uint32_t>(result)).View()).append(L")");
}

void Tell(const Step& step, const RegistrationRun& run, HRESULT result) noexcept {
    // Without memory for the words an older failure's must not pass for this one's.
    SetErrorInfo(0, nullptr);
    AtBoundary([&] {
        const std::wstring text = FailureText(step, run, result);
        ModuleLogger().Log(
            {MLogSeverity::kError, "LibraryRegistration", 49, "UpdateLibraryRegistration", text});
        LeaveErrorInfo(L"HXScannerCtrls", text);
        return S_OK;
    });
}

HRESULT TakeStep(const Step& step, RegistrationRun& run) {
    run.resource = 0;
    run.error = {};
    const HRESULT result = AtBoundary([&] { return step.run(run); });
    if (SUCCEEDED(result) || step.failure == kIgnored) return S_OK;
    Tell(step, run, result);
    return step.failure == kItsOwn ? result : step.failure;
}

}  // namespace

HRESULT UpdateLibraryRegistration(RegistrationAction action) noexcept {
    return AtBoundary([&] {
        const ModuleHandle module = ThisModule();
        const std::shared_ptr<IRegistry> registry = Registry();
        RegistrationRun run = {*registry, action, *module, RegisteredPath(module->FileName())};
        if (run.library.empty() && action == RegistrationAction::kRegister) {
            run.error.text = L"the library lies where only a path that is no UTF-8 leads";
            Tell({L"path", nullptr, kItsOwn}, run, E_FAIL);
            return E_FAIL;
        }
        for (const Step& step : kSteps) {
            const HRESULT result = TakeStep(step, run);
            if (FAILED(result)) return result;
        }
        return S_OK;
    });
}

}  // namespace hx

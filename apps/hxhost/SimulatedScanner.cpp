#include "apps/hxhost/SimulatedScanner.h"

#include <algorithm>
#include <iterator>
#include <nlohmann/json.hpp>

#include "hxapi/HXSimulatorClasses.h"
#include "platform/com/loader.h"
#include "platform/com/text_array.h"
#include "platform/system/utf8.h"

namespace hxhost {
namespace {

using Getter = HRESULT (STDMETHODCALLTYPE IHXSimulator::*)(SAFEARRAY**);

// What a page calls from its beginning to its end.
constexpr std::wstring_view kUsual[] = {
    L"ActivateDynamicSettings",
    L"AcquireHandle",
    L"InitialiseScanner",
    L"ActivateGlobalScanningSettings",
    L"RegisterTrackingCycleObserver",
    L"DetectExposureTime",
    L"DetectLaserPower",
    L"SaveDynamicSettingsPresets",
    L"DisableScanner",
    L"ReleaseHandle",
};

std::vector<std::wstring> TextsFrom(IHXSimulator& simulator, Getter getter) {
    hx::SafeArray array;
    if (FAILED((simulator.*getter)(array.put()))) return {};
    return hx::TextsOf(array.get()).value_or(std::vector<std::wstring>());
}

}  // namespace

HRESULT SimulatedScanner::Create(const std::wstring& locale) {
    CLSID clsid;
    HRESULT result = CLSIDFromProgID(kProgIdHXSimulator, &clsid);
    if (SUCCEEDED(result)) {
        result = CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<IHXSimulator>(),
                                  m_simulator.put_void());
    }
    return SUCCEEDED(result) ? m_simulator->SetLocale(hx::Bstr(locale).get()) : result;
}

std::vector<std::wstring> SimulatedScanner::Models() const {
    return TextsFrom(*m_simulator, &IHXSimulator::GetModels);
}

std::vector<std::wstring> SimulatedScanner::Surfaces() const {
    return TextsFrom(*m_simulator, &IHXSimulator::GetSurfaces);
}

std::vector<std::wstring> SimulatedScanner::Operations() const {
    std::vector<std::wstring> operations = TextsFrom(*m_simulator, &IHXSimulator::GetOperations);
    for (std::wstring& operation : operations) operation.erase(0, operation.find(L'.') + 1);
    const auto place = [](const std::wstring& operation) {
        return std::pair(std::ranges::find(kUsual, operation) - std::begin(kUsual), operation);
    };
    std::ranges::sort(operations, {}, place);
    operations.erase(std::unique(operations.begin(), operations.end()), operations.end());
    return operations;
}

HRESULT SimulatedScanner::SetModel(const std::wstring& model) {
    return m_simulator->SetModel(hx::Bstr(model).get());
}

std::wstring SimulatedScanner::Model() const {
    hx::Bstr model;
    m_simulator->GetModel(model.put());
    return std::wstring(model.view());
}

HRESULT SimulatedScanner::SetSurface(const std::wstring& surface) {
    return m_simulator->SetSurface(hx::Bstr(surface).get());
}

SimulatedScanner::Names SimulatedScanner::Device() const {
    hx::Bstr driver;
    hx::Bstr device;
    m_simulator->GetDevice(driver.put(), device.put());
    return {std::wstring(driver.view()), std::wstring(device.view())};
}

std::wstring SimulatedScanner::DisplayNameOf(const std::wstring& profile) const {
    const auto stored = m_simulator.as<IHXSimulatorPresets>();
    hx::Bstr json;
    if (!stored || FAILED(stored->ReadPresets(hx::Bstr(DeviceName()).get(), json.put()))) return profile;
    const auto read = nlohmann::json::parse(hx::ToUtf8(json.view()), nullptr, false);
    if (!read.is_object() || !read.contains("presets")) return profile;
    const std::string wanted = hx::ToUtf8(profile);
    for (const nlohmann::json& preset : read["presets"]) {
        if (preset.value("name", "") != wanted) continue;
        const auto name = hx::FromUtf8(preset.value("displayName", ""));
        return name && !name->empty() ? *name : profile;
    }
    return profile;
}

HRESULT SimulatedScanner::Inject(const Fault& fault) {
    const hx::Bstr operation(fault.operation);
    const hx::Bstr text(fault.text);
    HXSimulatorFault injected{};
    injected.operation = operation.get();
    injected.result = fault.result;
    injected.times = fault.times;
    injected.delay_ms = fault.delay_ms;
    injected.hang_up = fault.hang_up ? TRUE : FALSE;
    // As the message of a chain, which is what pages show of a failure.
    const hx::Bstr code(L"Scanner.Simulated:ToldToFail");
    if (!fault.text.empty()) {
        injected.chain_code = code.get();
        injected.text = text.get();
    }
    return m_simulator->InjectFault(&injected);
}

std::string SimulatedScanner::TakeCalls() {
    hx::Bstr calls;
    if (FAILED(m_simulator->TakeCalls(calls.put()))) return "[]";
    return hx::ToUtf8(calls.view());
}

}  // namespace hxhost

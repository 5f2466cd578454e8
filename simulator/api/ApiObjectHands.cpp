// The hands on cable, switch and surface: what a simulated scanner API has beyond a real one.
#include "platform/com/text_array.h"
#include "simulator/api/ApiObject.h"
#include "simulator/calls/JsonSyntax.h"
#include "simulator/calls/TextAcross.h"

namespace hx::simulator {
namespace {

// Runs what gives an array of texts.
template <class Collect>
HRESULT GiveTexts(SAFEARRAY** array, const Collect& collect) {
    if (array == nullptr) return E_POINTER;
    *array = nullptr;
    return AtBoundary([&] {
        std::vector<std::wstring> texts;
        collect(texts);
        *array = TextArray(texts).detach();
        return S_OK;
    });
}

}  // namespace

HRESULT ApiObject::GetModels(SAFEARRAY** models) {
    return GiveTexts(models, [](auto& texts) {
        for (const ScannerModel& each : ScannerModels()) texts.emplace_back(each.name);
    });
}

HRESULT ApiObject::SetModel(BSTR model) {
    return AtBoundary([&] { return m_simulator->SetModel(TextOf(model)); });
}

HRESULT ApiObject::GetModel(BSTR* model) {
    if (model) *model = nullptr;
    return AtBoundary([&] { return GiveText(m_simulator->Model().name, model); });
}

HRESULT ApiObject::GetDevice(BSTR* driver_internal_name, BSTR* device_internal_name) {
    if (driver_internal_name) *driver_internal_name = nullptr;
    if (device_internal_name) *device_internal_name = nullptr;
    if (driver_internal_name == nullptr || device_internal_name == nullptr) return E_POINTER;
    return AtBoundary([&] {
        const ScannerModel& model = m_simulator->Model();
        Bstr driver{model.driver_internal_name};
        GiveText(model.device_internal_name, device_internal_name);
        *driver_internal_name = driver.detach();
        return S_OK;
    });
}

HRESULT ApiObject::SetConnectionState(int32_t state, BOOL raise) {
    return AtBoundary([&] {
        m_simulator->Connection()->SetState(state, raise != FALSE);
        return S_OK;
    });
}

HRESULT ApiObject::Connect() {
    return AtBoundary([&] {
        m_simulator->Connection()->Connect();
        return S_OK;
    });
}

HRESULT ApiObject::Disconnect() {
    return AtBoundary([&] {
        m_simulator->Connection()->Disconnect();
        return S_OK;
    });
}

HRESULT ApiObject::WaitForEvents() {
    return AtBoundary([&] { return m_simulator->Connection()->WaitForEvents(); });
}

HRESULT ApiObject::SetLocale(BSTR locale) {
    return AtBoundary([&] {
        m_simulator->SetLocale(TextOf(locale));
        return S_OK;
    });
}

HRESULT ApiObject::GetSurfaces(SAFEARRAY** surfaces) {
    return GiveTexts(surfaces, [](auto& texts) {
        for (const wchar_t* const each : Scanner::SurfaceNames()) texts.emplace_back(each);
    });
}

HRESULT ApiObject::SetSurface(BSTR surface) {
    return AtBoundary([&] { return m_simulator->SetSurface(TextOf(surface)); });
}

HRESULT ApiObject::SetPresetsFolder(BSTR folder) {
    return AtBoundary([&] {
        m_simulator->Presets().SetFolder(TextOf(folder));
        return S_OK;
    });
}

HRESULT ApiObject::ResetPresets(BSTR owner) {
    return AtBoundary([&] {
        try {
            m_simulator->Presets().Reset(TextOf(owner));
            return S_OK;
        } catch (const Refusal& refusal) {
            return refusal.result;
        }
    });
}

HRESULT ApiObject::InjectFault(const HXSimulatorFault* fault) {
    return AtBoundary([&] { return m_gate.Calls().Faults().Inject(fault); });
}

HRESULT ApiObject::ClearFaults() {
    return AtBoundary([&] {
        m_gate.Calls().Faults().Clear();
        return S_OK;
    });
}

HRESULT ApiObject::GetOperations(SAFEARRAY** operations) {
    return GiveTexts(operations, [](auto& texts) {
        for (const Operation& each : kOperations)
            texts.push_back(std::wstring(each.interface_name) + L'.' + std::wstring(each.name));
    });
}

HRESULT ApiObject::TakeCalls(BSTR* json) {
    if (json == nullptr) return E_POINTER;
    *json = nullptr;
    return AtBoundary([&] { return GiveText(m_gate.Calls().Log().Take(), json); });
}

HRESULT ApiObject::LogCall(BSTR on, BSTR operation, BSTR arguments) {
    return AtBoundary([&]() -> HRESULT {
        const std::wstring json = arguments ? TextOf(arguments) : L"[]";
        if (!IsJsonArray(json)) return E_INVALIDARG;
        m_gate.Calls().Log().Enter(TextOf(on), TextOf(operation), json, S_OK);
        return S_OK;
    });
}

HRESULT ApiObject::SetProperties(BSTR xml) {
    return AtBoundary([&] {
        std::optional<std::wstring> document;
        if (xml) document = TextOf(xml);
        m_simulator->SetProperties(std::move(document));
        return S_OK;
    });
}

}  // namespace hx::simulator

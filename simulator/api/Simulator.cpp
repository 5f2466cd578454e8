#include "simulator/api/Simulator.h"

#include "hxapi/HXApiErrors.h"
#include "hxapi/IHXApi.h"

namespace hx::simulator {

// The scanner, which is not replaced and whose users do not change meanwhile. What may end with this does so
// without the lock: the last of an observer may ask the simulator for something.
struct Simulator::Use {
    explicit Use(const Simulator& of) : guard(of.m_mutex) { scanner = of.TheScanner(); }

    std::shared_ptr<Scanner> scanner;
    ComPtr<ITrackingCycleObserver> old_observer;
    const std::lock_guard<std::mutex> guard;  // the last, and so released first
};

Simulator::Simulator(ComPtr<ConnectionPoint> listeners)
    : m_cable(
          std::make_shared<Cable>(std::move(listeners), std::make_shared<Scanner>(ScannerModels().front()))),
      m_presets(ScannerModels().front()) {}

bool Simulator::IsConnected() const {
    return m_cable->State() == HXConnected;
}

HRESULT Simulator::SetModel(std::wstring_view name) {
    const ScannerModel* const model = FindScannerModel(name);
    if (model == nullptr) return HX_E_NOTFOUND;
    const auto scanner = std::make_shared<Scanner>(*model);
    const Use old(*this);
    if (!m_surface.empty()) scanner->SetSurface(m_surface);
    const HRESULT replaced = m_cable->Replace(scanner);
    if (FAILED(replaced)) return replaced;
    m_initialised_by = nullptr;
    m_observed_by = nullptr;
    m_presets.SetModel(*model);
    return S_OK;
}

HRESULT Simulator::SetSurface(const std::wstring& name) {
    const Use now(*this);
    const HRESULT set = now.scanner->SetSurface(name);
    if (SUCCEEDED(set)) m_surface = name;
    return set;
}

std::wstring Simulator::Locale() const {
    const std::lock_guard guard(m_mutex);
    return m_locale;
}

void Simulator::SetLocale(std::wstring locale) {
    const std::lock_guard guard(m_mutex);
    m_locale.swap(locale);
}

std::wstring Simulator::Properties() const {
    {
        const std::lock_guard guard(m_mutex);
        if (m_properties) return *m_properties;
    }
    return PropertiesOf(Model());
}

void Simulator::SetProperties(std::optional<std::wstring> document) {
    const std::lock_guard guard(m_mutex);
    m_properties.swap(document);
}

bool Simulator::IsDevice(std::wstring_view internal_name) const {
    const ScannerModel& model = Model();
    return internal_name.empty() || internal_name == model.device_internal_name ||
           internal_name == model.driver_internal_name;
}

void Simulator::Initialise(const void* handle) {
    const Use now(*this);
    m_initialised_by = handle;
    now.scanner->Initialise();
}

void Simulator::Disable() {
    const Use now(*this);
    m_initialised_by = nullptr;
    now.scanner->Disable();
}

void Simulator::StopTrackingOf(const void* handle) {
    const Use now(*this);
    if (m_initialised_by != handle) return;
    m_initialised_by = nullptr;
    now.scanner->Disable();
}

void Simulator::Observe(const void* handle, ComPtr<ITrackingCycleObserver> observer) {
    if (!observer) return StopObservingFor(handle);
    Use now(*this);
    m_observed_by = handle;
    now.old_observer = now.scanner->SetObserver(std::move(observer));
}

void Simulator::StopObservingFor(const void* handle) {
    Use now(*this);
    if (m_observed_by != handle) return;
    m_observed_by = nullptr;
    now.old_observer = now.scanner->SetObserver(nullptr);
}

}  // namespace hx::simulator

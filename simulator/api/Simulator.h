// One simulated scanner API, as its objects share it: the scanner on its cable, the presets, the language. It
// lives as long as one of them. Any thread.
#pragma once

#include <optional>

#include "simulator/api/Cable.h"
#include "simulator/api/OwnerPresets.h"

namespace hx::simulator {

class Simulator {
public:
    explicit Simulator(ComPtr<ConnectionPoint> listeners);

    // To be held by whoever may cut it.
    const std::shared_ptr<Cable>& Connection() const { return m_cable; }
    std::shared_ptr<Scanner> TheScanner() const { return m_cable->AtItsEnd(); }
    const ScannerModel& Model() const { return TheScanner()->Model(); }
    bool IsConnected() const;
    OwnerPresets& Presets() { return m_presets; }

    // HX_E_NOTFOUND, E_UNEXPECTED while something is connected.
    HRESULT SetModel(std::wstring_view name);
    // HX_E_NOTFOUND.
    HRESULT SetSurface(const std::wstring& name);
    std::wstring Locale() const;
    void SetLocale(std::wstring locale);
    // The document that was set, else the model's.
    std::wstring Properties() const;
    void SetProperties(std::optional<std::wstring> document);

    // Whether that is the device of the simulator: its own name or its driver's, or no name at all.
    bool IsDevice(std::wstring_view internal_name) const;

    // For handles, which are told apart by their addresses. What a handle began ends when it lets go.
    void Initialise(const void* handle);
    void Disable();
    void Observe(const void* handle, ComPtr<ITrackingCycleObserver> observer);
    void StopTrackingOf(const void* handle);
    void StopObservingFor(const void* handle);

private:
    struct Use;

    const std::shared_ptr<Cable> m_cable;
    OwnerPresets m_presets;
    mutable std::mutex m_mutex;  // guards what follows
    std::wstring m_locale = L"en-US";
    std::optional<std::wstring> m_properties;
    std::wstring m_surface;  // empty for the scanner's own choice
    const void* m_initialised_by = nullptr;
    const void* m_observed_by = nullptr;
};

}  // namespace hx::simulator

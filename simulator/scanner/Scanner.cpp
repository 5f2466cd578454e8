#include "simulator/scanner/Scanner.h"

#include <thread>
#include <utility>

#include "hxapi/HXApiErrors.h"
#include "simulator/scanner/FrameRate.h"
#include "simulator/scanner/SignalSearch.h"
#include "simulator/scanner/TrackingLoop.h"
#include "simulator/threads/RetiredThreads.h"

namespace hx::simulator {

struct Scanner::State : TrackingState {
    using TrackingState::TrackingState;

    // Locked while a value of it is changed or copied.
    template <class Access>
    auto Locked(Access access) const {
        const std::lock_guard lock(mutex);
        return access();
    }
    // What may wake the thread.
    template <class Change>
    void Switch(Change change) {
        Locked(change);
        changed.notify_all();
    }

    std::thread thread;
};

Scanner::Scanner(const ScannerModel& model) : m_state(std::make_shared<State>(model)) {
    auto loop = std::make_unique<TrackingLoop>(m_state);
    m_state->thread = std::thread([loop = std::move(loop)] { loop->Run(); });
}

Scanner::~Scanner() {
    m_state->Switch([&] { m_state->ended = true; });
    SetObserver(nullptr);
    if (m_state->thread.get_id() == std::this_thread::get_id()) {
        Retire(std::move(m_state->thread));
    } else {
        m_state->thread.join();
    }
}

const ScannerModel& Scanner::Model() const {
    return m_state->model;
}

HRESULT Scanner::SetProfile(const MLaserProfileSettings& profile) {
    if (!Has(m_state->model, profile)) return E_INVALIDARG;
    return m_state->Locked([&] {
        m_state->profile = profile;
        m_state->UpdateOptics();
        ++m_state->profiles;
        return S_OK;
    });
}

MLaserProfileSettings Scanner::Profile() const {
    return m_state->Locked([&] { return m_state->profile; });
}

HRESULT Scanner::SetGlobal(const MGlobalScanningSettings& global) {
    if (!Has(m_state->model, global)) return E_INVALIDARG;
    return m_state->Locked([&] {
        m_state->global = global;
        m_state->UpdateOptics();
        ++m_state->areas_to_tell;
        return S_OK;
    });
}

MGlobalScanningSettings Scanner::Global() const {
    return m_state->Locked([&] { return m_state->global; });
}

HRESULT Scanner::SetSurface(std::wstring_view name) {
    const Surface* const surface = FindSurface(name);
    if (surface == nullptr) return HX_E_NOTFOUND;
    m_state->Locked([&] { m_state->surface = surface; });
    return S_OK;
}

std::span<const wchar_t* const> Scanner::SurfaceNames() {
    static const std::vector<const wchar_t*> names = [] {
        std::vector<const wchar_t*> all;
        for (const Surface& surface : Surfaces()) all.push_back(surface.name);
        return all;
    }();
    return names;
}

double Scanner::FrameRateHz() const {
    return m_state->Locked(
        [&] { return simulator::FrameRateHz(m_state->model, m_state->global, m_state->optics.exposure_us); });
}

int32_t Scanner::ExposureRows() const {
    return RowsOf(m_state->model, m_state->Locked([&] { return m_state->optics.exposure_us; }));
}

void Scanner::SetConnected(bool connected) {
    m_state->Switch([&] { m_state->connected = connected; });
}

void Scanner::Initialise() {
    m_state->Switch([&] {
        m_state->initialised = true;
        ++m_state->starts;
        m_state->cycle = 0;
    });
}

void Scanner::Disable() {
    m_state->Switch([&] { m_state->initialised = false; });
}

ComPtr<ITrackingCycleObserver> Scanner::SetObserver(ComPtr<ITrackingCycleObserver> observer) {
    m_state->Locked([&] {
        std::swap(m_state->observer, observer);
        ++m_state->areas_to_tell;
    });
    return observer;
}

namespace {

using SearchFunction = std::optional<double>(const ScannerModel&, const Surface&, uint64_t,
                                             const OpticalSettings&);

// On what the scanner sees at this moment.
HRESULT Detect(const TrackingState& state, SearchFunction* search, double& value) {
    std::unique_lock lock(state.mutex);
    const OpticalSettings optics = state.optics;
    const Surface& surface = *state.surface;
    const uint64_t cycle = state.cycle;
    lock.unlock();
    const std::optional<double> best = search(state.model, surface, cycle, optics);
    if (!best) return E_FAIL;
    value = *best;
    return S_OK;
}

}  // namespace

HRESULT Scanner::DetectExposure(double& exposure_us) const {
    return Detect(*m_state, &BestExposure, exposure_us);
}

HRESULT Scanner::DetectLaserPower(double& percent) const {
    return Detect(*m_state, &BestLaserPower, percent);
}

}  // namespace hx::simulator

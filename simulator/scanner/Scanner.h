// A simulated scanner: what is set on it, and the laser lines that it sees, which it tells on a thread of its
// own. Knows nothing of the interfaces of the scanner API but the observer's. Any thread; nothing waits for
// the tracking thread but the destructor.
#pragma once

#include <memory>

#include "hxapi/ITrackingCycleObserver.h"
#include "hxapi/MGlobalScanningSettings.h"
#include "platform/com/comptr.h"
#include "simulator/models/ScannerModel.h"

namespace hx::simulator {

class Scanner {
public:
    explicit Scanner(const ScannerModel& model);
    Scanner(const Scanner&) = delete;
    Scanner& operator=(const Scanner&) = delete;
    // Ends the tracking. May be called on the tracking thread itself, by an observer that held the last
    // reference.
    ~Scanner();

    const ScannerModel& Model() const;

    // S_OK, or E_INVALIDARG for values that the model does not have (a gain, an exposure beyond the longest);
    // the ones before stay then. In force from the next cycle on.
    HRESULT SetProfile(const MLaserProfileSettings& profile);
    MLaserProfileSettings Profile() const;
    HRESULT SetGlobal(const MGlobalScanningSettings& global);
    MGlobalScanningSettings Global() const;
    // HX_E_NOTFOUND for none of SurfaceNames().
    HRESULT SetSurface(std::wstring_view name);
    static std::span<const wchar_t* const> SurfaceNames();

    // Laser lines per second that field of view, speed and exposure allow.
    double FrameRateHz() const;
    int32_t ExposureRows() const;

    // Tracks while it is both connected and initialised. Initialising counts cycles and time anew.
    void SetConnected(bool connected);
    void Initialise();
    void Disable();
    // Null for none. The areas are told before the first cycle. Gives the one before to the caller, who lets
    // it go when no lock is held: it may do anything as it ends.
    ComPtr<ITrackingCycleObserver> SetObserver(ComPtr<ITrackingCycleObserver> observer);

    // Try values on what lies in front of the scanner: S_OK, or E_FAIL if no value shows anything. What is
    // set stays.
    HRESULT DetectExposure(double& exposure_us) const;
    HRESULT DetectLaserPower(double& percent) const;

private:
    struct State;
    std::shared_ptr<State> m_state;
};

}  // namespace hx::simulator

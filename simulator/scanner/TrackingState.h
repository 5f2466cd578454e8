// What a scanner and its tracking thread share. Whoever is last frees it: the thread outlives a scanner that
// an observer lets go in the midst of a cycle. Everything below the mutex is guarded by it; it is never held
// while an observer is called or released.
#pragma once

#include <condition_variable>
#include <mutex>

#include "hxapi/ITrackingCycleObserver.h"
#include "platform/com/class_table.h"
#include "platform/com/comptr.h"
#include "simulator/scanner/OpticalSettings.h"
#include "simulator/scanner/Surface.h"

namespace hx::simulator {

struct TrackingState {
    explicit TrackingState(const ScannerModel& its_model);

    // With the mutex held, after a change of profile or global settings.
    void UpdateOptics() { optics = OpticalSettingsOf(profile, global); }

    const ScannerModel& model;
    mutable std::mutex mutex;
    std::condition_variable changed;  // whether the scanner tracks

    bool connected = false;
    bool initialised = false;
    bool ended = false;
    uint64_t starts = 0;  // how often it was initialised

    MLaserProfileSettings profile;
    MGlobalScanningSettings global;
    OpticalSettings optics;  // what of both makes the picture
    uint64_t profiles = 0;   // how often each of these was set
    uint64_t areas_to_tell = 1;
    const Surface* surface;
    ComPtr<ITrackingCycleObserver> observer;
    uint64_t cycle = 0;  // the last one

private:
    ModuleLock m_module_lock;
};

}  // namespace hx::simulator

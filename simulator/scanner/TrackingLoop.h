// The tracking thread's work: takes a picture when one is due, and tells it to the observer and the recorder.
// Has all its memory before the thread starts. Only for that thread.
#pragma once

#include <array>
#include <memory>
#include <vector>

#include "simulator/scanner/CyclePace.h"
#include "simulator/scanner/Picture.h"
#include "simulator/scanner/TrackingState.h"

namespace hx::simulator {

class TrackingLoop {
public:
    explicit TrackingLoop(std::shared_ptr<TrackingState> state);

    // Returns when the state says that all has ended.
    void Run();

private:
    // What a cycle needs of the state.
    struct Task {
        OpticalSettings optics;
        const Surface* surface;
        ComPtr<ITrackingCycleObserver> observer;
        bool tell_areas;
    };

    using Lock = std::unique_lock<std::mutex>;

    // False if there will be none.
    bool AwaitCycle(Lock& lock);
    Task Begin();
    void Deliver(Task& task);
    void UpdateAreas(const MGlobalScanningSettings& global);
    double FrameRate() const;

    std::shared_ptr<TrackingState> m_state;
    PictureMaker m_maker;
    CyclePace m_pace;
    std::array<double, 8> m_corners{};  // all planes measure in the same area
    std::vector<TrackingArea> m_areas;
    double m_laser_power = 0;  // as the automatic control has it
    uint32_t m_plane = 0;
    uint64_t m_start = 0;  // of the state's counters, the values that this thread has seen
    uint64_t m_profile = 0;
    uint64_t m_areas_told = 0;
};

}  // namespace hx::simulator

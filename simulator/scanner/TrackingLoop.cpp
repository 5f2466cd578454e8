#include "simulator/scanner/TrackingLoop.h"

#include <utility>

#include "simulator/recorder/TrackingRecorder.h"
#include "simulator/scanner/FrameRate.h"
#include "simulator/scanner/LaserPower.h"

namespace hx::simulator {

TrackingLoop::TrackingLoop(std::shared_ptr<TrackingState> state)
    : m_state(std::move(state)), m_maker(m_state->model) {
    const uint32_t planes = m_state->model.plane_count;
    for (uint32_t plane = 0; plane < planes; ++plane) {
        m_areas.push_back({static_cast<int32_t>(plane), m_corners.data(), 4});
    }
}

void TrackingLoop::Run() {
    Lock lock(m_state->mutex);
    while (AwaitCycle(lock)) {
        Task task = Begin();
        lock.unlock();
        Deliver(task);
        // Maybe the last reference: whatever the observer does when it goes, no lock is held.
        task.observer.reset();
        lock.lock();
        m_pace.Next(FrameRate());
    }
}

bool TrackingLoop::AwaitCycle(Lock& lock) {
    TrackingState& state = *m_state;
    while (!state.ended) {
        if (!state.connected || !state.initialised) {
            state.changed.wait(lock);
            continue;
        }
        const auto now = std::chrono::steady_clock::now();
        if (m_start != state.starts) {
            m_start = state.starts;
            m_pace.Restart(now);
            m_plane = 0;
        }
        if (now >= m_pace.Due()) {
            m_pace.CatchUp(now, FrameRate());
            return true;
        }
        state.changed.wait_until(lock, m_pace.Due());
    }
    return false;
}

TrackingLoop::Task TrackingLoop::Begin() {
    TrackingState& state = *m_state;
    Task task{state.optics, state.surface, state.observer, m_areas_told != state.areas_to_tell};
    m_areas_told = state.areas_to_tell;
    if (m_profile != state.profiles || !state.optics.automatic_laser_power) {
        m_profile = state.profiles;
        m_laser_power = state.optics.laser_power_percent;
    }
    task.optics.laser_power_percent = m_laser_power;
    state.cycle = m_pace.Number();
    return task;
}

void TrackingLoop::Deliver(Task& task) {
    const uint32_t plane = m_plane;
    m_plane = (m_plane + 1) % m_state->model.plane_count;
    if (task.tell_areas) UpdateAreas(task.optics.global);
    TrackingRecorder& recorder = TrackingRecorder::Get();
    if (!task.observer && !recorder.IsRecording()) return;

    if (task.observer && task.tell_areas) {
        task.observer->OnTrackingAreas(m_areas.data(), static_cast<uint32_t>(m_areas.size()));
    }
    const Picture& picture =
        m_maker.Make({m_state->model, *task.surface, m_pace.Number(), plane}, task.optics);
    if (task.optics.automatic_laser_power) m_laser_power = NextLaserPower(m_laser_power, picture);
    const TrackingCycle cycle{
        m_pace.Number(),        m_pace.Time_us(),      static_cast<int32_t>(plane),
        picture.column_count,   picture.points.data(), static_cast<uint32_t>(picture.points.size()),
        picture.saturated_count};
    recorder.Add(m_state->model.device_internal_name, m_areas, cycle);
    if (task.observer) task.observer->OnTrackingCycle(&cycle);
}

void TrackingLoop::UpdateAreas(const MGlobalScanningSettings& global) {
    const ScannerModel& model = m_state->model;
    m_corners = CornersOf(ViewOf(model, global), DetailsOf(model).area);
}

double TrackingLoop::FrameRate() const {
    return FrameRateHz(m_state->model, m_state->global, m_state->optics.exposure_us);
}

}  // namespace hx::simulator

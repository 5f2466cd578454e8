#include "preview/NewestCycles.h"

#include <algorithm>
#include <utility>

namespace hx::preview {
namespace {

bool HasArea(const std::vector<PlaneArea>& areas, int32_t plane_number) {
    return std::ranges::find(areas, plane_number, &PlaneArea::plane_number) != areas.end();
}

}  // namespace

void NewestCycles::PutAreas(const TrackingArea* areas, uint32_t area_count) {
    std::vector<PlaneArea> copies = CopyAreas(areas, area_count);
    std::unique_lock lock(m_mutex);
    m_areas.swap(copies);
    m_areas_fresh = true;
    m_blank = false;
    std::erase_if(m_slots, [&](const Slot& slot) { return !HasArea(m_areas, slot.line.plane_number); });
    Changed(std::move(lock));
}

void NewestCycles::PutCycle(const TrackingCycle& cycle) {
    const uint32_t count =
        cycle.points == nullptr ? 0 : std::min({cycle.point_count, cycle.column_count, kMostPoints});
    std::unique_lock lock(m_mutex);
    if (!HasArea(m_areas, cycle.plane_number)) return;
    Slot& slot = SlotOf(cycle.plane_number);
    slot.line.column_count = cycle.column_count;
    slot.line.points.assign(cycle.points, cycle.points + count);
    slot.fresh = true;
    m_blank = false;
    Changed(std::move(lock));
}

void NewestCycles::Clear() {
    std::unique_lock lock(m_mutex);
    for (Slot& slot : m_slots) slot.fresh = false;
    m_cleared = true;
    m_blank = true;
    Changed(std::move(lock));
}

void NewestCycles::Attach(WindowHandle window, uint32_t message_id) {
    const std::scoped_lock lock(m_mutex);
    m_window = window;
    m_message_id = message_id;
    m_listening = false;
    m_areas_fresh = true;
    m_changed = true;
}

void NewestCycles::Detach(WindowHandle window) {
    const std::scoped_lock lock(m_mutex);
    if (m_window != window) return;
    m_window = 0;
    m_listening = false;
}

void NewestCycles::Listen() {
    std::unique_lock lock(m_mutex);
    m_listening = true;
    if (m_changed) Tell(std::move(lock));
}

void NewestCycles::AwaitMore(WindowHandle window) {
    const std::scoped_lock lock(m_mutex);
    if (m_window == window) m_listening = true;
}

bool NewestCycles::Take(TakenCycles& taken) {
    const std::scoped_lock lock(m_mutex);
    if (!m_changed) return false;
    // What memory is short for stays fresh, so that it is taken the next time.
    if (m_areas_fresh) {
        taken.areas = m_areas;
        m_areas_fresh = false;
        std::erase_if(taken.lines,
                      [&](const PlaneLine& line) { return !HasArea(m_areas, line.plane_number); });
    }
    if (std::exchange(m_cleared, false)) taken.lines.clear();
    for (Slot& slot : m_slots) {
        if (!slot.fresh) continue;
        const int32_t plane = slot.line.plane_number;
        auto line = std::ranges::find(taken.lines, plane, &PlaneLine::plane_number);
        if (line == taken.lines.end()) line = taken.lines.insert(line, {plane, 0, {}});
        std::swap(*line, slot.line);
        slot.fresh = false;
    }
    taken.blank = m_blank;
    m_changed = false;
    return true;
}

NewestCycles::Slot& NewestCycles::SlotOf(int32_t plane_number) {
    const auto found = std::ranges::find_if(
        m_slots, [&](const Slot& slot) { return slot.line.plane_number == plane_number; });
    if (found != m_slots.end()) return *found;
    return m_slots.emplace_back(Slot{{plane_number, 0, {}}, false});
}

void NewestCycles::Changed(std::unique_lock<std::mutex> lock) {
    m_changed = true;
    if (m_listening) Tell(std::move(lock));
}

void NewestCycles::Tell(std::unique_lock<std::mutex> lock) {
    m_listening = false;
    const WindowHandle window = m_window;
    const uint32_t id = m_message_id;
    lock.unlock();
    try {
        PostWindowMessage(window, {id, 0, 0});
    } catch (...) {
        // The next change tells it instead.
        AwaitMore(window);
        throw;
    }
}

}  // namespace hx::preview

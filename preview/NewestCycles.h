// The newest laser line of each plane, on its way from the scanner's thread to the window: what comes later
// takes the place of what nobody has taken, so that nothing queues up. The window is told by one message, and
// by no other before it has asked for more.
//
// Put... and Clear on any thread, the others on the window's. A put holds the lock for as long
// as copying the line takes.
#pragma once

#include <mutex>
#include <vector>

#include "platform/ui/message_window.h"
#include "preview/PlaneArea.h"

namespace hx::preview {

// As many points of a line as are kept at most: no imager has so many columns.
inline constexpr uint32_t kMostPoints = 16'384;

struct PlaneLine {
    int32_t plane_number = 0;
    uint32_t column_count = 0;
    std::vector<TrackingPoint> points;
};

// What was taken last.
struct TakenCycles {
    std::vector<PlaneArea> areas;
    std::vector<PlaneLine> lines;  // of planes with an area, those that had one so far
    bool blank = true;             // nothing has arrived since the start or since it was cleared
};

class NewestCycles {
public:
    // Lines of planes that have no area any more are dropped; those of the others stay until the next one.
    void PutAreas(const TrackingArea* areas, uint32_t area_count);
    // Not more points than the cycle says there could be. A line without an area is dropped.
    void PutCycle(const TrackingCycle& cycle);
    // Areas that are kept are shown again with the next line.
    void Clear();

    // The window that is told from now on, by a message of that id, and that has taken nothing yet. Detach
    // does nothing if another one has been attached since.
    void Attach(WindowHandle window, uint32_t message_id);
    void Detach(WindowHandle window);
    // Tell of what comes next; at once if something waits already. Throws std::bad_alloc, and then tells of
    // what comes next.
    void Listen();
    // Tell that window of what comes next, and not of what waits already: for this no memory is needed.
    void AwaitMore(WindowHandle window);
    // False if nothing is new, and `taken` is then as it was. Memory goes to and fro between both sides.
    // Throws std::bad_alloc; what was not taken is there the next time.
    bool Take(TakenCycles& taken);

private:
    struct Slot {
        PlaneLine line;
        bool fresh = false;
    };
    // With the lock held.
    Slot& SlotOf(int32_t plane_number);
    // These end with the lock released.
    void Changed(std::unique_lock<std::mutex> lock);
    void Tell(std::unique_lock<std::mutex> lock);

    std::mutex m_mutex;
    std::vector<PlaneArea> m_areas;
    std::vector<Slot> m_slots;
    bool m_areas_fresh = false;
    bool m_cleared = false;
    bool m_blank = true;
    bool m_changed = false;
    bool m_listening = false;
    WindowHandle m_window = 0;
    uint32_t m_message_id = 0;
};

}  // namespace hx::preview

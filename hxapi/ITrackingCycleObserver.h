// Receives what the scanner sees while it tracks. Implemented by the preview and by whoever looks at the
// laser line; called by the scanner API on a thread of its own, one call at a time. A cycle that is on its
// way when the observer is unregistered may still arrive. What arrives is good during the call only.
#pragma once

#include "platform/com/unknown.h"

// A point of the laser line, in the coordinates of its plane's measurement area.
struct TrackingPoint {
    float x_mm;       // across the line of sight
    float y_mm;       // along it, growing with the distance from the scanner
    uint16_t signal;  // 0 to kTrackingSignalSaturated
    uint16_t column;  // of the imager
};

// As much as the imager can tell: such a point is too bright.
inline constexpr uint16_t kTrackingSignalSaturated = 1023;

struct TrackingCycle {
    uint64_t number;  // of the cycle since the scanner was initialised, from 0; gaps are cycles that got lost
    int64_t time_us;  // since the same moment, of the exposure
    int32_t plane_number;   // of the laser plane
    uint32_t column_count;  // of the imager, in the present field of view: how many points there could be
    const TrackingPoint* points;
    uint32_t point_count;
    uint32_t saturated_count;  // of the points
};

struct TrackingArea {
    int32_t plane_number;
    const double*
        corners_mm;  // x, y of each corner of what the present field of view leaves of the measurement area
    uint32_t corner_count;
};

HX_IID(ITrackingCycleObserver, "D98E25A1-3C7F-4B06-9E54-70F1B6C8D23E")
struct ITrackingCycleObserver : IUnknown {
    // The measurement areas from now on, one for each laser plane: before the first cycle, and whenever the
    // field of view was changed. The result is not looked at.
    virtual HRESULT STDMETHODCALLTYPE OnTrackingAreas(const TrackingArea* areas, uint32_t area_count) = 0;
    // One laser line. The result is not looked at; the scanner does not wait, so that an observer that takes
    // its time misses cycles.
    virtual HRESULT STDMETHODCALLTYPE OnTrackingCycle(const TrackingCycle* cycle) = 0;
};

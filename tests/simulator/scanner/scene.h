// Pictures for tests of the optics: one model, one surface, settings that a test changes.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

#include "simulator/scanner/Picture.h"

inline const hx::simulator::ScannerModel& Model(std::wstring_view name = L"HX") {
    return *hx::simulator::FindScannerModel(name);
}

// Of the default preset, with all filters off.
inline hx::simulator::OpticalSettings PlainSettings(const hx::simulator::ScannerModel& model = Model()) {
    hx::simulator::OpticalSettings settings =
        hx::simulator::OpticalSettingsOf(ProfileOf(model, model.presets.front()), {});
    settings.edge_filter = 0;
    settings.edge_filter_3d = false;
    settings.reflection_filter = true;
    settings.max_inclination_degrees = 90;
    return settings;
}

inline hx::simulator::Picture Take(std::wstring_view surface, const hx::simulator::OpticalSettings& settings,
                                   uint64_t cycle = 0, uint32_t plane = 0,
                                   const hx::simulator::ScannerModel& model = Model()) {
    hx::simulator::PictureMaker maker(model);
    return maker.Make({model, *hx::simulator::FindSurface(surface), cycle, plane}, settings);
}

inline double MeanSignal(const std::vector<TrackingPoint>& points) {
    double sum = 0;
    for (const TrackingPoint& point : points) sum += point.signal;
    return sum / static_cast<double>(points.size());
}

inline bool SamePoints(const std::vector<TrackingPoint>& a, const std::vector<TrackingPoint>& b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const TrackingPoint& one, const TrackingPoint& other) {
                          return one.x_mm == other.x_mm && one.y_mm == other.y_mm &&
                                 one.signal == other.signal && one.column == other.column;
                      });
}

#include "simulator/scanner/FieldOfView.h"

namespace hx::simulator {
namespace {

// Where the view begins and ends, in the depth of the area.
struct DepthPart {
    double begin;
    double end;
};

// By VerticalFov.
constexpr DepthPart kDepthParts[] = {{0, 1}, {0, 0.5}, {0.25, 0.75}, {0.5, 1}};

}  // namespace

FieldOfView ViewOf(const ScannerModel& model, const MGlobalScanningSettings& global) {
    const MeasurementArea& area = DetailsOf(model).area;
    const DepthPart& part = kDepthParts[global.VerticalFov];
    FieldOfView view{};
    view.near_mm = area.near_mm + part.begin * area.Depth();
    view.far_mm = area.near_mm + part.end * area.Depth();
    view.depth_portion = part.end - part.begin;
    const bool is_half = global.HorizontalFov == 1;
    view.width_portion = is_half ? 0.5 : 1;
    view.column_count = is_half ? model.columns / 2 : model.columns;
    view.first_column = (model.columns - view.column_count) / 2;
    return view;
}

std::array<double, 8> CornersOf(const FieldOfView& view, const MeasurementArea& area) {
    const double near_half = view.width_portion * area.HalfWidthAt(view.near_mm);
    const double far_half = view.width_portion * area.HalfWidthAt(view.far_mm);
    return {-near_half, view.near_mm, -far_half, view.far_mm, far_half, view.far_mm, near_half, view.near_mm};
}

}  // namespace hx::simulator

#include "controls/parts/FieldOfView.h"

#include "controls/parts/PageControls.h"
#include "platform/ui/codes.h"

namespace hx {
namespace {

constexpr int32_t kWhole = 0;

// A slider is at 1 for half of the field of view, and at 0 for anything else.
struct Direction {
    uint32_t slider;
    int32_t MGlobalScanningSettings::*setting;
    int32_t half;  // as the settings say it
};

constexpr Direction kDirections[] = {
    {kWidthSlider, &MGlobalScanningSettings::HorizontalFov, 1},
    {kHeightSlider, &MGlobalScanningSettings::VerticalFov, 2},
};

}  // namespace

void FieldOfView::Initialise(const MGlobalScanningSettings& settings) {
    for (const Direction& direction : kDirections) {
        auto* const slider = m_dialog.FindAs<ui::TrackBar>(direction.slider);
        if (!slider) continue;
        slider->ModifyStyle(0, TBS_DOWNISLEFT);
        slider->SetRange(0, 1);
        slider->SetPageSize(1);
        slider->SetLineSize(1);
    }
    ShowIn(settings);
}

void FieldOfView::ShowIn(const MGlobalScanningSettings& settings) {
    for (const Direction& direction : kDirections) {
        auto* const slider = m_dialog.FindAs<ui::TrackBar>(direction.slider);
        if (slider) slider->SetPosition(settings.*direction.setting == direction.half ? 1 : 0);
    }
}

void FieldOfView::TakeInto(MGlobalScanningSettings& settings) const {
    for (const Direction& direction : kDirections) {
        const auto* const slider = m_dialog.FindAs<ui::TrackBar>(direction.slider);
        if (slider) settings.*direction.setting = slider->Position() == 1 ? direction.half : kWhole;
    }
}

}  // namespace hx

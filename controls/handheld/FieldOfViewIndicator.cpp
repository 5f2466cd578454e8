#include "controls/handheld/FieldOfViewIndicator.h"

#include "controls/handheld/HandheldControls.h"

namespace hx {
namespace {

constexpr int32_t kOff = 0;
constexpr int32_t kOn = 100;

}  // namespace

void FieldOfViewIndicator::ShowIn(const MGlobalScanningSettings& settings) {
    auto* const box = m_dialog.FindAs<ui::CheckBox>(kIndicatorBox);
    if (box) box->SetChecked(settings.FovIndicator > kOff);
}

void FieldOfViewIndicator::TakeInto(MGlobalScanningSettings& settings) const {
    const auto* const box = m_dialog.FindAs<ui::CheckBox>(kIndicatorBox);
    if (box) settings.FovIndicator = box->IsChecked() ? kOn : kOff;
}

}  // namespace hx

#include "controls/measurement/MeasurementSpeed.h"

#include <algorithm>

#include "controls/measurement/MeasControls.h"
#include "controls/parts/DialogParts.h"
#include "controls/parts/ScannerReadouts.h"
#include "controls/parts/WholePart.h"
#include "core/locale/CFormattedText.h"
#include "settings/measurement/FrequencySelectionHelper.h"

namespace hx {
namespace {

constexpr int32_t kSlowest = 3;

// From full speed, at the right, to the slowest.
struct Place {
    uint32_t label;
    double part_of_full_speed;
};
constexpr Place kPlaces[] = {{kFullSpeedLabel, 1.0},
                             {kThreeQuartersSpeedLabel, 0.75},
                             {kHalfSpeedLabel, 0.5},
                             {kQuarterSpeedLabel, 0.25}};

// To the nearest five.
int32_t Rounded(double rate_hz) {
    constexpr double kStep_hz = 5;
    return WholePart(kStep_hz * std::trunc((rate_hz + 0.5 + kStep_hz / 2) / kStep_hz));
}

}  // namespace

void MeasurementSpeed::Set(bool enabled, int32_t selection) {
    m_enabled = enabled;
    m_selection = selection;
}

int32_t MeasurementSpeed::TakeSlider() {
    const auto* const slider = m_dialog.FindAs<ui::TrackBar>(kSpeedSlider);
    return slider ? std::exchange(m_selection, kSlowest - slider->Position()) : m_selection;
}

void MeasurementSpeed::Show() {
    if (m_enabled) {
        if (!m_labels_done) MakeLabels();
        if (auto* const slider = m_dialog.FindAs<ui::TrackBar>(kSpeedSlider)) {
            slider->SetRange(0, kSlowest);
            slider->SetLineSize(1);
        }
        ShowPlace();
    }
    ShowControl(m_dialog, kSpeedSlider, m_enabled);
    ShowControl(m_dialog, kSpeedLabel, m_enabled);
    for (const Place& place : kPlaces) ShowControl(m_dialog, place.label, m_enabled);
}

void MeasurementSpeed::ShowPlace() {
    auto* const slider = m_dialog.FindAs<ui::TrackBar>(kSpeedSlider);
    // A scanner may have any number for its selection.
    if (slider && m_enabled) slider->SetPosition(kSlowest - std::clamp(m_selection, 0, kSlowest));
}

void MeasurementSpeed::MakeLabels() {
    const double rate_hz = FrameRateOf(m_page, m_location);
    const double percent = FrequencySelectionHelper::GetFrequencySelectionEnumValue(
        static_cast<FrequencySelection>(m_selection));
    const double full_rate_hz = rate_hz * 100 / percent;
    for (const Place& place : kPlaces) {
        const int32_t label_hz = Rounded(full_rate_hz * place.part_of_full_speed);
        ShowText(m_dialog, place.label, FormatText(L'.', L"%d Hz", {label_hz}));
    }
    m_labels_done = true;
}

}  // namespace hx

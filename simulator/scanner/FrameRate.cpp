#include "simulator/scanner/FrameRate.h"

#include <algorithm>
#include <cmath>

#include "settings/measurement/FrequencySelectionHelper.h"
#include "simulator/scanner/FieldOfView.h"

namespace hx::simulator {
namespace {

constexpr double kReadout_us = 150;     // from the end of an exposure to the begin of the next
constexpr double kHalfWidthGain = 1.1;  // a row is little faster with half of its columns

}  // namespace

double FrameRateHz(const ScannerModel& model, const MGlobalScanningSettings& global, double exposure_us) {
    const double speed_percent = FrequencySelectionHelper::GetFrequencySelectionEnumValue(
        static_cast<FrequencySelection>(global.FrequencySelection));
    const double of_view = model.full_frame_rate_hz / ViewOf(model, global).depth_portion *
                           (global.HorizontalFov == 1 ? kHalfWidthGain : 1);
    return std::min(of_view * speed_percent / 100, 1e6 / (exposure_us + kReadout_us));
}

int32_t RowsOf(const ScannerModel& model, double exposure_us) {
    const double row_time_us = 1e6 / (model.full_frame_rate_hz * model.rows);
    return static_cast<int32_t>(std::lround(exposure_us / row_time_us));
}

}  // namespace hx::simulator

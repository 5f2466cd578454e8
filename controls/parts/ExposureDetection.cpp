#include "controls/parts/ExposureDetection.h"

#include <algorithm>
#include <atomic>

#include "controls/api/ApiOperation.h"
#include "controls/editor/PresetField.h"
#include "platform/ui/services.h"

namespace hx {
namespace {

// So much brighter than what the scanner finds [0.01 %].
constexpr int32_t kAddedExposure = 100;

std::atomic<bool> g_detects = false;

}  // namespace

void ExposureDetection::Run(const std::function<bool()>& shown) {
    if (g_detects.exchange(true)) return;
    // Connection states wait until a further detection is possible.
    const Scope scope(m_page.Session().Operations());
    SettingsPage& page = m_page;
    page.Attempt([&](const Scope&) {
        if (DetectExposure(scope, shown) && page.Data().automatic_laser_power == FALSE) {
            DetectLaserPower(scope, shown);
        }
    });
    // The page may be gone, and this with it.
    if (scope.MayGoOn()) {
        page.Attempt([&](const Scope&) { page.ApplySettingsToHardware(page.WorkingPreset()); });
    }
    g_detects = false;
    ui::DiscardMouseMessages();
}

bool ExposureDetection::DetectExposure(const Scope& scope, const std::function<bool()>& shown) {
    int16_t exposure_us = 0;
    Ask(47, L"DetectExposureTime", &ICalibrationHandle::DetectExposureTime, &exposure_us);
    if (!scope.MayGoOn()) return false;
    const int32_t found = m_page.ExposureFromMicroSecondsToPercentage(exposure_us);
    m_page.Data().exposure = std::min(found + kAddedExposure, kMostExposure);
    return shown() && scope.MayGoOn();
}

bool ExposureDetection::DetectLaserPower(const Scope& scope, const std::function<bool()>& shown) {
    double percent = 0;
    Ask(56, L"DetectLaserPower", &ICalibrationHandle::DetectLaserPower, &percent);
    if (!scope.MayGoOn()) return false;
    m_page.Data().laser_power = RoundedWithin(percent, kLeastLaserPower, kMostLaserPower);
    return shown() && scope.MayGoOn();
}

template <class Value>
void ExposureDetection::Ask(int32_t line, const wchar_t* call,
                            HRESULT (STDMETHODCALLTYPE ICalibrationHandle::*detect)(Value*), Value* value) {
    const std::shared_ptr<void> waiting = m_page.ShowWaitCursor();
    ApiOperation(m_location, &m_page).Call(line, call, m_page.Session().Handle(), detect, value);
}

}  // namespace hx

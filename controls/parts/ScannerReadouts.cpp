#include "controls/parts/ScannerReadouts.h"

#include "controls/api/ApiOperation.h"
#include "controls/parts/DialogParts.h"
#include "controls/parts/PageControls.h"
#include "controls/parts/RegistrySwitch.h"
#include "controls/parts/WholePart.h"
#include "core/locale/CFormattedText.h"
#include "core/locale/MResourceLocale.h"

namespace hx {
namespace {

constexpr uint32_t kFrameRateString = 11;

std::wstring FrameRateFormat() {
    try {
        return MResourceLocale::LoadStringResource(kFrameRateString);
    } catch (const MException&) {
        return L"%d";
    }
}

}  // namespace

double FrameRateOf(SettingsPage& page, MErrorLocation& location) {
    double frame_rate_hz = 0;
    ApiOperation(location, &page)
        .Call(28, L"GetFrameRate", page.Session().Handle(), &ICalibrationHandle::GetFrameRate,
              &frame_rate_hz);
    return frame_rate_hz;
}

ScannerReadouts::ScannerReadouts(SettingsPage& page, ui::Dialog& dialog, MErrorLocation& location)
    : m_page(page),
      m_dialog(dialog),
      m_location(location),
      m_shows_rows(IsOn(RegistrySwitch::kOutputExposureInRows)) {}

void ScannerReadouts::ShowFrameRate() {
    if (m_page.Session().IsDeviceCurrent()) ShowRate(FrameRateOf(m_page, m_location));
}

void ScannerReadouts::ShowRate(double frame_rate_hz) {
    ShowText(m_dialog, kFrameRateLabel, FormatText(L'.', FrameRateFormat(), {WholePart(frame_rate_hz)}));
}

void ScannerReadouts::ShowExposureRows() {
    if (!m_shows_rows || !m_page.Session().Handle()) return;
    int32_t rows = 0;
    ApiOperation(m_location, &m_page)
        .Call(52, L"GetExposureTimeInRows", m_page.Session().Handle(),
              &ICalibrationHandle::GetExposureTimeInRows, &rows);
    ShowText(m_dialog, kExposureRowsLabel, FormatText(L'.', L"RSW rows: %d   \n", {rows}));
}

}  // namespace hx

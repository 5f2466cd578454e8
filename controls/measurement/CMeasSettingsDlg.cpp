#include "controls/measurement/CMeasSettingsDlg.h"

#include "controls/api/ApiOperation.h"
#include "controls/measurement/MeasControls.h"
#include "controls/parts/RegistrySwitch.h"
#include "controls/parts/ScanningSettings.h"
#include "platform/system/debugger_output.h"
#include "platform/ui/codes.h"

namespace hx {
namespace {

constexpr int32_t kNoFieldOfView = 0;
constexpr int32_t kWidthAndHeight = 3;
constexpr int32_t kNoSpeed = -1;
// What a slider of the scanning settings stands for, beside the field of view.
constexpr uint32_t kSpeed = 2;

PageLocations& MeasLocations() {
    static PageLocations locations(kMeasurementPageClass);
    return locations;
}

MErrorLocation& SpeedLocation() {
    static MErrorLocation location(kMeasurementPageClass, "ShowMeasurementSpeed");
    return location;
}

const SettingsPageKind& MeasKind() {
    static const SettingsPageKind kind = {&MeasLocations, kMeasurementSession, kMeasValues, kMeasEnableRules,
                                          kMeasAnchors};
    return kind;
}

bool CanReduceFrequency(SettingsPage& page, MErrorLocation& location) {
    if (!IsOn(RegistrySwitch::kShowFrequencyReductionSlider)) return false;
    int32_t supported = 0;
    ApiOperation(location, &page)
        .Call(22, L"GetFrequencyReductionSupport", page.Session().Handle(),
              &ICalibrationHandle::GetFrequencyReductionSupport, &supported);
    return supported == 1;
}

}  // namespace

CMeasSettingsDlg::CMeasSettingsDlg()
    : ScannerSettingsDlg(MeasKind()), m_layout(*this), m_speed(*this, *this, SpeedLocation()) {}

void CMeasSettingsDlg::Describe(EnableState& state) const {
    state.filters_3d = Data().edge_filter_3d != FALSE;
    state.is_speed_selectable = m_speed.IsEnabled();
}

void CMeasSettingsDlg::OnCommand(ui::Control& control, uint32_t code) {
    if (control.Id() == kHighIsoBox && code == BN_CLICKED) return OnHighIso();
    ScannerSettingsDlg::OnCommand(control, code);
}

void CMeasSettingsDlg::OnHighIso() {
    if (IsReady() && m_gains.TakeHighIso()) FollowChosen();
}

void CMeasSettingsDlg::NoteConnectionState() {
    WriteDebuggerOutput(L"\n\nHXMeasSettingsDlg: connection state changed.\n\n");
}

void CMeasSettingsDlg::LeaveControls() {
    if (!TakeHeldSlider()) UpdateSettingsFromUI(false);
}

void CMeasSettingsDlg::FillGainList() {
    // Of another scanner, perhaps.
    m_speed.ForgetLabels();
    ScannerSettingsDlg::FillGainList();
}

bool CMeasSettingsDlg::ReadScanning() {
    if (!Session().IsDeviceCurrent()) {
        m_field_of_view_config = kNoFieldOfView;
        m_speed.Set(false, kNoSpeed);
        if (!LayOutFieldOfView()) return false;
        m_speed.Show();
        return true;
    }
    MErrorLocation& location = Locations().settings_to_data;
    int32_t config = FieldOfViewConfigOf(*this, location).Managed;
    if (config >= 0 && IsOn(RegistrySwitch::kAllowHWDlgFovModification)) config = kWidthAndHeight;
    m_field_of_view_config = config;
    if (!LayOutFieldOfView()) return false;
    m_scanning = ScanningSettingsOf(*this, location);
    const bool has_speeds = CanReduceFrequency(*this, location);
    m_speed.Set(has_speeds, m_scanning.FrequencySelection);
    m_field_of_view.ShowIn(m_scanning);
    m_speed.Show();
    return true;
}

bool CMeasSettingsDlg::LayOutFieldOfView() {
    const Scope scope(Operations());
    m_layout.LayOut(m_field_of_view_config);
    if (!scope.IsSessionOpen()) return false;
    if (m_field_of_view_config >= 0) m_readouts.ShowFrameRate();
    return true;
}

uint32_t CMeasSettingsDlg::ScanningOf(uint32_t slider) const {
    return slider == kSpeedSlider ? kSpeed : 0;
}

void CMeasSettingsDlg::ShowScanning() {
    ScannerSettingsDlg::ShowScanning();
    m_speed.ShowPlace();
}

void CMeasSettingsDlg::FollowScanning(const Scope& scope, uint32_t moved) {
    if ((moved & kFieldOfView) != 0) m_field_of_view.TakeInto(m_scanning);
    if ((moved & kSpeed) == 0) return ApplyScanningAndSpeed(scope);
    const int32_t before = m_speed.TakeSlider();
    try {
        ApplyScanningAndSpeed(scope);
    } catch (...) {
        if (scope.IsSessionOpen()) {
            // The labels are those of all places. Nor does a slider go back that was moved on meanwhile.
            m_speed.Set(m_speed.IsEnabled(), before);
            if ((MovedMeanwhile() & kSpeed) == 0) m_speed.ShowPlace();
        }
        throw;
    }
}

void CMeasSettingsDlg::ApplyScanningAndSpeed(const Scope& scope) {
    m_scanning.FrequencySelection = m_speed.SelectionToScanWith();
    if (ApplyScanning(scope)) m_readouts.ShowFrameRate();
}

}  // namespace hx

#include "controls/handheld/CHandheldMeasSettingsDlg.h"

#include "controls/api/ApiOperation.h"
#include "controls/handheld/HandheldControls.h"
#include "controls/parts/DialogParts.h"
#include "controls/parts/RegistrySwitch.h"
#include "controls/parts/ScanningSettings.h"
#include "controls/settings_page/SharedTables.h"
#include "platform/com/boundary.h"
#include "platform/ui/codes.h"
#include "platform/ui/integer_range_text.h"

namespace hx {
namespace {

// What is moved beside the sliders of the field of view.
constexpr uint32_t kIndicator = 2;

PageLocations& HandheldLocations() {
    static PageLocations locations(kHandheldPageClass);
    return locations;
}

const SettingsPageKind& HandheldKind() {
    static const SettingsPageKind kind = {&HandheldLocations, kHandheldSession, kHandheldValues,
                                          kHandheldEnableRules, kHandheldAnchors};
    return kind;
}

}  // namespace

CHandheldMeasSettingsDlg::CHandheldMeasSettingsDlg()
    : ScannerSettingsDlg(HandheldKind()),
      m_thresholds(*this),
      m_indicator(*this),
      m_shows_3d_filter(IsOn(RegistrySwitch::kAllow3dFilteringHXHH)) {}

void CHandheldMeasSettingsDlg::OnControlsCreated() {
    ShowControl(*this, kEdgeFilter3DBox, m_shows_3d_filter);
    m_thresholds.Initialise();
    m_indicator.ShowIn(m_scanning);
}

void CHandheldMeasSettingsDlg::OnCommand(ui::Control& control, uint32_t code) {
    if (control.Id() == kThresholdList && code == CBN_SELCHANGE) return OnThreshold();
    if (control.Id() == kIndicatorBox && code == BN_CLICKED) return OnIndicator();
    ScannerSettingsDlg::OnCommand(control, code);
}

void CHandheldMeasSettingsDlg::OnThreshold() {
    if (IsReady() && m_thresholds.TakeChosen(Data())) FollowChosen();
}

void CHandheldMeasSettingsDlg::OnIndicator() {
    Attempt([&](const Scope& scope) {
        const bool is_ready = IsReady();
        if (!is_ready || ExchangeEdits(0)) {
            if (is_ready) m_flags.TakeInto(Data());
            OnScanningMoved(kIndicator);
        } else if (scope.IsSessionOpen()) {
            m_indicator.ShowIn(m_scanning);
        }
    });
}

// The text is put right before anything is said: however often it is looked at while the box is there, by the
// click that took the focus from the edit as well, it is complained of once.
bool CHandheldMeasSettingsDlg::ExchangeEdits(uint32_t left_edit) {
    const bool counts = left_edit == 0 || left_edit == kLaserPowerEdit;
    if (!counts || m_values.HoldsValue(kLaserPowerEdit)) return ScannerSettingsDlg::ExchangeEdits(left_edit);
    const Scope scope(Operations());
    m_values.ShowInEdit(kLaserPowerEdit, Data());
    ui::ShowMessageBox(&OwnWindow(), {}, ui::IntegerRangeText(*Module(), kLeastLaserPower, kMostLaserPower),
                       ui::BoxIcon::warning);
    return scope.MayGoOn() && IsReady();
}

bool CHandheldMeasSettingsDlg::ReadScanning() {
    if (!Session().IsDeviceCurrent()) return true;
    MErrorLocation& location = Locations().settings_to_data;
    const bool is_managed = FieldOfViewConfigOf(*this, location).Managed != 0;
    m_preview.Invalidate();
    if (!is_managed) return true;
    m_scanning = ScanningSettingsOf(*this, location);
    ShowScanning();
    return true;
}

void CHandheldMeasSettingsDlg::ShowScanning() {
    ScannerSettingsDlg::ShowScanning();
    m_indicator.ShowIn(m_scanning);
}

void CHandheldMeasSettingsDlg::FollowScanning(const Scope& scope, uint32_t moved) {
    m_indicator.TakeInto(m_scanning);
    if ((moved & kFieldOfView) == 0) return Session().ApplyGlobalScanningSettings(m_scanning);
    m_field_of_view.TakeInto(m_scanning);
    if (ApplyScanning(scope)) RefreshFrameRate();
}

// The profile can still be looked at.
void CHandheldMeasSettingsDlg::OnScannerUnusable() noexcept {
    DisableControlsOfScanner();
    RefreshFrameRate();
}

void CHandheldMeasSettingsDlg::RefreshFrameRate() noexcept {
    AtBoundary([&] {
        m_readouts.ShowRate(FrameRate());
        return S_OK;
    });
}

// Of whatever scanner is connected.
double CHandheldMeasSettingsDlg::FrameRate() {
    if (!Session().Handle() || Session().ConnectionState() != HXConnected) return 0;
    try {
        return FrameRateOf(*this, Locations().readouts);
    } catch (const MException& exception) {
        ApiOperation(Locations().readouts, this).Log(141, exception);
        return 0;
    }
}

// Whether or not the place of a slider that was held could be taken.
void CHandheldMeasSettingsDlg::LeaveControls() {
    const Scope scope(Operations());
    std::exception_ptr failure;
    try {
        TakeHeldSlider();
    } catch (...) {
        failure = std::current_exception();
    }
    if (scope.IsSessionOpen()) EnableControls(false);
    if (failure) std::rethrow_exception(failure);
}

}  // namespace hx

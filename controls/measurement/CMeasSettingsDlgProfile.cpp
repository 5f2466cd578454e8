// Profiles in the controls, and the controls' values in the profile and in the scanner.
#include "controls/api/ApiOperation.h"
#include "controls/measurement/CMeasSettingsDlg.h"
#include "controls/measurement/MeasControls.h"
#include "controls/parts/RegistrySwitch.h"
#include "controls/parts/ScanningSettings.h"

namespace hx {
namespace {

constexpr int32_t kNoFieldOfView = 0;
constexpr int32_t kWidthAndHeight = 3;
constexpr int32_t kNoSpeed = -1;

bool CanReduceFrequency(SettingsPage& page, MErrorLocation& location) {
    if (!IsOn(RegistrySwitch::kShowFrequencyReductionSlider)) return false;
    int32_t supported = 0;
    ApiOperation(location, &page)
        .Call(22, L"GetFrequencyReductionSupport", page.Session().Handle(),
              &ICalibrationHandle::GetFrequencyReductionSupport, &supported);
    return supported == 1;
}

}  // namespace

void CMeasSettingsDlg::UpdateSettingsFromUI(bool from_sliders) {
    if (!IsReady()) return;
    m_values.TakeSliders(Data());
    if (from_sliders) {
        ShowRecordInEdits();
        m_gains.ShowGainInList();
    }
    m_values.TakeEdits(Data());
    m_flags.TakeInto(Data());
    BaseDataToSettings(*WorkingPreset());
    UpdateExposureText();
}

void CMeasSettingsDlg::LeaveControls() {
    // Nobody holds a slider of a page that is not to be seen: where it is counts.
    if (m_tracking.exchange(false)) return TakeHeldSliders();
    UpdateSettingsFromUI(false);
}

bool CMeasSettingsDlg::SetProfile(const ComPtr<IDynamicSettingsPreset>& preset) {
    const bool were_enabled = m_enabled;
    return ShowOrPutBack(
        [&] {
            if (!SettingsToData(*preset)) return;
            ShowRecord();
            EnableControls(true);
            ApplySettingsToHardware(preset);
        },
        [&] {
            m_gains.ShowGain();
            ShowRecord();
            EnableControls(were_enabled);
        });
}

bool CMeasSettingsDlg::SettingsToData(IDynamicSettingsPreset& preset) {
    BaseSettingsToData(preset);
    m_gains.ShowGain();
    UpdateExposureText();
    if (Session().IsDeviceCurrent()) return ReadScanning();
    m_field_of_view_config = kNoFieldOfView;
    m_speed.Set(false, kNoSpeed);
    if (!LayOutFieldOfView()) return false;
    m_speed.Show();
    return true;
}

bool CMeasSettingsDlg::ReadScanning() {
    static MErrorLocation location("CMeasSettingsDlg", "SettingsToData");
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

void CMeasSettingsDlg::ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>& preset) {
    Session().ApplySettingsToHardware(preset, !m_tracking);
}

void CMeasSettingsDlg::ApplyScanning(const Scope& scope) {
    m_scanning.FrequencySelection = m_speed.SelectionToScanWith();
    Session().ApplyGlobalScanningSettings(m_scanning);
    if (!scope.MayGoOn()) return;
    ApplySettingsToHardware(WorkingPreset());
    if (scope.MayGoOn()) m_readouts.ShowFrameRate();
}

void CMeasSettingsDlg::FillGainList() {
    // Of another scanner, perhaps.
    m_speed.ForgetLabels();
    m_gains.Fill();
    // What is left of the set-up may fail; then the record stays.
    m_gains.ShowGainInList();
}

void CMeasSettingsDlg::ShowRecord() {
    m_values.ShowInSliders(Data());
    ShowRecordInEdits();
    m_flags.Show(Data());
}

void CMeasSettingsDlg::ShowRecordInEdits() {
    m_values.ShowInEdits(Data());
    UpdateExposureText();
}

void CMeasSettingsDlg::UpdateExposureText() {
    if (!Data().edit_notifications_enabled) return;
    const FlagGuard writing(Data().edit_notifications_enabled, false, Operations());
    m_values.ShowInEdit(kExposureEdit, Data());
}

}  // namespace hx

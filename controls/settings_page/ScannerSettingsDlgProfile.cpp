// Profiles in the controls, and the controls' values in the profile and in the scanner.
#include "controls/parts/PageControls.h"
#include "controls/settings_page/ScannerSettingsDlg.h"

namespace hx {

void ScannerSettingsDlg::UpdateSettingsFromUI(bool from_sliders) {
    if (!IsReady()) return;
    m_values.TakeSliders(Data());
    if (from_sliders) {
        ShowRecordInEdits();
        m_gains.ShowGainInList();
    }
    m_values.TakeEdits(Data());
    m_flags.TakeInto(Data());
    TakeOwn();
    BaseDataToSettings(*WorkingPreset());
    UpdateExposureText();
}

bool ScannerSettingsDlg::TakeHeldSlider() {
    // Nobody holds a slider of a page that is not to be seen: where it is counts.
    if (!m_tracking.exchange(false)) return false;
    ShowScanning();
    TakeHeldSliders();
    return true;
}

bool ScannerSettingsDlg::SetProfile(const ComPtr<IDynamicSettingsPreset>& preset) {
    const bool were_enabled = m_enabled;
    const Scope scope(Operations());
    return ShowOrPutBack(
        [&] {
            if (!SettingsToData(*preset)) return;
            ShowRecord();
            EnableControls(true);
            // The scanner was given back if the page was left meanwhile.
            if (scope.MayGoOn() || Session().IsSelected()) ApplySettingsToHardware(preset);
        },
        [&] {
            m_gains.ShowGain();
            ShowRecord();
            EnableControls(were_enabled);
        });
}

bool ScannerSettingsDlg::SettingsToData(IDynamicSettingsPreset& preset) {
    BaseSettingsToData(preset);
    m_gains.ShowGain();
    UpdateExposureText();
    return ReadScanning();
}

void ScannerSettingsDlg::ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>& preset) {
    Session().ApplySettingsToHardware(preset, !m_tracking);
}

bool ScannerSettingsDlg::ApplyScanning(const Scope& scope) {
    Session().ApplyGlobalScanningSettings(m_scanning);
    if (!scope.MayGoOn()) return false;
    ApplySettingsToHardware(WorkingPreset());
    return scope.MayGoOn();
}

void ScannerSettingsDlg::FillGainList() {
    m_gains.Fill();
    // What is left of the set-up may fail; then the record stays.
    m_gains.ShowGainInList();
}

void ScannerSettingsDlg::ShowRecord() {
    m_values.ShowInSliders(Data());
    ShowRecordInEdits();
    m_flags.Show(Data());
    ShowOwn();
}

void ScannerSettingsDlg::ShowRecordInEdits() {
    m_values.ShowInEdits(Data());
    UpdateExposureText();
}

void ScannerSettingsDlg::UpdateExposureText() {
    if (!Data().edit_notifications_enabled) return;
    const FlagGuard writing(Data().edit_notifications_enabled, false, Operations());
    m_values.ShowInEdit(kExposureEdit, Data());
}

}  // namespace hx

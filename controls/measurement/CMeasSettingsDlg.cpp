#include "controls/measurement/CMeasSettingsDlg.h"

#include "controls/parts/PageControls.h"
#include "controls/widgets/AccessibleNames.h"
#include "platform/com/boundary.h"
#include "platform/system/debugger_output.h"
#include "platform/ui/codes.h"

namespace hx {

CMeasSettingsDlg::CMeasSettingsDlg() : BaseDynamicSettingsDlg(kMeasurementSession) {
    Bind(kProfileList, ProfileList());
    Bind(kPreviewControl, m_preview);
    Session().AwaitWindow();
}

CMeasSettingsDlg::~CMeasSettingsDlg() {
    Destroy();
    EndSession();
}

void CMeasSettingsDlg::OnDestroy() {
    EndSession();
    Dialog::OnDestroy();
}

void CMeasSettingsDlg::EndSession() noexcept {
    m_arguments = nullptr;
    AtBoundary([&] {
        Session().OnDestroy();
        return S_OK;
    });
}

bool CMeasSettingsDlg::OnInitDialog() {
    SetAccessibleNames(*this, *Module());
    Session().OnWindowCreated();
    return true;
}

void CMeasSettingsDlg::OnMessage(const WindowMessage& message) {
    if (message.id != WM_HX_CONNECTION_STATE) return;
    AtBoundary([&] {
        Session().OnConnectionStateChange(ConnectionStateOf(message));
        return S_OK;
    });
}

void CMeasSettingsDlg::NoteConnectionState() {
    WriteDebuggerOutput(L"\n\nHXMeasSettingsDlg: connection state changed.\n\n");
}

void CMeasSettingsDlg::OnCommand(ui::Control& control, uint32_t code) {
    if (control.Id() == kProfileList && code == LBN_SELCHANGE) OnPresetSelectionChanged();
}

void CMeasSettingsDlg::UpdateSettingsFromUI(bool) {
    if (IsReady()) BaseDataToSettings(*WorkingPreset());
}

void CMeasSettingsDlg::EnableControls(bool) noexcept {}

bool CMeasSettingsDlg::SetProfile(const ComPtr<IDynamicSettingsPreset>& preset) {
    return ShowOrPutBack([&] { BaseSettingsToData(*preset); }, [] {});
}

void CMeasSettingsDlg::ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>& preset) {
    Session().ApplySettingsToHardware(preset, true);
}

void CMeasSettingsDlg::UpdateExposureText() {}

void CMeasSettingsDlg::FillGainList() {}

void CMeasSettingsDlg::RefreshExposureRows() {}

}  // namespace hx

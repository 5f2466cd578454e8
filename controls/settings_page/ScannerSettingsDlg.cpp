#include "controls/settings_page/ScannerSettingsDlg.h"

#include "controls/parts/PageControls.h"
#include "controls/parts/RegistrySwitch.h"
#include "controls/settings_page/SharedTables.h"
#include "controls/widgets/AccessibleNames.h"
#include "platform/com/boundary.h"
#include "platform/ui/codes.h"

namespace hx {

PageLocations::PageLocations(const char* page_class)
    : initialise(page_class, "Initialise"),
      report_selected(page_class, "ReportSelectedPreset"),
      settings_to_data(page_class, "SettingsToData"),
      gains(page_class, "FillGainList"),
      readouts(page_class, "DisplayScannerFramerate"),
      detection(page_class, "OnDetect") {}

ScannerSettingsDlg::ScannerSettingsDlg(const SettingsPageKind& kind)
    : BaseDynamicSettingsDlg(kind.session),
      m_values(*this, kind.values),
      m_flags(*this),
      m_gains(*this, *this, kind.locations().gains),
      m_field_of_view(*this),
      m_readouts(*this, *this, kind.locations().readouts),
      m_kind(kind),
      m_detection(*this, kind.locations().detection),
      m_shows_detect(IsOn(RegistrySwitch::kAllowAutoDetectForHX)) {
    Bind(kProfileList, ProfileList());
    Bind(kPreviewControl, m_preview);
    Session().AwaitWindow();
}

ScannerSettingsDlg::~ScannerSettingsDlg() {
    End();
}

void ScannerSettingsDlg::End() noexcept {
    Destroy();
    EndSession();
}

bool ScannerSettingsDlg::OnInitDialog() {
    SetAccessibleNames(*this, *Module());
    SetAnchors({m_kind.anchors.begin(), m_kind.anchors.end()});
    for (ui::Control* const control : Controls()) {
        if (control->Kind() == ui::ControlKind::track_bar) control->ModifyStyle(0, TBS_DOWNISLEFT);
    }
    m_values.Initialise();
    m_field_of_view.Initialise(m_scanning);
    Find(kDetectButton)->Show(m_shows_detect);
    m_gains.Hide();
    m_gains.ShowGain();
    ShowRecord();
    OnControlsCreated();
    EnableControls(false);
    Session().OnWindowCreated();
    return true;
}

// A component that is moved may do anything, also away with the page. The scanner is not asked for its frame
// rate: that does not depend on the size, and the steps of a resize come faster than a scanner answers.
void ScannerSettingsDlg::OnSize(const ui::Size& size) {
    const WindowHandle handle = Handle();
    Dialog::OnSize(size);
    if (FromHandle(handle) == this && IsCreated()) OnLayOut();
}

void ScannerSettingsDlg::OnDestroy() {
    EndSession();
    Dialog::OnDestroy();
}

void ScannerSettingsDlg::EndSession() noexcept {
    m_arguments = nullptr;
    AtBoundary([&] {
        Session().OnDestroy();
        return S_OK;
    });
    m_settings.reset();
    m_settings_map.reset();
}

void ScannerSettingsDlg::OnMessage(const WindowMessage& message) {
    if (message.id != WM_HX_CONNECTION_STATE) return;
    AtBoundary([&] {
        Session().OnConnectionStateChange(ConnectionStateOf(message));
        return S_OK;
    });
}

void ScannerSettingsDlg::EnableControls(bool enable) noexcept {
    // Nothing can be done to controls that do not show the profile.
    enable = enable && IsReady();
    m_enabled = enable;
    const ui::Control* const focused = Focused();
    EnableState state;
    state.is_set_up = Session().IsHandleAcquired() && !Session().Target().device_internal_name.empty();
    state.is_readable = enable;
    state.is_connected = Session().IsDeviceCurrent();
    state.is_power_by_hand = Data().automatic_laser_power == FALSE;
    Describe(state);
    // An edit that is disabled loses the focus: that is no work of the operator's.
    const bool outer = std::exchange(m_enabling, true);
    AtBoundary([&] {
        EnableByRules(*this, m_kind.enable_rules, kProfile, state);
        return S_OK;
    });
    m_enabling = outer;
    AtBoundary([&] {
        if (focused != Focused()) ShowRecordInEdits();
        return S_OK;
    });
}

void ScannerSettingsDlg::DisableControlsOfScanner() noexcept {
    AtBoundary([&] {
        DisableByNeed(*this, m_kind.enable_rules, &EnableState::is_connected);
        return S_OK;
    });
}

}  // namespace hx

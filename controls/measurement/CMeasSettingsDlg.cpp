#include "controls/measurement/CMeasSettingsDlg.h"

#include "controls/measurement/MeasControls.h"
#include "controls/parts/RegistrySwitch.h"
#include "controls/widgets/AccessibleNames.h"
#include "platform/com/boundary.h"
#include "platform/system/debugger_output.h"
#include "platform/ui/codes.h"

namespace hx {
namespace {

constexpr char kClass[] = "CMeasSettingsDlg";

// Where the parts of the page raise their errors.
struct PartLocations {
    MErrorLocation gains{kClass, "FillGainList"};
    MErrorLocation speed{kClass, "ShowMeasurementSpeed"};
    MErrorLocation readouts{kClass, "DisplayScannerFramerate"};
    MErrorLocation detection{kClass, "OnDetect"};
};

PartLocations& Locations() {
    static PartLocations locations;
    return locations;
}

}  // namespace

CMeasSettingsDlg::CMeasSettingsDlg()
    : BaseDynamicSettingsDlg(kMeasurementSession),
      m_values(*this, kMeasValues),
      m_flags(*this),
      m_gains(*this, *this, Locations().gains),
      m_field_of_view(*this),
      m_layout(*this),
      m_speed(*this, *this, Locations().speed),
      m_readouts(*this, *this, Locations().readouts),
      m_detection(*this, Locations().detection),
      m_shows_detect(IsOn(RegistrySwitch::kAllowAutoDetectForHX)) {
    Bind(kProfileList, ProfileList());
    Bind(kPreviewControl, m_preview);
    Session().AwaitWindow();
}

CMeasSettingsDlg::~CMeasSettingsDlg() {
    Destroy();
    EndSession();
}

bool CMeasSettingsDlg::OnInitDialog() {
    SetAccessibleNames(*this, *Module());
    SetAnchors(MeasAnchors());
    for (ui::Control* const control : Controls()) {
        if (control->Kind() == ui::ControlKind::track_bar) control->ModifyStyle(0, TBS_DOWNISLEFT);
    }
    m_values.Initialise();
    m_field_of_view.Initialise(m_scanning);
    Find(kDetectButton)->Show(m_shows_detect);
    m_gains.Hide();
    m_gains.ShowGain();
    m_speed.Show();
    ShowRecord();
    EnableControls(false);
    Session().OnWindowCreated();
    return true;
}

// A component that is moved may do anything, also away with the page. The scanner is not asked for its frame
// rate: that does not depend on the size, and the steps of a resize come faster than a scanner answers.
void CMeasSettingsDlg::OnSize(const ui::Size& size) {
    const WindowHandle handle = Handle();
    Dialog::OnSize(size);
    if (FromHandle(handle) == this && IsCreated()) m_layout.LayOut(m_field_of_view_config);
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
    m_settings.reset();
    m_settings_map.reset();
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

void CMeasSettingsDlg::EnableControls(bool enable) noexcept {
    // Nothing can be done to controls that do not show the profile.
    enable = enable && IsReady();
    m_enabled = enable;
    const ui::Control* const focused = Focused();
    EnableState state;
    state.is_set_up = Session().IsHandleAcquired() && !Session().Target().device_internal_name.empty();
    state.is_readable = enable;
    state.is_connected = Session().IsDeviceCurrent();
    state.is_power_by_hand = Data().automatic_laser_power == FALSE;
    state.filters_3d = Data().edge_filter_3d != FALSE;
    state.is_speed_selectable = m_speed.IsEnabled();
    // An edit that is disabled loses the focus: that is no work of the operator's.
    const bool outer = std::exchange(m_enabling, true);
    AtBoundary([&] {
        EnableByRules(*this, kMeasEnableRules, kMeasOthersNeed, state);
        return S_OK;
    });
    m_enabling = outer;
    AtBoundary([&] {
        if (focused != Focused()) ShowRecordInEdits();
        return S_OK;
    });
}

}  // namespace hx

// What a change of the connection state leads to.
#include "controls/api/ApiOperation.h"
#include "controls/session/ScannerSession.h"
#include "platform/system/case_fold.h"
#include "settings/profile/ProfileNames.h"

namespace hx {

void ScannerSession::OnConnectionStateChange(int32_t state) {
    if (m_operations.IsClosed() || !m_api) return;
    if (m_awaits_window) {
        m_awaiting_state = state;
        return;
    }
    m_page.NoteConnectionState();
    if (!m_selected) {
        if (m_rules.stores_states_unselected) m_connection_state = state;
        return;
    }
    if (m_operations.IsRunning()) return m_operations.Keep(state);
    OnKeptConnectionState(state);
}

void ScannerSession::OnWindowCreated() {
    m_awaits_window = false;
    if (const auto state = std::exchange(m_awaiting_state, {})) OnConnectionStateChange(*state);
}

void ScannerSession::OnKeptConnectionState(int32_t state) {
    const Scope scope(m_operations);
    if (!FollowConnectionState(state)) Reopen(scope);
    // Left and selected again in the middle of that.
    if (scope.IsSessionOpen() && m_set_up == SetUp::kInterrupted && m_api && m_selected) {
        const Scope again(m_operations);
        Reopen(again);
    }
}

bool ScannerSession::FollowConnectionState(int32_t state) {
    using enum ConnectionAction;
    const ConnectionAction action = m_rules.ActionFor(m_connection_state, state);
    const bool drop = action == kReleaseAndDrop || (action == kReopenAfresh && m_handle_acquired);
    const bool reopen = action == kReopenAfresh || (action == kReopenUnlessAcquired && !m_handle_acquired);
    // Giving back still sees the old state, setting up the new one.
    if (drop) {
        Release(m_locations.connection_change, 31);
        m_handle.reset();
    }
    const bool was_connected = std::exchange(m_connection_state, state) == HXConnected;
    const bool is_lost = was_connected && state != HXConnected;
    if (is_lost || action == kReleaseAndDrop) m_page.OnScannerUnusable();
    return !reopen;
}

void ScannerSession::Reopen(const Scope& scope) {
    bool opened = false;
    m_set_up = SetUp::kRunning;
    try {
        Release(m_locations.connection_change, 41);
        opened = scope.MayGoOn() && Open(scope);
        if (!scope.IsSessionOpen()) return;
        if (!scope.MayGoOn()) return EndSetUp(scope);
    } catch (const MException& exception) {
        if (!scope.IsSessionOpen()) return;
        if (!scope.MayGoOn()) return EndSetUp(scope);
        ApiOperation(m_locations.connection_change, this).Log(46, exception);
        EndSetUp(scope);
        m_page.ErrorBox(exception);
        if (!scope.MayGoOn()) return;
    }
    m_page.EnableControls(opened);
    m_page.RefreshFrameRate();
}

void ScannerSession::EndSetUp(const Scope& scope) {
    if (m_set_up != SetUp::kRunning) return;
    m_set_up = scope.MayGoOn() ? SetUp::kNotRunning : SetUp::kInterrupted;
}

bool ScannerSession::Open(const Scope& scope) {
    const ApiOperation operation(m_locations.connection_change, this);
    if (!m_handle) {
        const ComPtr<IHXApi> api = m_api;
        ComPtr<ICalibrationHandle> made = m_presets->CreateCalibrationHandle();
        // It is good for a later set-up as well.
        if (scope.IsSessionOpen() && m_api == api) m_handle = std::move(made);
        if (!scope.MayGoOn()) return false;
    }
    if (!AcquireCalibrationHandle(scope)) return false;
    ComPtr<IDynamicSettingsPreset> working = m_presets->CreateNewPreset();
    if (!scope.MayGoOn()) return false;
    ComPtr<IDynamicSettingsPreset> reference = m_presets->CreateNewPreset();
    if (!scope.MayGoOn()) return false;
    m_page.SetPresets(std::move(working), std::move(reference));
    SettleTarget();
    m_page.FillGainList();
    if (!scope.MayGoOn()) return false;
    uint32_t longest_exposure_us = 0;
    operation.Call(63, L"GetMaxExposureTime", m_handle, &ICalibrationHandle::GetMaxExposureTime,
                   Bstr(m_target.device_internal_name).get(), &longest_exposure_us);
    if (!scope.MayGoOn()) return false;
    m_page.SetExposureRange(longest_exposure_us);
    EndSetUp(scope);
    return m_page.FinishReopening();
}

void ScannerSession::SettleTarget() {
    if (!m_target.initialised) {
        m_target.driver_internal_name = m_presets->ScannerName();
        m_target.device_internal_name = m_presets->OwnerName();
        m_target.profile_name = m_presets->SelectedName();
        return;
    }
    if (m_target.profile_name.empty()) m_target.profile_name = kDefaultProfileName;
    // Edits of it would go with it: then a later set-up sees to that.
    if (EqualsWithoutCase(m_target.profile_name, kCustomProfileName)) return;
    if (!m_page.HasEditsOf(kCustomProfileName)) m_presets->DiscardCustomPreset();
}

}  // namespace hx

#include "controls/session/ScannerSession.h"

#include "controls/api/ApiOperation.h"
#include "platform/com/boundary.h"

namespace hx {
namespace {

// Null as an argument has no type of its own.
constexpr IUnknown* kNoObserver = nullptr;

}  // namespace

ScannerSession::ScannerSession(ISessionPage& page, const SessionRules& rules,
                               std::shared_ptr<libReplayCapture> recorder)
    : m_page(page),
      m_rules(rules),
      m_locations(rules.locations()),
      m_recorder(std::move(recorder)),
      m_operations(*this) {}

ScannerSession::~ScannerSession() {
    AtBoundary([&] {
        OnDestroy();
        return S_OK;
    });
}

void ScannerSession::SetApi(ComPtr<IHXApi> api) {
    if (m_operations.IsClosed()) return;
    if (m_api) m_events.Unadvise(m_api.get());
    m_operations.Interrupt();
    m_operations.Forget();
    m_awaiting_state.reset();
    m_page.ForgetEvents();
    m_api = std::move(api);
    if (!m_api) return;
    m_presets->SetApi(m_api);
    // Who is called may hand over another one.
    const ComPtr<IHXApi> held = m_api;
    if (const auto state = m_events.Follow(*held, m_page.MakeEventsSink().get())) {
        OnConnectionStateChange(*state);
    }
}

void ScannerSession::OnSelected() {
    if (m_operations.IsClosed()) return;
    const Scope scope(m_operations);
    m_shown = true;
    if (m_set_up == SetUp::kInterrupted && m_api) {
        m_selected = true;
        return Reopen(scope);
    }
    try {
        if (m_api && m_handle && AcquireCalibrationHandle(scope)) m_page.EnableControls(true);
    } catch (const MException& exception) {
        if (scope.MayGoOn()) {
            m_page.EnableControls(false);
            m_page.ErrorBox(exception);
        }
    }
    // The host may have left the page while a box was open.
    if (!scope.IsSessionOpen() || !m_shown) return;
    m_selected = true;
    try {
        ApplySettingsToHardware(m_page.WorkingPreset(), true);
    } catch (const MException& exception) {
        m_page.ErrorBox(exception);
    }
}

void ScannerSession::OnDeselected() {
    if (m_operations.IsClosed()) return;
    m_operations.Interrupt();
    const Scope scope(m_operations);
    m_shown = false;
    // What arrived while the page was shown still counts; there is nothing to set up for.
    while (const std::optional<int32_t> state = m_operations.TakeKept()) FollowConnectionState(*state);
    Release(m_locations.deselected, 73);
    try {
        m_page.LeaveControls();
    } catch (const MException& exception) {
        if (scope.IsSessionOpen()) ApiOperation(m_locations.deselected, this).Log(77, exception);
    }
    if (scope.IsSessionOpen()) m_selected = m_shown;
}

void ScannerSession::OnDestroy() {
    if (m_operations.IsClosed()) return;
    const Scope scope(m_operations);
    m_operations.Close();
    const ApiOperation operation(m_locations.destroy, this);
    try {
        const ComPtr<ICalibrationHandle> handle = m_presets->Handle();
        if (handle) operation.Call(84, L"CloseHandle", handle, &ICalibrationHandle::CloseHandle);
    } catch (const MException& exception) {
        operation.Log(86, exception);
    }
    m_events.Unadvise(m_api.get());
    Release(m_locations.destroy, 89);
    m_presets->RemoveCustomPreset();
    m_presets.Drop();
    m_handle.reset();
    m_api.reset();
}

bool ScannerSession::IsDeviceCurrent() const {
    return m_handle && m_connection_state == HXConnected && m_presets->IsDeviceActive();
}

void ScannerSession::ApplySettingsToHardware(const ComPtr<IDynamicSettingsPreset>& preset,
                                             bool show_wait_cursor) {
    if (m_operations.IsClosed() || !IsDeviceCurrent() || !preset || !m_page.WorkingPreset()) return;
    const Scope scope(m_operations);
    const std::shared_ptr<void> waiting = show_wait_cursor ? m_page.ShowWaitCursor() : nullptr;
    ApiOperation(m_locations.apply_settings, this)
        .Call(107, L"ActivateDynamicSettings", m_handle, &ICalibrationHandle::ActivateDynamicSettings,
              preset.get());
    if (scope.IsSessionOpen()) m_page.RefreshExposureRows();
}

void ScannerSession::ApplyGlobalScanningSettings(MGlobalScanningSettings settings) {
    if (m_operations.IsClosed() || !m_handle) return;
    const Scope scope(m_operations);
    const ApiOperation operation(m_locations.apply_global_settings, this);
    constexpr wchar_t kRegister[] = L"RegisterTrackingCycleObserver";
    constexpr auto kRegisterMethod = &ICalibrationHandle::RegisterTrackingCycleObserver;
    VARIANT address{};
    address.vt = VT_UI8;
    address.ullVal = reinterpret_cast<uintptr_t>(&settings);

    const ComPtr<ICalibrationHandle> handle = m_handle;
    // Each may dispatch messages. A scanner that was given back meanwhile is neither started again nor left
    // without its observer, if it was started for another selection.
    handle->DisableScanner();
    if (!scope.MayGoOn()) return;
    operation.Call(124, kRegister, handle, kRegisterMethod, kNoObserver);
    if (!scope.MayGoOn()) return;
    m_page.ResetPreview();
    if (!scope.MayGoOn()) return;
    operation.Call(126, L"ActivateGlobalScanningSettings", handle,
                   &ICalibrationHandle::ActivateGlobalScanningSettings, address);
    if (!scope.MayGoOn()) return;
    operation.Call(128, L"InitialiseScanner", handle, &ICalibrationHandle::InitialiseScanner, 0, 0, 1);
    if (!scope.IsSessionOpen() || !MayKeepScanner(scope)) return;
    operation.Call(129, kRegister, handle, kRegisterMethod, m_page.TrackingObserver().get());
    if (scope.IsSessionOpen()) MayKeepScanner(scope);
}

}  // namespace hx

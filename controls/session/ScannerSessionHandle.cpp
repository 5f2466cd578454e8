// Acquiring the calibration handle, and giving it back.
#include "controls/api/ApiOperation.h"
#include "controls/session/ScannerSession.h"
#include "platform/system/sleep.h"
#include "settings/profile/ProfileNames.h"

namespace hx {
namespace {

// What the scanner needs to come to rest before its observer goes.
constexpr uint32_t kRest_ms = 50;

constexpr IUnknown* kNoObserver = nullptr;

}  // namespace

bool ScannerSession::AcquireCalibrationHandle(const Scope& scope) {
    const ApiOperation operation(m_locations.acquire, this);
    m_presets->SetHandle(m_handle);
    int32_t state = HXNotConnected;
    if (m_handle) {
        ComPtr<IErrorInfo> detail;
        // The host may take it away in the middle of a call.
        const ComPtr<IHXApi> api = m_api;
        operation.Check(29, L"GetConnectionState",
                        api ? api->GetConnectionState(&state, detail.put()) : E_POINTER);
        if (!scope.MayGoOn()) return false;
        if (state == HXSuspended && m_rules.resumes) {
            operation.Check(32, L"Resume", api->Resume(detail.put()));
            if (!scope.MayGoOn()) return false;
        }
    }
    const std::shared_ptr<void> waiting = m_page.ShowWaitCursor();
    if (state == HXConnected && m_presets->ScannerName() == m_presets->ActiveScannerName()) {
        operation.Call(37, L"AcquireHandle", m_handle, &ICalibrationHandle::AcquireHandle);
        if (!scope.IsSessionOpen() || !MayKeepScanner(scope)) return false;
        const bool is_active = m_presets->UpdateActiveDeviceInternalName();
        if (!scope.MayGoOn()) return false;
        if ((is_active || !m_target.initialised) && !StartScanner(operation, scope)) return false;
    }
    if (!LoadPresets(operation, scope)) return false;
    if (m_target.profile_name == kCustomProfileName) {
        m_presets->SetCustomPreset();
        if (!scope.MayGoOn()) return false;
    }
    m_handle_acquired = true;
    return true;
}

bool ScannerSession::MayKeepScanner(const Scope& scope) {
    if (scope.MayGoOn()) return true;
    if (!m_handle_acquired) Release(m_locations.acquire, 49);
    return false;
}

bool ScannerSession::StartScanner(const ApiOperation& operation, const Scope& scope) {
    m_recorder->StartTrackingDataRecording();
    operation.Call(48, L"InitialiseScanner", m_handle, &ICalibrationHandle::InitialiseScanner, 0, 0, 1);
    if (!scope.IsSessionOpen() || !MayKeepScanner(scope)) return false;
    operation.Call(49, L"RegisterTrackingCycleObserver", m_handle,
                   &ICalibrationHandle::RegisterTrackingCycleObserver, m_page.TrackingObserver().get());
    if (!scope.IsSessionOpen() || !MayKeepScanner(scope)) return false;
    m_presets->UpdateActiveDeviceInternalName();
    return scope.MayGoOn();
}

bool ScannerSession::LoadPresets(const ApiOperation& operation, const Scope& scope) {
    const auto is_wanted = [&scope] { return scope.MayGoOn(); };
    try {
        m_presets->LoadOnce(is_wanted);
        return scope.MayGoOn();
    } catch (const MException& exception) {
        if (!MDynamicSettingsPresets::IsEnumerationOutcome(exception)) throw;
        if (!scope.MayGoOn()) return false;
        operation.Log(60, exception);
        m_page.ErrorBox(exception);
    }
    if (!scope.MayGoOn()) return false;
    m_presets->Load(is_wanted);
    return scope.MayGoOn();
}

void ScannerSession::ReleaseCalibrationHandle() {
    const ApiOperation operation(m_locations.release, this);
    m_handle_acquired = false;
    if (!m_handle) return;
    if (m_connection_state == HXConnected) {
        if (m_recorder->StopTrackingDataRecording() != ReplayCaptureSuccess) {
            operation.Fail(74, L"FailedToStopTrackingDataRecording");
        }
        operation.Call(76, L"DisableScanner", m_handle, &ICalibrationHandle::DisableScanner);
    }
    SleepMilliseconds(kRest_ms);
    operation.Call(79, L"UnRegisterTrackingCycleObserver", m_handle,
                   &ICalibrationHandle::RegisterTrackingCycleObserver, kNoObserver);
    operation.Call(81, L"ReleaseHandle", m_handle, &ICalibrationHandle::ReleaseHandle);
}

void ScannerSession::Release(MErrorLocation& location, int32_t line) {
    try {
        ReleaseCalibrationHandle();
    } catch (const MException& exception) {
        ApiOperation(location, this).Log(line, exception);
    }
}

}  // namespace hx

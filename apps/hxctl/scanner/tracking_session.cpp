#include "apps/hxctl/scanner/tracking_session.h"

#include "apps/hxctl/scanner/failed_call.h"
#include "apps/hxctl/scanner/stored_presets.h"
#include "platform/com/loader.h"

namespace hxctl {
namespace {

// The recorder, which does nothing unless the registry asks for recordings; none where it is not installed.
hx::ComPtr<IReplayCapture> CreateRecorder() {
    CLSID clsid;
    hx::ComPtr<IReplayCapture> recorder;
    if (SUCCEEDED(CLSIDFromProgID(kProgIdReplayCapture, &clsid))) {
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, hx::uuid_of<IReplayCapture>(),
                         recorder.put_void());
    }
    return recorder;
}

}  // namespace

hx::ComPtr<IDynamicSettingsPreset> PresetOf(Desk& desk, const PresetRequest& request) {
    const StoredPresets stored = LoadPresets(desk, *desk.Handle(), desk.DeviceName());
    const NamedPreset* const found = stored.Find(BstrOf(request.preset).view());
    if (found == nullptr) throw FailedCall("no preset \"" + request.preset + "\"");
    if (request.exposure_us) {
        CheckCall("SetExposureTime", found->preset->SetExposureTime(*request.exposure_us), found->preset);
    }
    if (request.laser_power_percent) {
        CheckCall("SetLaserPower", found->preset->SetLaserPower(*request.laser_power_percent), found->preset);
    }
    return found->preset;
}

TrackingSession::TrackingSession(Desk& desk, IDynamicSettingsPreset& preset, IUnknown& observer)
    : m_handle(desk.Handle()), m_recorder(CreateRecorder()) {
    CheckCall("AcquireHandle", m_handle->AcquireHandle(), m_handle);
    Record("StartTrackingDataRecording", &IReplayCapture::StartTrackingDataRecording);
    CheckCall("InitialiseScanner", m_handle->InitialiseScanner(0, 0, 1), m_handle);
    CheckCall("ActivateDynamicSettings", m_handle->ActivateDynamicSettings(&preset), m_handle);
    CheckCall("RegisterTrackingCycleObserver", m_handle->RegisterTrackingCycleObserver(&observer), m_handle);
}

void TrackingSession::End() {
    Record("StopTrackingDataRecording", &IReplayCapture::StopTrackingDataRecording);
    CheckCall("DisableScanner", m_handle->DisableScanner(), m_handle);
    CheckCall("RegisterTrackingCycleObserver", m_handle->RegisterTrackingCycleObserver(nullptr), m_handle);
    CheckCall("ReleaseHandle", m_handle->ReleaseHandle(), m_handle);
}

void TrackingSession::Record(const char* operation,
                             _ReplayCaptureResult (STDMETHODCALLTYPE IReplayCapture::*act)()) {
    const int32_t result = m_recorder ? (m_recorder.get()->*act)() : ReplayCaptureSuccess;
    if (result == ReplayCaptureSuccess) return;
    throw FailedCall(std::string(operation) + " answered " + std::to_string(result));
}

}  // namespace hxctl

// A scanner that is held and tracks, as a page does it. Operations throw a FailedCall.
#pragma once

#include "apps/hxctl/scanner/desk.h"
#include "hxapi/IReplayCapture.h"

namespace hxctl {

// The preset to work with: a copy of the stored one with what the request changes.
hx::ComPtr<IDynamicSettingsPreset> PresetOf(Desk& desk, const PresetRequest& request);

// From one connection to its end.
class TrackingSession {
public:
    TrackingSession(Desk& desk, IDynamicSettingsPreset& preset, IUnknown& observer);

    void End();
    ICalibrationHandle& Handle() { return *m_handle; }

private:
    void Record(const char* operation, _ReplayCaptureResult (STDMETHODCALLTYPE IReplayCapture::*act)());

    hx::ComPtr<ICalibrationHandle> m_handle;
    hx::ComPtr<IReplayCapture> m_recorder;
};

}  // namespace hxctl

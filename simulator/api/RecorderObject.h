// The recorder of tracking data as a component. All of a process steer the one recorder. Any thread.
#pragma once

#include "hxapi/IReplayCapture.h"
#include "platform/com/class_table.h"
#include "platform/com/implements.h"
#include "simulator/calls/Gate.h"

namespace hx::simulator {

class RecorderObject final : public Implements<RecorderObject, FreeThreaded, IReplayCapture> {
public:
    RecorderObject();

    _ReplayCaptureResult STDMETHODCALLTYPE StartTrackingDataRecording() override;
    _ReplayCaptureResult STDMETHODCALLTYPE StopTrackingDataRecording() override;

private:
    ModuleLock m_module_lock;
    const Gate m_gate;
};

}  // namespace hx::simulator

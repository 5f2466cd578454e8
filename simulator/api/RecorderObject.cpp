#include "simulator/api/RecorderObject.h"

#include "simulator/api/NewestLine.h"
#include "simulator/recorder/TrackingRecorder.h"

namespace hx::simulator {
namespace {

consteval const Operation& Op(std::wstring_view name) {
    return OperationNamed(L"IReplayCapture", name);
}

HRESULT Steer(bool (TrackingRecorder::*action)(std::wstring&)) {
    std::wstring reason;
    return (TrackingRecorder::Get().*action)(reason) ? ReplayCaptureSuccess : ReplayCaptureFailed;
}

// What was asked for by a fault may be a number without a name.
_ReplayCaptureResult ResultOf(HRESULT result) {
    return static_cast<_ReplayCaptureResult>(result);
}

}  // namespace

RecorderObject::RecorderObject() : m_gate(MakeNewestLine(), IID_IReplayCapture) {}

_ReplayCaptureResult RecorderObject::StartTrackingDataRecording() {
    return ResultOf(m_gate.Perform(Op(L"StartTrackingDataRecording"), {},
                                   [] { return Steer(&TrackingRecorder::Start); }));
}

_ReplayCaptureResult RecorderObject::StopTrackingDataRecording() {
    return ResultOf(
        m_gate.Perform(Op(L"StopTrackingDataRecording"), {}, [] { return Steer(&TrackingRecorder::Stop); }));
}

}  // namespace hx::simulator

#include "controls/api/libReplayCapture.h"

#include "platform/com/loader.h"

namespace hx {
namespace {

ComPtr<IReplayCapture> CreateRecorder() {
    ComPtr<IReplayCapture> recorder;
    CLSID clsid{};
    if (SUCCEEDED(CLSIDFromProgID(kProgIdReplayCapture, &clsid))) {
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, uuid_of<IReplayCapture>(),
                         recorder.put_void());
    }
    return recorder;
}

}  // namespace

std::shared_ptr<libReplayCapture> libReplayCapture::GetInstance() {
    static std::weak_ptr<libReplayCapture> instance;
    std::shared_ptr<libReplayCapture> recorder = instance.lock();
    if (!recorder) {
        recorder = std::make_shared<libReplayCapture>(CreateRecorder());
        instance = recorder;
    }
    return recorder;
}

_ReplayCaptureResult libReplayCapture::StartTrackingDataRecording() {
    return m_recorder ? m_recorder->StartTrackingDataRecording() : ReplayCaptureSuccess;
}

_ReplayCaptureResult libReplayCapture::StopTrackingDataRecording() {
    return m_recorder ? m_recorder->StopTrackingDataRecording() : ReplayCaptureSuccess;
}

}  // namespace hx

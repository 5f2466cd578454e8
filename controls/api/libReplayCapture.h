// The recorder of tracking data, as the pages know it: the component of that name where it is installed, else
// one that records nothing and never fails. On the thread of the user interface.
#pragma once

#include <memory>

#include "hxapi/IReplayCapture.h"
#include "platform/com/comptr.h"

namespace hx {

class libReplayCapture {
public:
    // The one recorder of the program, looked for anew when nobody holds it any more. Never null.
    static std::shared_ptr<libReplayCapture> GetInstance();

    // An empty one stands in.
    explicit libReplayCapture(ComPtr<IReplayCapture> recorder) : m_recorder(std::move(recorder)) {}

    _ReplayCaptureResult StartTrackingDataRecording();
    _ReplayCaptureResult StopTrackingDataRecording();

private:
    const ComPtr<IReplayCapture> m_recorder;
};

}  // namespace hx

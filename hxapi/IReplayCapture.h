// Records what the scanner sends while it tracks, to be replayed later. An optional component, created by
// name; called by the pages on the thread of the user interface.
#pragma once

#include "platform/com/unknown.h"

inline constexpr wchar_t kProgIdReplayCapture[] = L"Orvel.ReplayCapture.1";

enum _ReplayCaptureResult : int32_t {  // NOLINT(bugprone-reserved-identifier): so named by its makers
    ReplayCaptureSuccess = 0,
    ReplayCaptureFailed = 1,  // the recording cannot be written
};

HX_IID(IReplayCapture, "B62C07D5-18EF-4930-A5B4-F973E40D8126")
struct IReplayCapture : IUnknown {
    // Starts a recording where the registry's recorder keys ask for one; a running one goes on.
    virtual _ReplayCaptureResult STDMETHODCALLTYPE StartTrackingDataRecording() = 0;
    // Ends it, with everything on disk. Without a recording nothing is done, which is no failure.
    virtual _ReplayCaptureResult STDMETHODCALLTYPE StopTrackingDataRecording() = 0;
};

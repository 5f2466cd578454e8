// Writes the tracking cycles of all scanners of the process to a file, if the registry's recorder keys ask
// for it. Scanners add from their tracking threads and never wait for the disk: when it falls behind, cycles
// are dropped, and the file tells how many. Start and Stop on any thread; the disk's work is done on one of
// its own.
//
// Of the keys: the first "MaxTrackingCycles" cycles are kept, 0 for all of them, of which
// "ReduceTrackingData" n leaves every n-th. The path name of the data set counts only if a custom one is
// enabled. The form of the file is told by RecordingText.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <span>
#include <string>

#include "hxapi/ITrackingCycleObserver.h"

namespace hx::simulator {

class TrackingRecorder {
public:
    // The process's.
    static TrackingRecorder& Get();

    TrackingRecorder();
    TrackingRecorder(const TrackingRecorder&) = delete;
    TrackingRecorder& operator=(const TrackingRecorder&) = delete;
    // What was not stopped is thrown away.
    ~TrackingRecorder();

    // True if a recording runs then, or none is asked for. A running one goes on. False with a reason for a
    // person if the file cannot be made.
    bool Start(std::wstring& reason);
    // The recording is on disk then, under its name, and is the active data set. True if there was none, too.
    // False with a reason if it could not be written; nothing is left of it then.
    bool Stop(std::wstring& reason);

    bool IsRecording() const { return m_recording.load(std::memory_order_relaxed); }
    // `device` lives for ever.
    void Add(std::wstring_view device, std::span<const TrackingArea> areas,
             const TrackingCycle& cycle) noexcept {
        if (IsRecording()) AddNow(device, areas, cycle);
    }

private:
    class Recording;

    void AddNow(std::wstring_view device, std::span<const TrackingArea> areas,
                const TrackingCycle& cycle) noexcept;

    std::atomic<bool> m_recording{false};  // and still wants cycles
    std::mutex m_control;                  // one Start or Stop at a time
    std::mutex m_mutex;                    // guards the pointer alone
    std::shared_ptr<Recording> m_current;
};

}  // namespace hx::simulator

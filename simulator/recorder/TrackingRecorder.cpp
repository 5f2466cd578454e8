#include "simulator/recorder/TrackingRecorder.h"

#include <new>
#include <thread>
#include <utility>

#include "core/log/ModuleLogger.h"
#include "platform/com/class_table.h"
#include "platform/system/never_destroyed.h"
#include "simulator/recorder/CycleQueue.h"
#include "simulator/recorder/RecorderSettings.h"
#include "simulator/recorder/RecordingFile.h"
#include "simulator/recorder/RecordingText.h"

namespace hx::simulator {

// One of them: the queue, the thread that empties it, the file that it fills.
class TrackingRecorder::Recording {
public:
    explicit Recording(const RecorderSettings& settings)
        : m_queue(settings.keep_every, settings.most_cycles), m_file(settings.target) {}
    ~Recording() { End(); }

    bool Start(std::wstring& reason) {
        if (!m_file.Open(reason)) return false;
        m_writer = std::thread([this] { Write(); });
        return true;
    }
    bool Finish(std::wstring& reason) {
        End();
        m_file.Write(RecordingText::End(m_written, m_queue.DroppedCount() + m_too_large));
        return m_file.Finish(reason);
    }

    CycleQueue& Queue() { return m_queue; }
    const std::filesystem::path& Target() const { return m_file.Target(); }

private:
    void Write() {
        RecordingText text;
        RecordedCycle recorded;
        m_file.Write(RecordingText::Head());
        while (m_queue.Take(recorded)) {
            try {
                m_file.Write(text.Add(recorded));
                ++m_written;
            } catch (const std::bad_alloc&) {
                ++m_too_large;
            }
        }
    }
    void End() {
        m_queue.Close();
        if (m_writer.joinable()) m_writer.join();
    }

    ModuleLock m_module_lock;  // the writer runs this library's code
    CycleQueue m_queue;
    RecordingFile m_file;
    uint64_t m_written = 0;
    uint64_t m_too_large = 0;  // for the memory that there was
    std::thread m_writer;
};

TrackingRecorder& TrackingRecorder::Get() {
    static NeverDestroyed<TrackingRecorder> recorder;
    return *recorder;
}

TrackingRecorder::TrackingRecorder() = default;
TrackingRecorder::~TrackingRecorder() = default;

bool TrackingRecorder::Start(std::wstring& reason) {
    const std::lock_guard control(m_control);
    // Only Start and Stop change the pointer, so that it may be looked at here.
    if (m_current) return true;
    const RecorderSettings settings = ReadRecorderSettings();
    if (!settings.enabled) return true;
    auto recording = std::make_shared<Recording>(settings);
    if (!recording->Start(reason)) return false;
    const std::lock_guard lock(m_mutex);
    m_current = std::move(recording);
    m_recording.store(true, std::memory_order_relaxed);
    return true;
}

bool TrackingRecorder::Stop(std::wstring& reason) {
    const std::lock_guard control(m_control);
    std::shared_ptr<Recording> recording;
    {
        const std::lock_guard lock(m_mutex);
        m_recording.store(false, std::memory_order_relaxed);
        recording = std::move(m_current);
        m_current.reset();
    }
    if (!recording) return true;
    if (!recording->Finish(reason)) return false;
    // The recording is good all the same: it is only that nobody is led to it.
    if (!SetActiveDataset(recording->Target())) {
        ModuleLogger().Log({MLogSeverity::kWarning, "TrackingRecorder", 0, "TrackingRecorder::Stop",
                            L"The recording could not be made the active data set."});
    }
    return true;
}

void TrackingRecorder::AddNow(std::wstring_view device, std::span<const TrackingArea> areas,
                              const TrackingCycle& cycle) noexcept {
    std::unique_lock lock(m_mutex);
    const std::shared_ptr<Recording> recording = m_current;
    lock.unlock();
    // With all that was wanted, the next cycle costs no more than if there were no recording.
    if (!recording || recording->Queue().Put(device, areas, cycle)) return;
    lock.lock();
    if (m_current == recording) m_recording.store(false, std::memory_order_relaxed);
}

}  // namespace hx::simulator

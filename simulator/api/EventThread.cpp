#include "simulator/api/EventThread.h"

#include <chrono>

#include "simulator/threads/RetiredThreads.h"

namespace hx::simulator {

EventThread::EventThread(std::function<void(const ConnectionEvent&)> tell)
    : m_work(std::make_shared<Work>()) {
    m_work->tell = std::move(tell);
}

EventThread::~EventThread() {
    {
        const std::lock_guard guard(m_work->mutex);
        m_work->ends = true;
    }
    m_work->changed.notify_all();
    if (!m_thread.joinable()) return;
    if (m_thread.get_id() == std::this_thread::get_id()) {
        Retire(std::move(m_thread));
    } else {
        m_thread.join();
    }
}

void EventThread::Post(std::span<const ConnectionEvent> events) {
    const std::lock_guard guard(m_work->mutex);
    // What is counted will be told: without a thread nothing is.
    if (!m_thread.joinable()) m_thread = std::thread([work = m_work] { Run(work); });
    m_work->waiting.insert(m_work->waiting.end(), events.begin(), events.end());
    m_work->posted += events.size();
    m_work->changed.notify_all();
}

HRESULT EventThread::Wait() {
    std::unique_lock lock(m_work->mutex);
    if (m_thread.get_id() == std::this_thread::get_id()) return E_UNEXPECTED;
    const uint64_t last = m_work->posted;
    m_work->changed.wait(lock, [&] { return m_work->told >= last; });
    return S_OK;
}

void EventThread::Run(const std::shared_ptr<Work>& work) {
    std::unique_lock lock(work->mutex);
    while (true) {
        work->changed.wait(lock, [&] { return work->ends || !work->waiting.empty(); });
        if (work->ends) return;
        const ConnectionEvent event = work->waiting.front();
        work->waiting.pop_front();
        if (event.pause_ms != 0) {
            const auto pause = std::chrono::milliseconds(event.pause_ms);
            if (work->changed.wait_for(lock, pause, [&] { return work->ends; })) return;
        }
        lock.unlock();
        work->tell(event);
        lock.lock();
        ++work->told;
        work->changed.notify_all();
    }
}

}  // namespace hx::simulator

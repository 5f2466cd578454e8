// The thread on which a simulator tells its events, one after the other. Started by the first, ended with its
// owner. Any thread.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <thread>

#include "platform/com/class_table.h"

namespace hx::simulator {

struct ConnectionEvent {
    int32_t state;
    bool arrives = true;    // the state becomes that number when the event is told; else it is that already
    uint32_t pause_ms = 0;  // in front of it
    uint32_t cuts = 0;      // that the connection had seen when the event was posted
};

class EventThread {
public:
    // Events go to `tell`, which may run longer than this object lives: if that ends in an event.
    explicit EventThread(std::function<void(const ConnectionEvent&)> tell);
    EventThread(const EventThread&) = delete;
    EventThread& operator=(const EventThread&) = delete;
    // Events that were not told yet are not.
    ~EventThread();

    // One behind the other, with none of other threads' between. Throws std::bad_alloc, std::system_error,
    // and has then posted none.
    void Post(std::span<const ConnectionEvent> events);
    // Until what was posted so far has been told. E_UNEXPECTED, at once, on the thread itself.
    HRESULT Wait();

private:
    struct Work {
        std::mutex mutex;  // guards what follows but `tell`
        std::condition_variable changed;
        std::deque<ConnectionEvent> waiting;
        uint64_t posted = 0;
        uint64_t told = 0;
        bool ends = false;
        std::function<void(const ConnectionEvent&)> tell;
        ModuleLock module_lock;
    };
    static void Run(const std::shared_ptr<Work>& work);

    const std::shared_ptr<Work> m_work;
    std::thread m_thread;
};

}  // namespace hx::simulator

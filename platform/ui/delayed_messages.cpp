#include <algorithm>
#include <new>
#include <system_error>
#include <thread>

#include "platform/system/never_destroyed.h"
#include "platform/ui/message_queue.h"

namespace hx {
namespace {

using Clock = std::chrono::steady_clock;

// Longer than anybody waits, and the clock does not overflow.
constexpr std::chrono::milliseconds kLongest = std::chrono::hours(24 * 365);

// One thread for the whole process, from the first delayed message on. It never ends: the process may, while
// it waits.
struct Timer {
    std::condition_variable earlier;  // something is due before what is waited for
    bool running = false;             // guarded by MessageWindows::mutex
};

Timer& TheTimer() {
    static NeverDestroyed<Timer> timer;
    return *timer;
}

void Run() {
    constexpr std::chrono::milliseconds kUntilThereIsMemory(10);
    MessageWindows& windows = AllMessageWindows();
    std::unique_lock lock(windows.mutex);
    for (;;) {
        if (windows.delayed.empty()) {
            TheTimer().earlier.wait(lock);
            continue;
        }
        const auto next = windows.delayed.begin();
        const Clock::time_point due = next->first;
        if (due > Clock::now()) {
            TheTimer().earlier.wait_until(lock, due);
            continue;
        }
        // From here to there under one lock, so that a window that goes meets all that it has.
        PostResult result;
        try {
            result = PostLocked(windows, next->second);
        } catch (const std::bad_alloc&) {
            TheTimer().earlier.wait_for(lock, kUntilThereIsMemory);
            continue;
        }
        windows.delayed.erase(next);
        if (!result.to_wake) continue;
        lock.unlock();
        Wake(*result.to_wake);
        result.to_wake.reset();
        lock.lock();
    }
}

// The lock is held.
bool StartTimer() {
    Timer& timer = TheTimer();
    if (timer.running) return true;
    try {
        std::thread(&Run).detach();
    } catch (const std::system_error&) {
        return false;
    }
    timer.running = true;
    return true;
}

}  // namespace

bool PostWindowMessageAfter(WindowHandle window, const WindowMessage& message,
                            std::chrono::milliseconds delay) {
    if (delay <= std::chrono::milliseconds::zero()) return PostWindowMessage(window, message);
    MessageWindows& windows = AllMessageWindows();
    const std::lock_guard lock(windows.mutex);
    if (!windows.entries.contains(window) || !StartTimer()) return false;
    const auto at =
        windows.delayed.emplace(Clock::now() + std::min(delay, kLongest), Posted{window, message});
    if (at == windows.delayed.begin()) TheTimer().earlier.notify_one();
    return true;
}

}  // namespace hx

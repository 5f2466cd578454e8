#include <algorithm>
#include <system_error>
#include <thread>
#include <vector>

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

// What is due is in the queues when the lock is given back, so that a window that goes meets all that it has.
std::vector<std::shared_ptr<MessageQueue>> PostDue(MessageWindows& windows) {
    std::vector<std::shared_ptr<MessageQueue>> to_wake;
    const auto now = Clock::now();
    while (!windows.delayed.empty() && windows.delayed.begin()->first <= now) {
        PostResult result = PostLocked(windows, windows.delayed.begin()->second);
        windows.delayed.erase(windows.delayed.begin());
        if (result.to_wake) to_wake.push_back(std::move(result.to_wake));
    }
    return to_wake;
}

void Run() {
    MessageWindows& windows = AllMessageWindows();
    std::unique_lock lock(windows.mutex);
    for (;;) {
        if (windows.delayed.empty()) {
            TheTimer().earlier.wait(lock);
        } else {
            const auto due = windows.delayed.begin()->first;
            TheTimer().earlier.wait_until(lock, due);
        }
        const std::vector<std::shared_ptr<MessageQueue>> to_wake = PostDue(windows);
        if (to_wake.empty()) continue;
        lock.unlock();
        for (const std::shared_ptr<MessageQueue>& queue : to_wake) Wake(*queue);
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

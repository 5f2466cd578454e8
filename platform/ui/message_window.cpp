#include "platform/ui/message_window.h"

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "platform/system/never_destroyed.h"

namespace hx {

struct MessageDispatch {
    static void Deliver(MessageWindow& window, const WindowMessage& message) { window.OnMessage(message); }
};

namespace {

struct Posted {
    WindowHandle window;
    WindowMessage message;
};

// Of one thread.
struct Queue {
    std::deque<Posted> messages;      // guarded by Windows::mutex
    std::condition_variable arrived;  // told when the queue was empty

    // Held while the hook runs, so that nobody who took it away finds it running. A hook may post, and so
    // come again.
    std::recursive_mutex hook_mutex;
    MessageHookEntry hook;
};

// One lock for all: it is held for moments only, and a window that goes takes its messages along in one step.
struct Windows {
    struct Entry {
        MessageWindow* window;
        std::shared_ptr<Queue> queue;
    };
    std::mutex mutex;
    std::unordered_map<WindowHandle, Entry> entries;
    WindowHandle last_handle = 0;
};

Windows& AllWindows() {
    static NeverDestroyed<Windows> windows;
    return *windows;
}

thread_local bool t_ended = false;  // has no destructor, and so can be read to the thread's very end

// This thread's queue, for as long as the thread may dispatch.
class ThreadQueue {
public:
    ThreadQueue() = default;
    ThreadQueue(const ThreadQueue&) = delete;
    ThreadQueue& operator=(const ThreadQueue&) = delete;
    ~ThreadQueue() {
        t_ended = true;
        {
            Windows& windows = AllWindows();
            const std::lock_guard lock(windows.mutex);
            std::erase_if(windows.entries, [&](const auto& entry) { return entry.second.queue == m_queue; });
        }
        const std::lock_guard lock(m_queue->hook_mutex);
        m_queue->hook = {};
    }

    // Null once the thread's own objects are gone, as in the destructor of a static one.
    static std::shared_ptr<Queue> Get() {
        if (t_ended) return nullptr;
        thread_local const ThreadQueue queue;
        return queue.m_queue;
    }

private:
    std::shared_ptr<Queue> m_queue = std::make_shared<Queue>();
};

// A window that is made once its thread can dispatch no more is in no table.
WindowHandle Enter(MessageWindow& window) {
    std::shared_ptr<Queue> queue = ThreadQueue::Get();
    Windows& windows = AllWindows();
    const std::lock_guard lock(windows.mutex);
    const WindowHandle handle = ++windows.last_handle;
    if (queue) windows.entries.emplace(handle, Windows::Entry{&window, std::move(queue)});
    return handle;
}

// The next message of `queue`, and to whom it goes; null for none.
MessageWindow* Take(Queue& queue, WindowMessage& message) {
    Windows& windows = AllWindows();
    const std::lock_guard lock(windows.mutex);
    if (queue.messages.empty()) return nullptr;
    const Posted posted = queue.messages.front();
    queue.messages.pop_front();
    message = posted.message;
    return windows.entries.at(posted.window).window;
}

}  // namespace

MessageWindow::MessageWindow() : m_handle(Enter(*this)) {}

MessageWindow::~MessageWindow() {
    Windows& windows = AllWindows();
    const std::lock_guard lock(windows.mutex);
    const auto found = windows.entries.find(m_handle);
    if (found == windows.entries.end()) return;  // its thread has ended
    std::erase_if(found->second.queue->messages,
                  [this](const Posted& posted) { return posted.window == m_handle; });
    windows.entries.erase(found);
}

bool PostWindowMessage(WindowHandle window, const WindowMessage& message) {
    std::shared_ptr<Queue> queue;
    {
        Windows& windows = AllWindows();
        const std::lock_guard lock(windows.mutex);
        const auto found = windows.entries.find(window);
        if (found == windows.entries.end()) return false;
        std::deque<Posted>& messages = found->second.queue->messages;
        messages.push_back({window, message});
        if (messages.size() > 1) return true;  // who waits has been told, and the hook called
        queue = found->second.queue;
    }
    queue->arrived.notify_one();
    const std::lock_guard lock(queue->hook_mutex);
    if (queue->hook.hook) queue->hook.hook(queue->hook.context);
    return true;
}

void DropWindowMessages(WindowHandle window, uint32_t id) {
    Windows& windows = AllWindows();
    const std::lock_guard lock(windows.mutex);
    const auto found = windows.entries.find(window);
    if (found == windows.entries.end()) return;
    std::erase_if(found->second.queue->messages,
                  [&](const Posted& posted) { return posted.window == window && posted.message.id == id; });
}

size_t DispatchMessages() {
    const std::shared_ptr<Queue> queue = ThreadQueue::Get();
    if (!queue) return 0;
    size_t count = 0;
    WindowMessage message;
    while (MessageWindow* const window = Take(*queue, message)) {
        MessageDispatch::Deliver(*window, message);
        ++count;
    }
    return count;
}

bool WaitForMessage(std::chrono::milliseconds patience) {
    // Longer than anybody waits, and the clock does not overflow.
    constexpr std::chrono::milliseconds kLongest = std::chrono::hours(24 * 365);
    const std::shared_ptr<Queue> queue = ThreadQueue::Get();
    if (!queue) return false;
    std::unique_lock lock(AllWindows().mutex);
    return queue->arrived.wait_for(lock, std::min(patience, kLongest),
                                   [&] { return !queue->messages.empty(); });
}

MessageHookEntry SetMessageHook(MessageHookEntry entry) {
    const std::shared_ptr<Queue> queue = ThreadQueue::Get();
    if (!queue) return {};
    const std::lock_guard lock(queue->hook_mutex);
    return std::exchange(queue->hook, entry);
}

}  // namespace hx

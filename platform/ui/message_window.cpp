#include "platform/ui/message_window.h"

#include <algorithm>
#include <utility>

#include "platform/system/never_destroyed.h"
#include "platform/ui/message_queue.h"

namespace hx {

struct MessageDispatch {
    static void Deliver(MessageWindow& window, const WindowMessage& message) { window.OnMessage(message); }
};

namespace {

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
            MessageWindows& windows = AllMessageWindows();
            const std::lock_guard lock(windows.mutex);
            std::erase_if(windows.entries, [&](const auto& entry) { return entry.second.queue == m_queue; });
        }
        const std::lock_guard lock(m_queue->hook_mutex);
        m_queue->hook = {};
    }

    // Null once the thread's own objects are gone, as in the destructor of a static one.
    static std::shared_ptr<MessageQueue> Get() {
        if (t_ended) return nullptr;
        thread_local const ThreadQueue queue;
        return queue.m_queue;
    }

private:
    std::shared_ptr<MessageQueue> m_queue = std::make_shared<MessageQueue>();
};

// A window that is made once its thread can dispatch no more is in no table.
WindowHandle Enter(MessageWindow& window) {
    std::shared_ptr<MessageQueue> queue = ThreadQueue::Get();
    MessageWindows& windows = AllMessageWindows();
    const std::lock_guard lock(windows.mutex);
    const WindowHandle handle = ++windows.last_handle;
    if (queue) windows.entries.emplace(handle, MessageWindows::Entry{&window, std::move(queue)});
    return handle;
}

// The next message of `queue`, to whom it goes, and whether others wait; null for none.
MessageWindow* Take(MessageQueue& queue, WindowMessage& message, bool& more) {
    MessageWindows& windows = AllMessageWindows();
    const std::lock_guard lock(windows.mutex);
    if (queue.messages.empty()) return nullptr;
    const Posted posted = queue.messages.front();
    queue.messages.pop_front();
    message = posted.message;
    more = !queue.messages.empty();
    return windows.entries.at(posted.window).window;
}

}  // namespace

MessageWindows& AllMessageWindows() {
    static NeverDestroyed<MessageWindows> windows;
    return *windows;
}

MessageWindow::MessageWindow() : m_handle(Enter(*this)) {}

MessageWindow::~MessageWindow() {
    MessageWindows& windows = AllMessageWindows();
    const std::lock_guard lock(windows.mutex);
    const auto found = windows.entries.find(m_handle);
    if (found == windows.entries.end()) return;  // its thread has ended
    std::erase_if(found->second.queue->messages,
                  [this](const Posted& posted) { return posted.window == m_handle; });
    std::erase_if(windows.delayed, [this](const auto& entry) { return entry.second.window == m_handle; });
    windows.entries.erase(found);
}

PostResult PostLocked(MessageWindows& windows, const Posted& posted) {
    const auto found = windows.entries.find(posted.window);
    if (found == windows.entries.end()) return {};
    std::deque<Posted>& messages = found->second.queue->messages;
    messages.push_back(posted);
    if (messages.size() > 1) return {true, nullptr};  // who waits has been told, and the hook called
    return {true, found->second.queue};
}

void Wake(MessageQueue& queue) {
    queue.arrived.notify_one();
    const std::lock_guard lock(queue.hook_mutex);
    if (queue.hook.hook) queue.hook.hook(queue.hook.context);
}

bool PostWindowMessage(WindowHandle window, const WindowMessage& message) {
    PostResult result;
    {
        MessageWindows& windows = AllMessageWindows();
        const std::lock_guard lock(windows.mutex);
        result = PostLocked(windows, {window, message});
    }
    if (result.to_wake) Wake(*result.to_wake);
    return result.posted;
}

void DropWindowMessages(WindowHandle window, uint32_t id) {
    MessageWindows& windows = AllMessageWindows();
    const std::lock_guard lock(windows.mutex);
    const auto found = windows.entries.find(window);
    if (found == windows.entries.end()) return;
    const auto is_meant = [&](const Posted& posted) {
        return posted.window == window && posted.message.id == id;
    };
    std::erase_if(found->second.queue->messages, is_meant);
    std::erase_if(windows.delayed, [&](const auto& entry) { return is_meant(entry.second); });
}

size_t DispatchMessages() {
    const std::shared_ptr<MessageQueue> queue = ThreadQueue::Get();
    if (!queue) return 0;
    size_t count = 0;
    WindowMessage message;
    bool more = false;
    while (MessageWindow* const window = Take(*queue, message, more)) {
        MessageDispatch::Deliver(*window, message);
        ++count;
    }
    return count;
}

size_t DispatchWaitingMessages() {
    const std::shared_ptr<MessageQueue> queue = ThreadQueue::Get();
    if (!queue) return 0;
    size_t waiting = 0;
    {
        const std::lock_guard lock(AllMessageWindows().mutex);
        waiting = queue->messages.size();
    }
    WindowMessage message;
    bool more = false;
    for (size_t count = 0; count < waiting; ++count) {
        MessageWindow* const window = Take(*queue, message, more);
        if (!window) return count;
        if (more) Wake(*queue);
        MessageDispatch::Deliver(*window, message);
    }
    return waiting;
}

bool WaitForMessage(std::chrono::milliseconds patience) {
    // Longer than anybody waits, and the clock does not overflow.
    constexpr std::chrono::milliseconds kLongest = std::chrono::hours(24 * 365);
    const std::shared_ptr<MessageQueue> queue = ThreadQueue::Get();
    if (!queue) return false;
    std::unique_lock lock(AllMessageWindows().mutex);
    return queue->arrived.wait_for(lock, std::min(patience, kLongest),
                                   [&] { return !queue->messages.empty(); });
}

MessageHookEntry SetMessageHook(MessageHookEntry entry) {
    const std::shared_ptr<MessageQueue> queue = ThreadQueue::Get();
    if (!queue) return {};
    const std::lock_guard lock(queue->hook_mutex);
    return std::exchange(queue->hook, entry);
}

}  // namespace hx

// The queues behind message windows: who is there, what waits for whom. Inside platform/ui; any thread.
#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <unordered_map>

#include "platform/ui/message_window.h"

namespace hx {

struct Posted {
    WindowHandle window;
    WindowMessage message;
};

// Of one thread.
struct MessageQueue {
    std::deque<Posted> messages;      // guarded by MessageWindows::mutex
    std::condition_variable arrived;  // told when the queue was empty

    // Held while the hook runs, so that nobody who took it away finds it running. A hook may post, and so
    // come again.
    std::recursive_mutex hook_mutex;
    MessageHookEntry hook;
};

// One lock for all: it is held for moments only, and a window that goes takes its messages along in one step.
struct MessageWindows {
    struct Entry {
        MessageWindow* window;
        std::shared_ptr<MessageQueue> queue;
    };
    std::mutex mutex;
    std::unordered_map<WindowHandle, Entry> entries;
    WindowHandle last_handle = 0;
    // Not due yet; in the order in which they will be.
    std::multimap<std::chrono::steady_clock::time_point, Posted> delayed;
};

MessageWindows& AllMessageWindows();

// Puts the message into the queue of its window, if that is there; the lock is held. What is given, if
// anything, is to be woken once it is not held any more.
struct PostResult {
    bool posted = false;
    std::shared_ptr<MessageQueue> to_wake;
};
PostResult PostLocked(MessageWindows& windows, const Posted& posted);
void Wake(MessageQueue& queue);

}  // namespace hx

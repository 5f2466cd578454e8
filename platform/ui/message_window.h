// Messages from any thread to an object on the thread of the user interface: who posts goes on at once, and
// the object is called when its own thread dispatches. A window of messages alone; windows on the screen
// build on it.
//
// Each thread that makes message windows has a queue, in which messages keep the order in which they were
// posted. The thread dispatches them by DispatchMessages, from its own loop or from a toolkit's, which is
// told by the hook of SetMessageHook that there is something to do.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>

#include "platform/api.h"

namespace hx {

// Names a window for as long as the process lives; never given twice. 0 is none.
using WindowHandle = uint64_t;

struct WindowMessage {
    uint32_t id = 0;
    uint64_t first = 0;
    int64_t second = 0;
};

// Made, used and destroyed on one thread.
class HX_PLATFORM_API MessageWindow {
public:
    MessageWindow();
    MessageWindow(const MessageWindow&) = delete;
    MessageWindow& operator=(const MessageWindow&) = delete;

    WindowHandle Handle() const { return m_handle; }

protected:
    // Messages that were posted and not dispatched are dropped.
    virtual ~MessageWindow();

    // Must not throw. It may destroy windows, this one included, and may dispatch messages itself.
    virtual void OnMessage(const WindowMessage& message) = 0;

private:
    friend struct MessageDispatch;

    const WindowHandle m_handle;
};

// False, and nothing is done, if there is no such window any more. Any thread. Throws std::bad_alloc.
HX_PLATFORM_API bool PostWindowMessage(WindowHandle window, const WindowMessage& message);

// The same, once so much time has passed; in the meantime nothing waits. A window that goes takes it along.
HX_PLATFORM_API bool PostWindowMessageAfter(WindowHandle window, const WindowMessage& message,
                                            std::chrono::milliseconds delay);

// Messages of that id that wait for the window, which is one of this thread's, are dropped.
HX_PLATFORM_API void DropWindowMessages(WindowHandle window, uint32_t id);

// Delivers this thread's messages, those posted meanwhile included, until there is none; says how many.
HX_PLATFORM_API size_t DispatchMessages();

// Delivers as many as wait now, for callers who have other things to do, too; says how many. Before one
// behind which others wait, the hook is called: a loop that runs inside OnMessage, or after it has failed, is
// told of them.
HX_PLATFORM_API size_t DispatchWaitingMessages();

// Waits until this thread has a message; false if none came in time.
HX_PLATFORM_API bool WaitForMessage(std::chrono::milliseconds patience);

// Called on the posting thread whenever a message comes to this thread's queue, which was empty, and by
// DispatchWaitingMessages; it must neither dispatch nor wait for this thread. Null for none, which is so when
// the thread ends. Gives the one before, null likewise, which is not running on any other thread any more.
using MessageHook = void (*)(void* context);
struct MessageHookEntry {
    MessageHook hook = nullptr;
    void* context = nullptr;
};
HX_PLATFORM_API MessageHookEntry SetMessageHook(MessageHookEntry entry);

}  // namespace hx

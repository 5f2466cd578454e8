// Brings messages of windows into the toolkit's event loop, whoever runs it, and keeps them out of it where
// that is wanted. Made and used on the thread of the user interface.
#pragma once

#include <QObject>
#include <atomic>

#include "platform/ui/message_window.h"

namespace hx::ui {

class MessagePump {
public:
    MessagePump();
    MessagePump(const MessagePump&) = delete;
    MessagePump& operator=(const MessagePump&) = delete;
    ~MessagePump();

    // Messages that wait are dispatched by the event loop that runs next. Any thread. To be called before a
    // loop inside another one: nobody is told of messages that wait for a host's own DispatchMessages.
    void Wake();
    // Until nothing is left to be done, or somebody always leaves something.
    void Run();
    void DiscardMouse();

private:
    void Dispatch();

    QObject m_receiver;
    MessageHookEntry m_before;
    std::atomic<bool> m_woken = false;  // an event that dispatches is on its way
    bool m_held = false;
};

}  // namespace hx::ui

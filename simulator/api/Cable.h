// The connection to a simulated scanner: its state, the scanner at its end, and the listeners who are told of
// changes. Shared by the objects of one simulated scanner API. Any thread; no listener is called with a lock.
#pragma once

#include "platform/com/connection_point.h"
#include "simulator/api/EventThread.h"
#include "simulator/calls/Gate.h"
#include "simulator/scanner/Scanner.h"

namespace hx::simulator {

class Cable final : public Line {
public:
    Cable(ComPtr<ConnectionPoint> listeners, std::shared_ptr<Scanner> scanner);

    int32_t State() const;
    std::shared_ptr<Scanner> AtItsEnd() const;
    // E_UNEXPECTED unless the state is 0.
    HRESULT Replace(std::shared_ptr<Scanner> scanner);

    // At once.
    void SetState(int32_t state, bool tells);
    // One state after the other, each when it is told.
    void Connect();
    void Disconnect();
    void HangUp() override;
    HRESULT WaitForEvents() { return m_events.Wait(); }

private:
    struct End {
        mutable std::mutex mutex;  // guards state, cuts and scanner
        int32_t state = 0;
        uint32_t cuts = 0;  // how often it was cut
        std::shared_ptr<Scanner> scanner;
        ComPtr<ConnectionPoint> listeners;
        SharedCalls calls;

        // With the lock held.
        void Set(int32_t new_state);
        void Tell(const ConnectionEvent& event);
    };

    // With the lock of the state held, so that the last state that is told is the last that was set.
    void PostThatItIs(int32_t state);
    // What arrives does so unless the connection is cut before.
    void Post(std::span<const ConnectionEvent> events);

    // Of the event thread, too, which may still be at work when this object is gone.
    const std::shared_ptr<End> m_end;
    EventThread m_events;
};

}  // namespace hx::simulator

// Keeps connection states that arrive in the middle of something until it is over. A box, a menu or a
// detection dispatches messages, and a set-up in between would replace what the interrupted operation works
// with. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>

#include "controls/presets/PresetsReference.h"

namespace hx {

class ConnectionListener {
public:
    virtual ~ConnectionListener() = default;
    virtual void OnKeptConnectionState(int32_t state) = 0;
    // What must not go in the middle of an operation: a page, if it is shared, and its presets manager.
    struct Held {
        std::shared_ptr<void> page;
        std::optional<PresetsReference> presets;
    };
    virtual Held Hold() { return {}; }
};

class SessionOperations {
public:
    // The listener is told of kept states, until Close.
    explicit SessionOperations(ConnectionListener& listener) : m_state(std::make_shared<State>(&listener)) {}
    SessionOperations(const SessionOperations&) = delete;
    SessionOperations& operator=(const SessionOperations&) = delete;
    ~SessionOperations() { Close(); }

private:
    struct State {
        explicit State(ConnectionListener* to) : listener(to) {}
        ConnectionListener::Held Hold() const {
            if (listener == nullptr) return {};
            return listener->Hold();
        }
        ConnectionListener* listener;  // null once closed
        int32_t depth = 0;
        uint32_t interruptions = 0;
        bool handling_kept = false;
        std::deque<int32_t> kept;
    };

public:
    // Something runs as long as this lives, and what the listener holds does not go. It outlives the
    // session, if need be.
    class Scope {
    public:
        explicit Scope(const SessionOperations& operations)
            : m_state(operations.m_state), m_held(m_state->Hold()), m_interruptions(m_state->interruptions) {
            ++m_state->depth;
        }
        Scope(const Scope&) = delete;
        Scope& operator=(const Scope&) = delete;
        // The end of the outermost one: the states that were kept are handled, in their order. Nothing that
        // this throws gets out.
        ~Scope();

        // False once the session was ended meanwhile: neither it nor its page may be touched.
        bool IsSessionOpen() const { return m_state->listener != nullptr; }
        // Whether the operation is still wanted: to be asked after whatever may have dispatched messages.
        bool MayGoOn() const { return IsSessionOpen() && m_state->interruptions == m_interruptions; }

    private:
        const std::shared_ptr<State> m_state;
        const ConnectionListener::Held m_held;
        const uint32_t m_interruptions;
    };

    bool IsRunning() const { return m_state->depth > 0; }
    bool IsClosed() const { return m_state->listener == nullptr; }
    void Keep(int32_t connection_state) { m_state->kept.push_back(connection_state); }
    // The oldest state that is kept, which is it no more.
    std::optional<int32_t> TakeKept() {
        if (m_state->kept.empty()) return {};
        const int32_t oldest = m_state->kept.front();
        m_state->kept.pop_front();
        return oldest;
    }
    // Kept states of another scanner API are worth nothing.
    void Forget() { m_state->kept.clear(); }
    // What runs now is not to go on.
    void Interrupt() { ++m_state->interruptions; }
    // The session ends.
    void Close() {
        m_state->listener = nullptr;
        m_state->kept.clear();
    }

private:
    const std::shared_ptr<State> m_state;
};

}  // namespace hx

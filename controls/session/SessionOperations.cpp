#include "controls/session/SessionOperations.h"

#include "platform/com/boundary.h"

namespace hx {

SessionOperations::Scope::~Scope() {
    --m_state->depth;
    // The end of the handling of a kept one: whoever had it handled goes on with the next.
    if (m_state->handling_kept) return;
    m_state->handling_kept = true;
    // Each is an operation of its own, which may keep further ones and may end the session.
    while (m_state->depth == 0 && m_state->listener != nullptr && !m_state->kept.empty()) {
        const int32_t connection_state = m_state->kept.front();
        m_state->kept.pop_front();
        AtBoundary([&] {
            m_state->listener->OnKeptConnectionState(connection_state);
            return S_OK;
        });
    }
    m_state->handling_kept = false;
}

}  // namespace hx

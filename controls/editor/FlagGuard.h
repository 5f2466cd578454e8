// A flag of a page that has a value as long as something lasts. The page may go meanwhile; then there is
// nothing to put back.
#pragma once

#include "controls/session/SessionOperations.h"

namespace hx {

// `Flag` is a bool or an atomic one, and has the other value before.
template <class Flag>
class FlagGuard {
public:
    FlagGuard(Flag& flag, bool value, const SessionOperations& operations)
        : m_scope(operations), m_flag(flag), m_value(value) {
        m_flag = value;
    }
    FlagGuard(const FlagGuard&) = delete;
    FlagGuard& operator=(const FlagGuard&) = delete;
    ~FlagGuard() {
        if (m_scope.IsSessionOpen()) m_flag = !m_value;
    }

private:
    const SessionOperations::Scope m_scope;  // connection states wait at least as long
    Flag& m_flag;
    const bool m_value;
};

}  // namespace hx

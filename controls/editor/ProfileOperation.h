// How the operations of ProfileEditor run: one at a time. Included by its sources alone.
#pragma once

#include "controls/editor/ProfileEditor.h"

namespace hx {

// Shows what `operation` throws. An operation that comes while another one asks or tells something does
// nothing: what that one works with must stay.
template <class Operation>
void ProfileEditor::Operate(Operation operation) noexcept {
    if (m_operating) return;
    Attempt([&](const Scope& scope) {
        const FlagGuard operating(m_operating, true, Operations());
        try {
            operation(scope);
        } catch (...) {
            // Here, since it is still the same operation while that is shown.
            if (scope.IsSessionOpen()) ShowFailure();
        }
    });
}

}  // namespace hx

// A box that tells the operator of a failure, which the log gets as well. On the thread of the user
// interface.
#pragma once

#include <string>

#include "core/errors/MErrorLocation.h"
#include "platform/ui/window.h"

namespace hx {

// Returns when the box was closed; messages are dispatched meanwhile. Never throws.
void ShowErrorText(ui::Window* owner, const MErrorLocation& location, const std::wstring& text) noexcept;

}  // namespace hx

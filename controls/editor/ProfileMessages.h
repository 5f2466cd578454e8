// What a settings page tells its operator: a box with the text, which the log gets as well. Returns when the
// box was closed; messages are dispatched meanwhile. On the thread of the user interface; never throws.
#pragma once

#include <cstdint>
#include <string_view>

#include "core/errors/MException.h"
#include "platform/ui/window.h"

namespace hx {

// In the operator's words; the log gets the error codes, too.
void ShowErrorBox(ui::Window* owner, const MException& exception) noexcept;
// A string resource with the argument in the place of "%s".
void ShowTextBox(ui::Window* owner, uint32_t string_id, std::wstring_view argument) noexcept;

}  // namespace hx

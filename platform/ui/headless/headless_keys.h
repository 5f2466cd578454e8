// What keys do in controls by themselves, as a toolkit would do it.
#pragma once

#include "platform/ui/controls.h"
#include "platform/ui/list_box.h"

namespace hx::ui {

// In place of what is selected; what is too much is left out.
void EnterText(Edit& edit, std::wstring_view text);
// The code, and the end of the movement.
void ScrollAndEnd(TrackBar& track_bar, uint32_t code);
// What the control does with a key that nobody else has handled.
void DoKey(Control& control, uint32_t key);

}  // namespace hx::ui

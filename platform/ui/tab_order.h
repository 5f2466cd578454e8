// The order in which Tab goes through everything in a window: the controls of a dialog as its template has
// them, in the place of a component those of the component's window. On the thread of the user interface.
#pragma once

#include <vector>

#include "platform/api.h"

namespace hx::ui {

class Control;
class Window;

// Those that the focus cannot go to, too; without what is in hidden windows and disabled components.
HX_PLATFORM_API std::vector<Control*> ControlsIn(const Window& window);

bool TakesFocus(const Control& control);
// Itself, or of a component the first tab stop in it; null if it does not take the focus.
Control* FocusTarget(Control& control);
// The next tab stop behind `from` or before it, around the end; from nowhere the first or the last. Null for
// no other one.
Control* NextStop(const std::vector<Control*>& controls, const Control* from, bool backwards);

}  // namespace hx::ui

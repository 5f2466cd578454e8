// What this program remembers from one time to the next, below HKEY_CURRENT_USER\Software\Orvel\HXHost: where
// its window was, and what was chosen. Any thread, but for FittedToScreen.
#pragma once

#include <optional>
#include <string>

#include "platform/ui/geometry.h"

namespace hxhost {

struct WindowMemory {
    std::optional<hx::ui::Rectangle> window;
    std::wstring model;  // empty: the first
    std::wstring surface;
};

// What cannot be read, and sizes that no window has, are left out.
WindowMemory LoadMemory();
// False if the store refuses it.
bool SaveMemory(const WindowMemory& memory);

// The window inside the screen that most of it is on, no smaller than `smallest` unless the screen is;
// without a place it is in the middle. A renderer is set. On the thread of the user interface.
hx::ui::Rectangle FittedToScreen(const std::optional<hx::ui::Rectangle>& window,
                                 const hx::ui::Size& smallest);

}  // namespace hxhost

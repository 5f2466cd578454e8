// Windows as component interfaces name them: an HWND here is a window's handle, and points at nothing; and
// rectangles and sizes as they have them. Any thread.
#pragma once

#include "platform/com/window_types.h"
#include "platform/ui/geometry.h"
#include "platform/ui/message_window.h"

namespace hx::ui {

inline HWND ToHwnd(WindowHandle window) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): so a handle travels
    return reinterpret_cast<HWND>(static_cast<uintptr_t>(window));
}
inline WindowHandle ToHandle(HWND window) {
    return reinterpret_cast<uintptr_t>(window);
}

inline RECT ToRect(const Rectangle& bounds) {
    return {bounds.left, bounds.top, bounds.right, bounds.bottom};
}
inline Rectangle ToRectangle(const RECT& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

// Pixels at 100 %, 96 to the inch, in hundredths of a millimetre.
constexpr SIZEL ToHimetric(Size pixels) {
    constexpr int32_t kPerInch = 2540;
    constexpr int32_t kPixelsPerInch = 96;
    return {(pixels.width * kPerInch + kPixelsPerInch / 2) / kPixelsPerInch,
            (pixels.height * kPerInch + kPixelsPerInch / 2) / kPixelsPerInch};
}

}  // namespace hx::ui

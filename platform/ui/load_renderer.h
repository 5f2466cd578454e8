// The renderer with a screen: a library of its own beside the platform's, loaded by hosts that have one. Its
// toolkit is set up when it is loaded, once per process, and must be left to it. On the thread of the user
// interface.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/ui/renderer.h"

namespace hx::ui {

// What a dialog's template says of its size.
struct DialogRoom {
    Size units;
    uint32_t font_points = 0;
};

struct ScreenOptions {
    bool offscreen = false;         // windows have pictures but are on no screen
    double scale = 0;               // 1.5 is 150 %; 0 leaves it to the desktop
    std::optional<bool> dark = {};  // light or dark colours; nothing leaves it to the desktop
    // If that dialog does not fit the screen, the scale is the largest multiple of 0.25 at which it does, or
    // 1; then `scaled_down` is told of it.
    DialogRoom room = {};
    std::function<void(double scale)> scaled_down = {};
};

// Null, and `reason` says why in English, if the library is missing or there is no screen: nothing ends the
// process. A server that accepts the connection and says nothing is waited for. Once per process.
//
// A frame that stays open when its OnClose is told keeps a host's quit() from ending the loop.
HX_PLATFORM_API std::shared_ptr<IRenderer> LoadScreenRenderer(const ScreenOptions& options,
                                                              std::wstring& reason);

}  // namespace hx::ui

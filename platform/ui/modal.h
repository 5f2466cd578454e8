// What is in front of everything: a modal dialog, a box or a menu, one upon the other. Renderers ask it of
// what a person wants to do. On the thread of the user interface.
#pragma once

#include "platform/api.h"
#include "platform/ui/message_window.h"

namespace hx::ui {

class Window;

// Whether a person cannot reach the window now. A modal dialog with its parts and the frames that it owns can
// be reached; while a box or a menu is in front, nothing.
HX_PLATFORM_API bool IsBehindModal(const Window& window);

// In front as long as this lives: the dialog, or with null a box or a menu.
class ModalScope {
public:
    explicit ModalScope(const Window* dialog);
    ModalScope(const ModalScope&) = delete;
    ModalScope& operator=(const ModalScope&) = delete;
    ~ModalScope();
};

}  // namespace hx::ui

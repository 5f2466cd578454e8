// Whether a control is still in its dialog after somebody else's code ran, which may have destroyed either.
// For controls of every kind, on the thread of the user interface.
#pragma once

#include <algorithm>

#include "platform/ui/dialog.h"

namespace hx::ui {

class Attachment {
public:
    // To nothing.
    Attachment() = default;
    explicit Attachment(const Control& control)
        : m_control(&control), m_dialog(control.Parent() ? control.Parent()->Handle() : 0) {}

    // Null once it is in it no more.
    Dialog* Get() const {
        Window* const window = Window::FromHandle(m_dialog);
        Dialog* const dialog = window ? window->AsDialog() : nullptr;
        if (!dialog) return nullptr;
        const std::vector<Control*>& controls = dialog->Controls();
        return std::find(controls.begin(), controls.end(), m_control) == controls.end() ? nullptr : dialog;
    }

private:
    const Control* m_control = nullptr;
    WindowHandle m_dialog = 0;
};

}  // namespace hx::ui

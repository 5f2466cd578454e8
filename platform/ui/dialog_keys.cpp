#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/renderer.h"

namespace hx::ui {
namespace {

bool IsPressable(const Control& control) {
    return control.IsEnabled() && control.IsVisible();
}

}  // namespace

Button* Dialog::DefaultButton() const {
    return m_default_button;
}

void Dialog::SetDefaultButton(Button& button) {
    if (button.Parent() != this || &button == m_default_button) return;
    m_default_button = &button;
    if (View()) View()->OnDefaultButton();
}

void Dialog::OnControlEvent(Control& control, uint32_t code) {
    if (control.Kind() == ControlKind::button && control.Id() == IDOK) return OnOk();
    if (control.Kind() == ControlKind::button && control.Id() == IDCANCEL) return OnCancel();
    OnCommand(control, code);
}

uint32_t Dialog::IdOfOk() {
    return IDOK;
}

void Dialog::OnCancel() {
    EndDialog(static_cast<int32_t>(IDCANCEL));
}

bool Dialog::PressCancel() {
    auto* const button = FindAs<Button>(IDCANCEL);
    if (button ? !IsPressable(*button) : Kind() == WindowKind::child) return false;
    OnCancel();
    return true;
}

void Dialog::OnClose() {
    PressCancel();
}

bool Window::UserKey(uint32_t key, bool shift) {
    if (key == VK_TAB) return UserTab(shift);
    for (Window* window = this; window; window = window->Container()) {
        if (window->TakeKey(key)) return true;
    }
    return false;
}

bool Dialog::TakeKey(uint32_t key) {
    if (key == VK_ESCAPE) return PressCancel();
    if (key != VK_RETURN) return false;
    auto* button = dynamic_cast<Button*>(m_focused);
    if (!button) button = m_default_button;
    if (!button || !IsPressable(*button)) return false;
    button->UserClick();
    return true;
}

}  // namespace hx::ui

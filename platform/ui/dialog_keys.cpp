#include <algorithm>
#include <iterator>

#include "platform/system/case_fold.h"
#include "platform/ui/attachment.h"
#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_kinds.h"
#include "platform/ui/renderer.h"
#include "platform/ui/services.h"
#include "platform/ui/tab_order.h"

namespace hx::ui {
namespace {

bool IsPressable(const Control& control) {
    return control.IsEnabled() && control.IsVisible();
}

bool HasMnemonic(const Control& control, wchar_t letter) {
    return IsNamedByText(control.Kind()) && control.IsVisible() && MnemonicOf(control.Text()) == letter;
}

// Where the focus goes from the mnemonic of the text or frame at `label`: from a frame to the first that can
// have it; a text names nothing behind the next one.
Control* Labelled(const std::vector<Control*>& controls, size_t label) {
    const bool frame = static_cast<const StaticText&>(*controls[label]).IsGroup();
    for (size_t i = label + 1; i < controls.size(); ++i) {
        if (!frame && IsNamedByText(controls[i]->Kind())) return nullptr;
        if (Control* const target = FocusTarget(*controls[i])) return target;
    }
    return nullptr;
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

bool Window::UserMnemonic(wchar_t character) {
    for (Window* window = this; window; window = window->Container()) {
        if (window->TakeMnemonic(character)) return true;
    }
    return Top()->OfferMnemonic(character);
}

bool Window::OfferMnemonic(wchar_t character) {
    if (TakeMnemonic(character)) return true;
    for (Window* const child : m_children) {
        const bool seen = child->m_kind == WindowKind::child && child->m_visible;
        if (seen && child->OfferMnemonic(character)) return true;
    }
    return false;
}

bool Dialog::TakeMnemonic(wchar_t character) {
    const wchar_t letter = FoldCase(character);
    if (letter == 0 || m_controls.empty()) return false;
    // Beginning behind the control with the focus, so that those of the same letter take turns.
    const auto focused = std::find(m_controls.begin(), m_controls.end(), m_focused);
    const auto start =
        focused == m_controls.end() ? 0 : static_cast<size_t>(focused - m_controls.begin()) + 1;
    for (size_t step = 0; step < m_controls.size(); ++step) {
        const size_t index = (start + step) % m_controls.size();
        Control* const control = m_controls[index];
        if (!HasMnemonic(*control, letter)) continue;
        if (control->Kind() == ControlKind::static_text) {
            Control* const labelled = Labelled(m_controls, index);
            if (!labelled) continue;
            SetFocus(labelled);
            return true;
        }
        if (!IsPressable(*control)) continue;
        const Attachment attachment(*control);
        SetFocus(control);
        if (!attachment.Get() || !IsPressable(*control)) return true;
        if (auto* const button = dynamic_cast<Button*>(control))
            button->UserClick();
        else if (auto* const check_box = dynamic_cast<CheckBox*>(control))
            check_box->UserClick();
        return true;
    }
    return false;
}

}  // namespace hx::ui

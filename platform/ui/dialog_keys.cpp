#include <algorithm>
#include <iterator>

#include "platform/system/case_fold.h"
#include "platform/ui/attachment.h"
#include "platform/ui/codes.h"
#include "platform/ui/dialog.h"
#include "platform/ui/dialog_kinds.h"
#include "platform/ui/renderer.h"
#include "platform/ui/services.h"

namespace hx::ui {
namespace {

// Where the person's input goes: one dialog at a time has a control with the focus.
WindowHandle g_focus_dialog = 0;

bool TakesFocus(const Control& control) {
    return control.Kind() != ControlKind::static_text && control.IsEnabled() && control.IsVisible();
}

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
        if (TakesFocus(*controls[i])) return controls[i];
    }
    return nullptr;
}

}  // namespace

Control* Dialog::NextTabStop(const Control* from, bool backwards) const {
    const size_t count = m_controls.size();
    const auto place = std::find(m_controls.begin(), m_controls.end(), from);
    const bool inside = place != m_controls.end();
    const auto start = static_cast<size_t>(place - m_controls.begin());
    for (size_t step = 1; step <= count; ++step) {
        // From nowhere, it starts at the first or the last one.
        const size_t forwards = inside ? start + step : step - 1;
        const size_t index = backwards ? (start + count - step) % count : forwards % count;
        Control* const control = m_controls[index];
        if (control != from && TakesFocus(*control) && (control->Style() & WS_TABSTOP) != 0) return control;
    }
    return nullptr;
}

void Dialog::SetFocus(Control* control) {
    if (control && (control->Parent() != this || !TakesFocus(*control))) return;
    MoveFocus(control, true);
}

void Dialog::UserFocus(Control* control) {
    if (control && control->Parent() != this) return;
    MoveFocus(control, false);
}

// Whoever is told may move the focus elsewhere, or destroy the dialog.
void Dialog::MoveFocus(Control* to, bool tell_view) {
    if (to == m_focused) return;
    const WindowHandle handle = Handle();
    const Attachment lost = m_focused ? Attachment(*m_focused) : Attachment();
    Control* const from = m_focus_told ? m_focused : nullptr;
    m_focused = to;
    m_focus_told = false;
    if (tell_view && View()) View()->OnFocus();
    if (to) {
        Window* const other = g_focus_dialog == handle ? nullptr : FromHandle(g_focus_dialog);
        g_focus_dialog = handle;
        if (Dialog* const dialog = other ? other->AsDialog() : nullptr) dialog->MoveFocus(nullptr, true);
    }
    if (from && lost.Get()) from->OnFocus(false);
    if (FromHandle(handle) != this || !to || m_focused != to || m_focus_told) return;
    m_focus_told = true;
    to->OnFocus(true);
}

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

bool Dialog::UserKey(uint32_t key) {
    if (key == VK_ESCAPE) return PressCancel();
    if (key != VK_RETURN) return false;
    auto* button = dynamic_cast<Button*>(m_focused);
    if (!button) button = m_default_button;
    if (!button || !IsPressable(*button)) return false;
    button->UserClick();
    return true;
}

bool Dialog::UserMnemonic(wchar_t character) {
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

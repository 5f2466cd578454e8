// Where the person's input goes: to one control of one dialog. The dialogs around it know in which of their
// components it is, and whoever watches a window is told when it goes in and out.
#include <vector>

#include "platform/ui/attachment.h"
#include "platform/ui/dialog.h"
#include "platform/ui/renderer.h"
#include "platform/ui/tab_order.h"

namespace hx::ui {
namespace {

WindowHandle g_focus_dialog = 0;

Dialog* DialogOf(WindowHandle handle) {
    Window* const window = Window::FromHandle(handle);
    return window ? window->AsDialog() : nullptr;
}

// With all that it is a part of, the innermost first.
std::vector<WindowHandle> WithParents(const Window* window) {
    std::vector<WindowHandle> handles;
    for (; window; window = window->Container()) handles.push_back(window->Handle());
    return handles;
}

// What contains the child: null for one that is in none of the dialog's components.
Control* PlaceOf(const Window& child, const Dialog& dialog) {
    for (Control* const control : dialog.Controls()) {
        if (control->Inner() == &child) return control;
    }
    return nullptr;
}

}  // namespace

Control* Window::FocusedWithin() const {
    const Dialog* const dialog = DialogOf(g_focus_dialog);
    for (const Window* window = dialog; window; window = window->Container()) {
        if (window == this) return dialog->Focused();
    }
    return nullptr;
}

void Window::TellFocus() {
    const bool within = FocusedWithin() != nullptr;
    if (within == m_focus_within) return;
    m_focus_within = within;
    const auto watch = m_focus_watch;  // which may destroy this
    if (watch) watch(within);
}

void Dialog::SetFocus(Control* control) {
    if (control && control == m_focused) return;
    Control* const target = control ? FocusTarget(*control) : nullptr;
    if (control && !(target && target->Parent())) return;
    (target ? target->Parent() : this)->MoveFocus(target, true);
}

void Dialog::UserFocus(Control* control) {
    if (control && (control->Parent() != this || control->Kind() == ControlKind::component)) return;
    MoveFocus(control, false);
}

// Of what is destroyed no control is told.
void Dialog::LeaveFocus() {
    if (!FocusedWithin()) return;
    DialogOf(g_focus_dialog)->m_focus_told = false;
    MoveFocus(nullptr, false);
}

// Whoever is told may move the focus elsewhere, or destroy the dialog.
void Dialog::MoveFocus(Control* to, bool tell_view) {
    if (to ? to == m_focused : !FocusedWithin()) return;
    const WindowHandle handle = Handle();
    const std::vector<WindowHandle> left = WithParents(DialogOf(g_focus_dialog));
    const std::vector<WindowHandle> entered = WithParents(to ? this : nullptr);
    const Dialog* const before = DialogOf(g_focus_dialog);
    Control* const from = before && before->m_focus_told ? before->m_focused : nullptr;
    const Attachment lost = from ? Attachment(*from) : Attachment();

    for (const WindowHandle window : left) {
        Dialog* const dialog = DialogOf(window);
        if (!dialog) continue;
        dialog->m_focused = nullptr;
        dialog->m_focus_told = false;
    }
    m_focused = to;
    g_focus_dialog = to ? handle : 0;
    for (const Window* part = to ? this : nullptr; part && part->Container(); part = part->Container()) {
        if (Dialog* const dialog = part->Container()->AsDialog()) dialog->m_focused = PlaceOf(*part, *dialog);
    }

    if (tell_view && View()) View()->OnFocus();
    for (const WindowHandle window : left) {
        const Dialog* const dialog = DialogOf(window);
        if (window != handle && dialog && !dialog->m_focused && dialog->View()) dialog->View()->OnFocus();
    }
    if (from && lost.Get()) from->OnFocus(false);
    for (const std::vector<WindowHandle>* const handles : {&left, &entered}) {
        for (const WindowHandle window : *handles) {
            if (Window* const told = FromHandle(window)) told->TellFocus();
        }
    }
    if (FromHandle(handle) != this || !to || m_focused != to || m_focus_told) return;
    m_focus_told = true;
    to->OnFocus(true);
}

}  // namespace hx::ui

#include "platform/ui/headless/headless_user.h"

#include <algorithm>
#include <cstdlib>

#include "platform/ui/codes.h"
#include "platform/ui/headless/headless_keys.h"
#include "platform/ui/modal.h"

namespace hx::ui {
namespace {

bool IsReachable(const Window& window) {
    return window.IsShown() && !IsBehindModal(window);
}

bool IsReachable(const Control& control) {
    return control.Parent() && IsReachable(*control.Parent()) && control.IsEnabled() && control.IsVisible();
}

// Where keys go that are pressed in the dialog.
Dialog& InnermostOf(Dialog& dialog) {
    const Control* const focused = dialog.FocusedWithin();
    return focused ? *focused->Parent() : dialog;
}

bool IsControlCharacter(wchar_t character) {
    constexpr wchar_t kDelete = 0x7F;
    return character < L' ' || character == kDelete;
}

}  // namespace

bool HeadlessUser::Focus(Control& control) {
    if (!IsReachable(control) || control.Kind() == ControlKind::static_text ||
        control.Kind() == ControlKind::component) {
        return false;
    }
    const Attachment attachment(control);
    control.Parent()->UserFocus(&control);
    return attachment.Get() && control.HasFocus();
}

bool HeadlessUser::Leave(Control& control) {
    if (!control.HasFocus() || !IsReachable(*control.Parent())) return false;
    if (!control.Parent()->UserKey(VK_TAB)) control.Parent()->UserFocus(nullptr);
    return true;
}

// Whoever lost the focus may have disabled what is to be clicked.
bool HeadlessUser::Click(Control& control) {
    auto* const button = dynamic_cast<Button*>(&control);
    auto* const check_box = dynamic_cast<CheckBox*>(&control);
    if ((!button && !check_box) || !Focus(control) || !IsReachable(control)) return false;
    if (button) button->UserClick();
    if (check_box) check_box->UserClick();
    return true;
}

bool HeadlessUser::Type(Edit& edit, const std::wstring& text) {
    if (!Focus(edit)) return false;
    const Attachment attachment(edit);
    const auto there = [&] { return attachment.Get() && edit.HasFocus() && IsReachable(edit); };
    edit.UserSelect({0, edit.Text().size()});
    if (text.empty()) DoKey(edit, VK_DELETE);
    for (const wchar_t character : text) {
        if (!there()) return true;  // the keys go elsewhere
        if (IsControlCharacter(character)) continue;
        EnterText(edit, {&character, 1});
        if (attachment.Get()) edit.OnTyped();
    }
    return true;
}

bool HeadlessUser::Paste(Edit& edit, const std::wstring& text) {
    if (!Focus(edit)) return false;
    m_clipboard = text;
    edit.UserSelect({0, edit.Text().size()});
    EnterText(edit, text);
    return true;
}

bool HeadlessUser::Choose(ComboBox& combo_box, int32_t index) {
    if (index < 0 || static_cast<size_t>(index) >= combo_box.Items().size() || !Focus(combo_box))
        return false;
    combo_box.UserSelect(index);
    return true;
}

bool HeadlessUser::Drag(TrackBar& track_bar, int32_t position) {
    if (!Focus(track_bar) || !IsReachable(track_bar)) return false;
    m_dragged = &track_bar;
    track_bar.UserScroll(TB_THUMBTRACK, position);
    return true;
}

bool HeadlessUser::Drop(TrackBar& track_bar) {
    if (m_dragged != &track_bar) return false;
    m_dragged = nullptr;
    if (!track_bar.Parent()) return false;
    const Attachment attachment(track_bar);
    track_bar.UserScroll(TB_THUMBPOSITION, track_bar.Position());
    if (attachment.Get()) track_bar.UserScroll(TB_ENDTRACK);
    return true;
}

bool HeadlessUser::Scroll(TrackBar& track_bar, uint32_t code) {
    if (!Focus(track_bar) || !IsReachable(track_bar)) return false;
    ScrollAndEnd(track_bar, code);
    return true;
}

// Without the focus it changes nothing.
bool HeadlessUser::Wheel(Control& control, int32_t notches) {
    if (!IsReachable(control)) return false;
    if (!control.HasFocus()) return true;
    const Attachment attachment(control);
    for (int32_t notch = 0; notch < std::abs(notches) && attachment.Get(); ++notch) {
        if (auto* const track_bar = dynamic_cast<TrackBar*>(&control)) {
            ScrollAndEnd(*track_bar, track_bar->CodeOfWheel(notches > 0));
        } else if (control.Kind() == ControlKind::combo_box) {
            DoKey(control, notches > 0 ? VK_UP : VK_DOWN);
        }
    }
    return true;
}

bool HeadlessUser::ClickRow(ListBox& list, int32_t index) {
    if (index < 0 || index >= list.Count() || !Focus(list) || !IsReachable(list)) return false;
    list.UserSelect(index);
    return true;
}

// The key goes to what has the focus.
bool HeadlessUser::ContextMenu(ListBox& list, Point where) {
    constexpr Point kByKey = {-1, -1};
    if (where == kByKey ? !Focus(list) : !IsReachable(list)) return false;
    list.OnContextMenu(where);
    return true;
}

bool HeadlessUser::Key(Control& control, uint32_t key) {
    if (!Focus(control)) return false;
    const Attachment attachment(control);
    if (control.OnKeyDown(key) || !attachment.Get()) return true;
    const bool of_dialog = key == VK_TAB || key == VK_RETURN || key == VK_ESCAPE;
    if (of_dialog) {
        attachment.Get()->UserKey(key);
    } else {
        DoKey(control, key);
    }
    return true;
}

bool HeadlessUser::Key(Dialog& dialog, uint32_t key, bool shift) {
    if (!IsReachable(dialog)) return false;
    Control* const focused = dialog.FocusedWithin();
    if (focused && !shift) return Key(*focused, key);
    InnermostOf(dialog).UserKey(key, shift);
    return true;
}

bool HeadlessUser::Mnemonic(Dialog& dialog, wchar_t letter) {
    return IsReachable(dialog) && InnermostOf(dialog).UserMnemonic(letter);
}

bool HeadlessUser::Close(Window& frame) {
    if (frame.Kind() != WindowKind::frame || !IsReachable(frame)) return false;
    frame.OnClose();
    return true;
}

void HeadlessUser::QueueClick(Control& control) {
    m_queued.AddClick(control);
}

void HeadlessUser::QueueDrag(TrackBar& track_bar, int32_t position) {
    m_queued.AddDrag(track_bar, position);
}

}  // namespace hx::ui

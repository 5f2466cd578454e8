#include "platform/ui/headless/headless_keys.h"

#include <algorithm>

#include "platform/ui/attachment.h"
#include "platform/ui/codes.h"

namespace hx::ui {
namespace {

// Of `count` entries, from the selected one; the same one for a key that does not move.
int32_t MovedEntry(int32_t selected, int32_t count, int32_t page, uint32_t key) {
    int64_t moved = selected;
    switch (key) {
        case VK_UP:
            moved = int64_t{selected} - 1;
            break;
        case VK_DOWN:
            moved = int64_t{selected} + 1;
            break;
        case VK_PRIOR:
            moved = int64_t{selected} - page;
            break;
        case VK_NEXT:
            moved = int64_t{selected} + page;
            break;
        case VK_HOME:
            moved = 0;
            break;
        case VK_END:
            moved = count - 1;
            break;
        default:
            return selected;
    }
    return static_cast<int32_t>(std::clamp<int64_t>(moved, 0, std::max(count - 1, 0)));
}

void Erase(Edit& edit, bool backwards) {
    Edit::Selection selection = edit.GetSelection();
    if (selection.start > selection.end) std::swap(selection.start, selection.end);
    if (selection.start == selection.end) {
        if (backwards ? selection.start == 0 : selection.end == edit.Text().size()) return;
        if (backwards)
            --selection.start;
        else
            ++selection.end;
    }
    std::wstring text = edit.Text();
    text.erase(selection.start, selection.end - selection.start);
    edit.UserEnter(std::move(text), {selection.start, selection.start});
}

void DoKeyOfEdit(Edit& edit, uint32_t key) {
    const size_t caret = edit.GetSelection().end;
    const size_t length = edit.Text().size();
    const auto place = [&edit](size_t at) { edit.UserSelect({at, at}); };
    switch (key) {
        case VK_BACK: {
            const Attachment attachment(edit);
            Erase(edit, true);
            if (attachment.Get()) edit.OnTyped();  // it is a character, too
            break;
        }
        case VK_DELETE:
            Erase(edit, false);
            break;
        case VK_LEFT:
            place(caret == 0 ? 0 : caret - 1);
            break;
        case VK_RIGHT:
            place(std::min(caret + 1, length));
            break;
        case VK_HOME:
            place(0);
            break;
        case VK_END:
            place(length);
            break;
        default:
            break;
    }
}

void DoKeyOfList(ListBox& list, uint32_t key) {
    const int32_t page = std::max(list.Bounds().Height() / std::max(list.RowHeight(), 1), 1);
    const int32_t moved = MovedEntry(list.Selected(), list.Count(), page, key);
    if (moved != list.Selected()) list.UserSelect(moved);
}

void DoKeyOfComboBox(ComboBox& combo_box, uint32_t key) {
    constexpr int32_t kPage = 8;
    const auto count = static_cast<int32_t>(combo_box.Items().size());
    const int32_t moved = MovedEntry(combo_box.Selected(), count, kPage, key);
    if (moved != combo_box.Selected()) combo_box.UserSelect(moved);
}

}  // namespace

void EnterText(Edit& edit, std::wstring_view text) {
    Edit::Selection selection = edit.GetSelection();
    if (selection.start > selection.end) std::swap(selection.start, selection.end);
    const size_t kept = edit.Text().size() - (selection.end - selection.start);
    const size_t room = kept < Edit::kTextLimit ? Edit::kTextLimit - kept : 0;
    text = text.substr(0, std::min({text.find_first_of(L"\r\n"), text.size(), room}));
    std::wstring entered = edit.Text();
    entered.replace(selection.start, selection.end - selection.start, text);
    const size_t caret = selection.start + text.size();
    edit.UserEnter(std::move(entered), {caret, caret});
}

void ScrollAndEnd(TrackBar& track_bar, uint32_t code) {
    const Attachment attachment(track_bar);
    track_bar.UserScroll(code);
    if (attachment.Get()) track_bar.UserScroll(TB_ENDTRACK);
}

void DoKey(Control& control, uint32_t key) {
    if (key == VK_APPS) return control.OnContextMenu({-1, -1});
    if (auto* const button = dynamic_cast<Button*>(&control)) {
        if (key == VK_SPACE) button->UserClick();
    } else if (auto* const check_box = dynamic_cast<CheckBox*>(&control)) {
        if (key == VK_SPACE) check_box->UserClick();
    } else if (auto* const edit = dynamic_cast<Edit*>(&control)) {
        DoKeyOfEdit(*edit, key);
    } else if (auto* const list = dynamic_cast<ListBox*>(&control)) {
        DoKeyOfList(*list, key);
    } else if (auto* const combo_box = dynamic_cast<ComboBox*>(&control)) {
        DoKeyOfComboBox(*combo_box, key);
    } else if (auto* const track_bar = dynamic_cast<TrackBar*>(&control)) {
        if (const std::optional<uint32_t> code = track_bar->CodeOfKey(key)) ScrollAndEnd(*track_bar, *code);
    }
}

}  // namespace hx::ui

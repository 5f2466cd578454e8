// What the mouse and the keyboard do in the list of profiles, apart from selecting.
#include "controls/profiles/CProfileListBox.h"
#include "controls/profiles/ProfileMenu.h"
#include "platform/ui/attachment.h"
#include "platform/ui/codes.h"
#include "platform/ui/services.h"

namespace hx {
namespace {

constexpr ui::Point kKeyboard{-1, -1};
constexpr ui::Point kMenuOfKeyboard{10, 10};

}  // namespace

bool CProfileListBox::OnKeyDown(uint32_t key) {
    if (m_handler != nullptr && (key == VK_BACK || key == VK_DELETE)) {
        m_handler->DeletePreset();
        return true;
    }
    if (m_handler != nullptr && key == VK_F2) {
        m_handler->RenamePreset();
        return true;
    }
    return ListBox::OnKeyDown(key);
}

// As a click does. The page may destroy its dialog, and the list with it: false then.
bool CProfileListBox::Choose(int32_t index) {
    Select(index);
    return Tell(LBN_SELCHANGE);
}

void CProfileListBox::OnContextMenu(ui::Point where) {
    if (Parent() == nullptr || m_handler == nullptr) return;
    const bool by_keyboard = where == kKeyboard;
    if (by_keyboard) where = kMenuOfKeyboard;
    // The key means the selected profile, wherever its row is.
    const int32_t clicked = by_keyboard && Selected() >= 0 ? Selected() : RowAt(where);
    if (EntryAt(clicked) == nullptr) return;
    if (clicked == Selected()) return ShowMenu(where);

    // Rows move, and come and go, while the page handles the selection: names stay.
    const std::wstring wanted = Row(clicked).name;
    const std::wstring previous = SelectedName();
    if (IsModified(previous)) {
        if (!Choose(clicked)) return;
        if (IsModified(previous)) {
            SelectByName(previous);
            return;
        }
    }
    const int32_t index = FindByName(wanted);
    if (index < 0 || !Choose(index)) return;
    // Otherwise the page could not show it, and has gone back.
    if (SelectedName() == wanted) ShowMenu(where);
}

void CProfileListBox::ShowMenu(ui::Point where) {
    const Entry* const entry = EntryAt(Selected());
    if (entry == nullptr) return;
    const std::wstring name = entry->row.name;
    const std::vector<ui::MenuLine> lines =
        ProfileMenuLines({entry->row.user_defined != 0, m_handler->IsModified()});
    if (lines.empty()) return;
    const ui::Point place{Bounds().left + where.x, Bounds().top + where.y};
    // The last to go: what waited for it may destroy the list.
    const std::shared_ptr<void> held = m_hold_menu ? m_hold_menu() : nullptr;
    const ui::Attachment attachment(*this);
    const uint32_t command = ui::RunMenu(*Parent(), place, lines);
    // The handler works on the selected row: on none that somebody selected meanwhile.
    if (attachment.Get() != nullptr && SelectedName() == name) RunProfileCommand(*m_handler, command);
}

}  // namespace hx

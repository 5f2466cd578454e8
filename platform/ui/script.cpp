#include "platform/ui/script.h"

#include <algorithm>
#include <utility>

#include "platform/ui/codes.h"
#include "platform/ui/modal.h"
#include "platform/ui/services.h"
#include "platform/ui/user.h"

namespace hx::ui {
namespace {

Script* g_script = nullptr;

Edit* FirstEdit(const Dialog& dialog) {
    for (Control* const control : dialog.Controls()) {
        if (auto* const edit = dynamic_cast<Edit*>(control)) return edit;
    }
    return nullptr;
}

Script::Modal Describe(const Dialog& dialog) {
    Script::Modal modal;
    modal.title = dialog.Caption();
    for (const Control* const control : dialog.Controls()) {
        if (control->Kind() != ControlKind::button || !control->IsVisible()) continue;
        modal.captions.push_back(WithoutMnemonic(control->Text()));
    }
    if (const Edit* const edit = FirstEdit(dialog)) modal.text = edit->Text();
    if (const Button* const button = dialog.DefaultButton()) {
        modal.default_button = WithoutMnemonic(button->Text());
    }
    return modal;
}

// Null once it has ended or is gone.
Dialog* StillOpen(WindowHandle handle) {
    Window* const window = Window::FromHandle(handle);
    Dialog* const dialog = window && window->IsCreated() ? window->AsDialog() : nullptr;
    return dialog && !dialog->HasEnded() ? dialog : nullptr;
}

void Press(IUser& user, Dialog& dialog, const Script::Answer& answer) {
    switch (answer.by) {
        case Script::Answer::By::button:
            if (Control* const button =
                    dialog.Find(answer.find_button ? answer.find_button(dialog) : answer.button)) {
                user.Click(*button);
            }
            break;
        case Script::Answer::By::enter:
            user.Key(dialog, VK_RETURN);
            break;
        case Script::Answer::By::escape:
            user.Key(dialog, VK_ESCAPE);
            break;
        case Script::Answer::By::close:
            user.Close(dialog);
            break;
    }
}

}  // namespace

Script::Script() : m_before(std::exchange(g_script, this)) {}

Script::~Script() {
    g_script = m_before;
}

Script* Script::Current() {
    return g_script;
}

std::vector<Script::Modal> Script::TakeModals() {
    return std::exchange(m_modals, {});
}

std::vector<Script::Box> Script::TakeBoxes() {
    return std::exchange(m_boxes, {});
}

std::vector<Script::MenuShown> Script::TakeMenus() {
    return std::exchange(m_menus, {});
}

void Script::Run(Dialog& dialog) {
    const WindowHandle handle = dialog.Handle();
    Modal modal = Describe(dialog);
    modal.result = static_cast<int32_t>(IDCANCEL);
    if (while_modal) while_modal(dialog);
    IRenderer& renderer = *CurrentRenderer();
    while (StillOpen(handle) && !m_answers.empty()) {
        const Answer answer = std::move(m_answers.front());
        m_answers.pop_front();
        Edit* const edit = FirstEdit(dialog);
        if (answer.typed && edit) renderer.User().Type(*edit, *answer.typed);
        if (StillOpen(handle)) Press(renderer.User(), dialog, answer);
        if (StillOpen(handle)) renderer.Pump();
    }
    if (StillOpen(handle)) {
        modal.answered = false;
        ++m_unanswered;
        dialog.OnClose();
        if (StillOpen(handle)) dialog.EndDialog(static_cast<int32_t>(IDCANCEL));
    }
    if (Window::FromHandle(handle)) modal.result = dialog.Result().value_or(modal.result);
    m_modals.push_back(std::move(modal));
}

void Script::Show(Window* /*owner*/, const std::wstring& caption, const std::wstring& text, BoxIcon icon) {
    m_boxes.push_back({caption, text, icon});
    const ModalScope scope(nullptr);
    if (while_box) while_box();
}

uint32_t Script::Run(Window& /*owner*/, Point where, const std::vector<MenuLine>& lines) {
    uint32_t chosen = 0;
    if (!m_commands.empty()) {
        chosen = m_commands.front();
        m_commands.pop_front();
    }
    // What is grey cannot be chosen.
    const bool possible = std::any_of(lines.begin(), lines.end(), [&](const MenuLine& line) {
        return line.id == chosen && line.enabled && !line.separator;
    });
    if (!possible) chosen = 0;
    m_menus.push_back({where, lines, chosen});
    const ModalScope scope(nullptr);
    if (while_menu) while_menu();
    return chosen;
}

}  // namespace hx::ui

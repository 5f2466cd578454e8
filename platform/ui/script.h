// Answers boxes, menus and modal dialogs instead of a person, and remembers them: one object per test or
// scripted run, in use from its making to its end. With it nothing waits for anybody: a modal dialog that
// nobody has an answer for is cancelled and remembered as such. On the thread of the user interface.
#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/ui/dialog.h"
#include "platform/ui/renderer.h"

namespace hx::ui {

class HX_PLATFORM_API Script {
public:
    // The one before is in use again when this ends.
    Script();
    Script(const Script&) = delete;
    Script& operator=(const Script&) = delete;
    ~Script();

    struct Answer {
        // What is pressed in the end: the button of that id, a key, or the sign in the frame's corner.
        enum class By { button, enter, escape, close } by = By::button;
        uint32_t button = 0;
        std::optional<std::wstring> typed = {};  // into the dialog's first edit, before
        // The button's id where it depends on the dialog; 0 for none that there is.
        std::function<uint32_t(const Dialog&)> find_button = {};
    };
    struct Modal {
        std::wstring title;
        std::vector<std::wstring> captions;  // of the buttons to be seen, in tab order, without mnemonics
        std::wstring text;                   // of the first edit, when it came up
        std::wstring default_button;         // caption
        int32_t result = 0;
        bool answered = true;  // false: cancelled for want of an answer
    };
    struct Box {
        std::wstring caption;
        std::wstring text;
        BoxIcon icon = BoxIcon::none;
    };
    struct MenuShown {
        Point where;
        std::vector<MenuLine> lines;
        uint32_t chosen = 0;
    };

    // Queued; a dialog that is still there after an answer gets the next one.
    void AnswerModal(Answer answer) { m_answers.push_back(std::move(answer)); }
    void AnswerMenu(uint32_t command) { m_commands.push_back(command); }

    // Of menus that did not come up.
    void DropMenuAnswers() { m_commands.clear(); }

    std::vector<Modal> TakeModals();
    std::vector<Box> TakeBoxes();
    std::vector<MenuShown> TakeMenus();
    size_t AnswersLeft() const { return m_answers.size(); }
    // How many modal dialogs found no answer so far.
    size_t Unanswered() const { return m_unanswered; }

    // Called whenever one is open: messages may be dispatched in them, pictures taken.
    std::function<void(Dialog&)> while_modal;
    std::function<void()> while_box;
    std::function<void()> while_menu;

    // Null if none is in use.
    static Script* Current();
    // Called by dialogs and services.
    void Run(Dialog& dialog);
    void Show(Window* owner, const std::wstring& caption, const std::wstring& text, BoxIcon icon);
    uint32_t Run(Window& owner, Point where, const std::vector<MenuLine>& lines);

private:
    Script* const m_before;
    std::deque<Answer> m_answers;
    std::deque<uint32_t> m_commands;  // 0 dismisses
    std::vector<Modal> m_modals;
    std::vector<Box> m_boxes;
    std::vector<MenuShown> m_menus;
    size_t m_unanswered = 0;
};

}  // namespace hx::ui

// The kinds of control that have nothing but a state: text, button, check box, edit, combo box and track bar.
// Methods called User... are a renderer's, when a person has done so; they tell the dialog. A person cannot
// do anything to a control that is disabled or not to be seen: a renderer sees to that.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/ui/control.h"

namespace hx::ui {

// A text, or with BS_GROUPBOX a frame around others.
class HX_PLATFORM_API StaticText : public Control {
public:
    StaticText() : Control(ControlKind::static_text) {}
    bool IsGroup() const { return m_group; }

protected:
    void OnAttached(const DialogControl& line) override;

private:
    bool m_group = false;
};

// Default is what Enter presses.
class HX_PLATFORM_API Button : public Control {
public:
    Button() : Control(ControlKind::button) {}
    bool IsDefault() const;
    void UserClick();
};

class HX_PLATFORM_API CheckBox : public Control {
public:
    CheckBox() : Control(ControlKind::check_box) {}
    bool IsChecked() const { return m_checked; }
    // Tells nobody.
    void SetChecked(bool checked);
    void UserClick();

protected:
    void OnAttached(const DialogControl& line) override;

private:
    bool m_checked = false;
};

// One line of text.
class HX_PLATFORM_API Edit : public Control {
public:
    // As many characters as it holds: what is behind them in a text that is set is left out, and of a pasted
    // one what there is no room for, and what is behind its first line.
    static constexpr size_t kTextLimit = 32767;

    Edit() : Control(ControlKind::edit) {}
    void SetText(std::wstring text) override;
    // Positions in characters; the caret is at the end.
    struct Selection {
        size_t start = 0;
        size_t end = 0;
        bool operator==(const Selection&) const = default;
    };
    Selection GetSelection() const { return m_selection; }
    // Cut to the text. The caret is scrolled into view.
    void SetSelection(Selection selection);
    void SelectAll() { SetSelection({0, Text().size()}); }

    // Whether the text is one of those that the edit is for; tools and assistive technology ask.
    virtual bool HoldsValidText() const { return true; }

    void UserEnter(std::wstring text, Selection selection);
    void UserSelect(Selection selection);
    void OnFocus(bool gained) override;

protected:
    // Before the dialog is told.
    virtual void OnUpdate() {}
    void OnAttached(const DialogControl& line) override;

private:
    void Take(std::wstring text, Selection selection);

    Selection m_selection;
};

// A list that drops down, of which one can be chosen.
class HX_PLATFORM_API ComboBox : public Control {
public:
    ComboBox() : Control(ControlKind::combo_box) {}
    const std::vector<std::wstring>& Items() const { return m_items; }
    void Add(std::wstring item);
    void Clear();
    // -1 for none.
    int32_t Selected() const { return m_selected; }
    // None if there is no such item. Tells nobody.
    void Select(int32_t index);
    void UserSelect(int32_t index);

protected:
    void OnAttached(const DialogControl& line) override;

private:
    std::vector<std::wstring> m_items;
    int32_t m_selected = -1;
};

class HX_PLATFORM_API TrackBar : public Control {
public:
    TrackBar() : Control(ControlKind::track_bar) {}
    bool IsVertical() const;
    int32_t Minimum() const { return m_minimum; }
    int32_t Maximum() const { return m_maximum; }
    int32_t PageSize() const { return m_page_size; }
    int32_t LineSize() const { return m_line_size; }
    // At the left or the top is the minimum. The position stays in the range.
    int32_t Position() const { return m_position; }
    void SetRange(int32_t minimum, int32_t maximum);
    void SetPageSize(int32_t size);
    void SetLineSize(int32_t size);
    // Tells nobody.
    void SetPosition(int32_t position);
    // Moved by `code`; with TB_THUMBTRACK and TB_THUMBPOSITION to the position, otherwise as far as the code
    // says, so many times. The dialog is told once.
    void UserScroll(uint32_t code, int32_t position = 0, int32_t times = 1);
    // What a key, or a notch of the wheel away from the person or towards, moves it by; nothing if it does
    // not.
    std::optional<uint32_t> CodeOfKey(uint32_t key) const;
    uint32_t CodeOfWheel(bool away) const;

protected:
    void OnAttached(const DialogControl& line) override;

private:
    int32_t m_minimum = 0;
    int32_t m_maximum = 100;
    int32_t m_page_size = 20;  // a fifth of the range unless it was set
    bool m_page_size_set = false;
    int32_t m_line_size = 1;
    int32_t m_position = 0;
};

}  // namespace hx::ui

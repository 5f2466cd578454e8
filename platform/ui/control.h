// A control of a dialog: its state, which a renderer shows and a person changes. Pages keep controls as
// members, of these kinds or derived ones, and bind them to a dialog by their ids; a dialog makes those that
// nobody bound. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <string>

#include "platform/api.h"
#include "platform/module/dialog_template.h"
#include "platform/ui/geometry.h"
#include "platform/ui/painter.h"

namespace hx::ui {

class Dialog;
class Window;

enum class ControlKind { static_text, button, check_box, edit, combo_box, list_box, track_bar, component };

// What of a control a renderer has to show anew.
enum class ControlChange {
    text,
    enabled,
    visible,
    bounds,
    value,
    range,
    items,
    selection,
    style,
    name,
    tool_tip
};

class HX_PLATFORM_API Control {
public:
    explicit Control(ControlKind kind) : m_kind(kind) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control();

    ControlKind Kind() const { return m_kind; }
    uint32_t Id() const { return m_id; }
    // Null before the dialog is created and after it was destroyed.
    Dialog* Parent() const { return m_parent; }

    const std::wstring& Text() const { return m_text; }
    // With the mnemonic of a label or button marked by "&". An edit tells its dialog, as if it had been
    // typed.
    virtual void SetText(std::wstring text);
    bool IsEnabled() const { return m_enabled; }
    void Enable(bool enabled);
    // Whether it is to be seen when its dialog is.
    bool IsVisible() const { return m_visible; }
    void Show(bool visible);
    // In the dialog.
    const Rectangle& Bounds() const { return m_bounds; }
    void Move(const Rectangle& bounds);
    uint32_t Style() const { return m_style; }
    void ModifyStyle(uint32_t remove, uint32_t add);

    // What people who do not see it are told it is: what was set, else its own text, else that of its label.
    std::wstring AccessibleName() const;
    void SetAccessibleName(std::wstring name);
    const std::wstring& ToolTip() const { return m_tool_tip; }
    // Shown also when it is disabled.
    void SetToolTip(std::wstring text);

    bool HasFocus() const;
    void SetFocus();
    // That of the component that is embedded here; null for none, and for all other kinds.
    virtual Window* Inner() const { return nullptr; }
    // To be painted anew: soon, or before this returns.
    void Invalidate(bool now = false);

    // Called by the dialog: the control gets what the template says of it, once; and it is no longer shown.
    void Attach(Dialog& parent, const DialogControl& line, const Rectangle& bounds);
    virtual void Detach();

    // Called by a renderer; must not throw, since a toolkit may be its caller. A key that is not handled does
    // what it usually does.
    virtual bool OnKeyDown(uint32_t /*key*/) { return false; }
    // The right button went down there, in the control, or at (-1, -1) the key for menus.
    virtual void OnContextMenu(Point /*where*/) {}
    virtual void OnFocus(bool /*gained*/) {}
    // A character was typed and has done what it does.
    virtual void OnTyped() {}
    // Behind its text; the default is the system's for such a control.
    virtual bool BackgroundColour(Colour& /*colour*/) { return false; }

protected:
    // The template's line is of this control's kind; to take more of it than text, style and place.
    virtual void OnAttached(const DialogControl& /*line*/) {}
    // The view is told; whoever shows a control in a way of its own follows.
    virtual void Changed(ControlChange change);
    void KeepText(std::wstring text) { m_text = std::move(text); }
    // The dialog is told what a person did, BN_... and so on; false if the control is in it no more after
    // that.
    bool Tell(uint32_t code);

private:
    const ControlKind m_kind;
    uint32_t m_id = 0;
    Dialog* m_parent = nullptr;
    std::wstring m_text;
    bool m_enabled = true;
    bool m_visible = true;
    Rectangle m_bounds;
    uint32_t m_style = 0;
    std::wstring m_accessible_name;
    std::wstring m_tool_tip;
};

}  // namespace hx::ui

// A window: on the screen by itself, or a part of another one. It paints itself and gets messages; dialogs
// are windows that controls do it for. The current renderer shows it. On the thread of the user interface.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/geometry.h"
#include "platform/ui/message_window.h"

namespace hx::ui {

class Control;
class Dialog;
class IPainter;
class IWindowView;

enum class WindowKind {
    child,  // a part of its parent
    frame,  // by itself, with a caption; its owner, if it has one, is behind it
};

class HX_PLATFORM_API Window : public MessageWindow {
public:
    ~Window() override;

    // Made and not visible. Once only, until it is destroyed. A child needs a parent that was created. Bounds
    // are in the parent, of a frame those of what is inside it on the screen.
    void Create(WindowKind kind, Window* parent, const Rectangle& bounds);
    // With its children; they may be created anew. Nothing if it is not created.
    void Destroy();
    bool IsCreated() const { return m_view != nullptr; }

    WindowKind Kind() const { return m_kind; }
    // Null for none.
    Window* Parent() const { return m_parent; }
    // What it is a part of: its parent, unless it is a frame.
    Window* Container() const { return m_kind == WindowKind::child ? m_parent : nullptr; }
    // The outermost one that it is a part of, itself if it is none.
    Window* Top();
    const std::vector<Window*>& Children() const { return m_children; }
    // That of this thread with the handle, created or not; null if there is none.
    static Window* FromHandle(WindowHandle handle);

    const Rectangle& Bounds() const { return m_bounds; }
    Size ClientSize() const { return m_bounds.Size(); }
    void Move(const Rectangle& bounds);
    bool IsVisible() const { return m_visible; }
    void Show(bool visible);
    // With all that it is a part of.
    bool IsShown() const;
    const std::wstring& Caption() const { return m_caption; }
    void SetCaption(std::wstring caption);
    // What people who do not see it are told it is.
    const std::wstring& AccessibleName() const { return m_accessible_name; }
    void SetAccessibleName(std::wstring name);
    void Invalidate(bool now = false);

    // The control that has the focus, if it is in this window or anything embedded in it; else null.
    Control* FocusedWithin() const;
    // To the first tab stop in it; false if there is none.
    bool FocusFirst();
    // Told with true when the focus has come into the window or anything embedded in it, and with false when
    // it has left; must not throw.
    void WatchFocus(std::function<void(bool within)> watch) { m_focus_watch = std::move(watch); }

    virtual Dialog* AsDialog() { return nullptr; }

    // Called by a renderer. What derived classes do in these, and in those below, must not throw: a toolkit
    // may be the caller.
    virtual void OnPaint(IPainter& /*painter*/) {}
    // A person has resized or moved it.
    void UserMoved(const Rectangle& bounds);
    // A key that no control took: Enter and Escape are offered to the dialogs that it is in, the innermost
    // first; Tab goes through all of the frame. True if somebody did something with it.
    bool UserKey(uint32_t key, bool shift = false);
    // The control with that mnemonic, or the one that it labels, gets the focus or is pressed: in the dialogs
    // that it is in, the innermost first, then in any of the frame; from one that has the focus the next of
    // the frame, so that all take turns. False if there is none.
    bool UserMnemonic(wchar_t character);
    // A person wants a frame closed; it does not unless whoever owns it destroys it.
    virtual void OnClose() {}
    // What the system shows changed: colours, scale.
    virtual void OnAppearanceChanged() {}
    // Null unless created.
    IWindowView* View() const { return m_view.get(); }

protected:
    Window();
    void OnMessage(const WindowMessage& /*message*/) override {}
    virtual void OnSize(const Size& /*size*/) {}
    // It or something that it is a part of was shown or hidden.
    virtual void OnShown(bool /*shown*/) {}
    // Enter or Escape; true if it did something with it.
    virtual bool TakeKey(uint32_t /*key*/) { return false; }
    // Before the children are destroyed; the view is still there.
    virtual void OnDestroy() {}

    // Destroy without OnDestroy: of one whose making was given up.
    void Remove();

private:
    friend class Dialog;
    void TellShown(bool shown);
    void TellFocus();
    bool UserTab(bool backwards);

    WindowKind m_kind = WindowKind::child;
    Window* m_parent = nullptr;
    std::vector<Window*> m_children;
    Rectangle m_bounds;
    bool m_visible = false;
    std::wstring m_caption;
    std::wstring m_accessible_name;
    std::function<void(bool)> m_focus_watch;
    bool m_focus_within = false;  // was told
    std::unique_ptr<IWindowView> m_view;
    bool m_destroying = false;
};

}  // namespace hx::ui

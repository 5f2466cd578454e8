// Does what a person does, through a renderer's own ways: used by scripts and tests, which therefore are the
// same for all renderers. What a person could not do (the control is disabled, not to be seen, or behind a
// modal dialog) is not done, and answered with false. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <string>

#include "platform/ui/dialog.h"

namespace hx::ui {

class IUser {
public:
    // Buttons and check boxes.
    virtual bool Click(Control& control) = 0;
    virtual bool Focus(Control& control) = 0;
    // The focus goes out of it: to the next control, or to none.
    virtual bool Leave(Control& control) = 0;
    // Into the edit that gets the focus, in place of what is there: one key after the other, or all at once
    // from the clipboard.
    virtual bool Type(Edit& edit, const std::wstring& text) = 0;
    virtual bool Paste(Edit& edit, const std::wstring& text) = 0;
    // What would be pasted now.
    virtual std::wstring Clipboard() const = 0;
    virtual bool Choose(ComboBox& combo_box, int32_t index) = 0;
    // The thumb is dragged there and held; it is let go where it is; moved by a key or a click beside the
    // thumb (one of the codes from TB_LINEUP to TB_BOTTOM but those of the thumb).
    virtual bool Drag(TrackBar& track_bar, int32_t position) = 0;
    virtual bool Drop(TrackBar& track_bar) = 0;
    virtual bool Scroll(TrackBar& track_bar, uint32_t code) = 0;
    virtual bool Wheel(Control& control, int32_t notches) = 0;
    virtual bool ClickRow(ListBox& list, int32_t index) = 0;
    // In the list's own pixels; (-1, -1) is the key for menus.
    virtual bool ContextMenu(ListBox& list, Point where) = 0;
    // To the control that gets the focus. False only if it could not be pressed.
    virtual bool Key(Control& control, uint32_t key) = 0;
    // To whatever has the focus in the dialog: Enter, Escape, Tab; Alt with a letter.
    virtual bool Key(Dialog& dialog, uint32_t key, bool shift = false) = 0;
    virtual bool Mnemonic(Dialog& dialog, wchar_t letter) = 0;
    virtual bool Close(Window& frame) = 0;
    // A click that the machine has noticed and no window has been told of: done at the next Pump.
    virtual void QueueClick(Control& control) = 0;
    // A move of the mouse that drags the thumb there, likewise. Of moves that wait one after the other, only
    // the last is done.
    virtual void QueueDrag(TrackBar& track_bar, int32_t position) = 0;

protected:
    ~IUser() = default;
};

// As somebody sets a track bar: the thumb is dragged there, let go.
HX_PLATFORM_API bool SetTrackBar(IUser& user, TrackBar& track_bar, int32_t position);

}  // namespace hx::ui

// Does what a person does by sending the toolkit's own events to the widgets. On the thread of the user
// interface.
#pragma once

#include "platform/ui/qt/control_view.h"
#include "platform/ui/queued_input.h"
#include "platform/ui/user.h"

class QKeyEvent;

namespace hx::ui {

class QtUser final : public IUser {
public:
    bool Click(Control& control) override;
    bool Focus(Control& control) override;
    bool Leave(Control& control) override;
    bool Type(Edit& edit, const std::wstring& text) override;
    bool Paste(Edit& edit, const std::wstring& text) override;
    std::wstring Clipboard() const override;
    bool Choose(ComboBox& combo_box, int32_t index) override;
    bool Drag(TrackBar& track_bar, int32_t position) override;
    bool Drop(TrackBar& track_bar) override;
    bool Scroll(TrackBar& track_bar, uint32_t code) override;
    bool Wheel(Control& control, int32_t notches) override;
    bool ClickRow(ListBox& list, int32_t index) override;
    bool ContextMenu(ListBox& list, Point where) override;
    bool Key(Control& control, uint32_t key) override;
    bool Key(Dialog& dialog, uint32_t key, bool shift) override;
    bool Mnemonic(Dialog& dialog, wchar_t letter) override;
    bool Close(Window& frame) override;
    void QueueClick(Control& control) override;
    void QueueDrag(TrackBar& track_bar, int32_t position) override;

    size_t DoQueued() { return m_queued.Do(*this); }
    void DropQueued() { m_queued.Drop(); }

private:
    // Null if a person could not reach it; its window is the active one then.
    ControlView* Reach(const Control& control);
    // The same, and it has the focus.
    ControlView* Focused(Control& control);

    QueuedInput m_queued;
};

}  // namespace hx::ui

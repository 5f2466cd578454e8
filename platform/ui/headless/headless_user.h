// Somebody at a machine without a screen: does to the controls what a renderer would when a person did it.
#pragma once

#include "platform/ui/queued_input.h"
#include "platform/ui/user.h"

namespace hx::ui {

class HeadlessUser final : public IUser {
public:
    bool Click(Control& control) override;
    bool Focus(Control& control) override;
    bool Leave(Control& control) override;
    bool Type(Edit& edit, const std::wstring& text) override;
    bool Paste(Edit& edit, const std::wstring& text) override;
    std::wstring Clipboard() const override { return m_clipboard; }
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

    void SetClipboard(const std::wstring& text) { m_clipboard = text; }
    size_t DoQueued() { return m_queued.Do(*this); }
    size_t DropQueued() { return m_queued.Drop(); }

private:
    QueuedInput m_queued;
    std::wstring m_clipboard;
    const TrackBar* m_dragged = nullptr;  // compared only
};

}  // namespace hx::ui

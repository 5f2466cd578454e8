// The window of a page's control: its page's dialog is its only child and as large as it. While a dialog that
// the control stands in is being designed there is no page, and a picture takes its place. Made by
// ConfigCtrl, which it may survive for a moment; on the thread of the user interface.
#pragma once

#include "platform/ui/window.h"

namespace hx {

class ControlWindow final : public ui::Window {
public:
    explicit ControlWindow(bool is_designed) : m_is_designed(is_designed) {}
    ~ControlWindow() override { Destroy(); }

    bool IsDesigned() const { return m_is_designed; }
    void SetDesigned(bool is_designed);
    // The page's place in it.
    ui::Rectangle PageBounds() const { return {0, 0, ClientSize().width, ClientSize().height}; }

    void OnPaint(ui::IPainter& painter) override;

private:
    void OnSize(const ui::Size& size) override;

    bool m_is_designed;
};

}  // namespace hx

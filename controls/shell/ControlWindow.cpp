#include "controls/shell/ControlWindow.h"

#include "platform/ui/painter.h"

namespace hx {
namespace {

constexpr ui::Colour kPaper{255, 255, 255};
constexpr ui::Colour kPen{0, 0, 0};

}  // namespace

void ControlWindow::SetDesigned(bool is_designed) {
    m_is_designed = is_designed;
    Invalidate();
}

void ControlWindow::OnPaint(ui::IPainter& painter) {
    if (!m_is_designed) return;
    painter.FillRectangle(PageBounds(), kPaper);
    painter.DrawEllipse(PageBounds(), kPen);
}

void ControlWindow::OnSize(const ui::Size& /*size*/) {
    if (m_is_designed) return Invalidate();
    // A page that is resized may do anything, also away with this window.
    if (!Children().empty()) Children().front()->Move(PageBounds());
}

}  // namespace hx

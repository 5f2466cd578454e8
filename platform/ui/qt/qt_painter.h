// A picture in the making, given to whoever paints. On the thread of the user interface.
#pragma once

#include <QPainter>

#include "platform/ui/painter.h"

namespace hx::ui {

class QtPainter final : public IPainter {
public:
    QtPainter(QPainter& painter, const QPalette& palette);

    Colour ColourOf(SystemColour colour) const override;
    Size TextExtent(std::wstring_view text) const override;
    double Scale() const override;
    void FillRectangle(const Rectangle& rectangle, Colour colour) override;
    void DrawDottedFrame(const Rectangle& rectangle, Colour colour) override;
    void DrawEllipse(const Rectangle& rectangle, Colour colour) override;
    void DrawLine(FinePoint from, FinePoint to, Colour colour, double width) override;
    void FillPolygon(std::span<const FinePoint> corners, Colour colour) override;
    void DrawText(const Rectangle& rectangle, std::wstring_view text, const TextStyle& style) override;
    void DrawPixels(const Rectangle& rectangle, const Pixels& pixels) override;

private:
    QPainter& m_painter;
    const QPalette& m_palette;
};

}  // namespace hx::ui

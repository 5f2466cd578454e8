// Remembers what it is asked for.
#pragma once

#include <vector>

#include "platform/ui/headless/headless_renderer.h"
#include "platform/ui/painter.h"

namespace hx::ui {

// The same in windows and rows: 6 pixels for a character, 12 for one that is written in a square.
Size HeadlessTextExtent(std::wstring_view text);
Colour HeadlessColour(SystemColour colour, bool dark);

class HeadlessPainter final : public IPainter {
public:
    HeadlessPainter(bool dark, double scale) : m_dark(dark), m_scale(scale) {}
    std::vector<PaintStep> TakeSteps() { return std::move(m_steps); }

    Colour ColourOf(SystemColour colour) const override { return HeadlessColour(colour, m_dark); }
    Size TextExtent(std::wstring_view text) const override { return HeadlessTextExtent(text); }
    double Scale() const override { return m_scale; }
    void FillRectangle(const Rectangle& rectangle, Colour colour) override;
    void DrawDottedFrame(const Rectangle& rectangle, Colour colour) override;
    void DrawEllipse(const Rectangle& rectangle, Colour colour) override;
    void DrawLine(FinePoint from, FinePoint to, Colour colour, double width) override;
    void FillPolygon(std::span<const FinePoint> corners, Colour colour) override;
    void DrawText(const Rectangle& rectangle, std::wstring_view text, const TextStyle& style) override;
    void DrawPixels(const Rectangle& rectangle, const Pixels& pixels) override;

private:
    PaintStep& Add(PaintStep::Kind kind, const Rectangle& rectangle, Colour colour);

    const bool m_dark;
    const double m_scale;
    std::vector<PaintStep> m_steps;
};

}  // namespace hx::ui

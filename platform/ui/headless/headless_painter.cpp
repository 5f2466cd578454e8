#include "platform/ui/headless/headless_painter.h"

#include <algorithm>
#include <iterator>

namespace hx::ui {
namespace {

constexpr int32_t kNarrow = 6;
constexpr int32_t kWide = 12;
constexpr int32_t kLineHeight = 13;
constexpr wchar_t kFirstWide = 0x2E80;

struct ColourRow {
    SystemColour which;
    Colour light;
    Colour dark;
};
constexpr ColourRow kColours[] = {
    {SystemColour::window, {255, 255, 255}, {30, 30, 30}},
    {SystemColour::window_text, {0, 0, 0}, {240, 240, 240}},
    {SystemColour::gray_text, {109, 109, 109}, {140, 140, 140}},
    {SystemColour::highlight, {0, 120, 215}, {38, 79, 120}},
    {SystemColour::highlight_text, {255, 255, 255}, {255, 255, 255}},
    {SystemColour::button_face, {240, 240, 240}, {45, 45, 45}},
    {SystemColour::button_text, {0, 0, 0}, {240, 240, 240}},
};

}  // namespace

Size HeadlessTextExtent(std::wstring_view text) {
    const auto wide = static_cast<int32_t>(
        std::count_if(text.begin(), text.end(), [](wchar_t character) { return character >= kFirstWide; }));
    return {static_cast<int32_t>(text.size()) * kNarrow + wide * (kWide - kNarrow), kLineHeight};
}

Colour HeadlessColour(SystemColour colour, bool dark) {
    const auto* const row =
        std::find_if(std::begin(kColours), std::end(kColours),
                     [&](const ColourRow& candidate) { return candidate.which == colour; });
    if (row == std::end(kColours)) return {};
    return dark ? row->dark : row->light;
}

PaintStep& HeadlessPainter::Add(PaintStep::Kind kind, const Rectangle& rectangle, Colour colour) {
    PaintStep& step = m_steps.emplace_back();
    step.kind = kind;
    step.rectangle = rectangle;
    step.colour = colour;
    return step;
}

void HeadlessPainter::FillRectangle(const Rectangle& rectangle, Colour colour) {
    Add(PaintStep::Kind::fill, rectangle, colour);
}

void HeadlessPainter::DrawDottedFrame(const Rectangle& rectangle, Colour colour) {
    Add(PaintStep::Kind::dotted_frame, rectangle, colour);
}

void HeadlessPainter::DrawEllipse(const Rectangle& rectangle, Colour colour) {
    Add(PaintStep::Kind::ellipse, rectangle, colour);
}

void HeadlessPainter::DrawLine(FinePoint from, FinePoint to, Colour colour, double /*width*/) {
    Add(PaintStep::Kind::line, {}, colour).points = {from, to};
}

void HeadlessPainter::FillPolygon(std::span<const FinePoint> corners, Colour colour) {
    Add(PaintStep::Kind::polygon, {}, colour).points.assign(corners.begin(), corners.end());
}

void HeadlessPainter::DrawText(const Rectangle& rectangle, std::wstring_view text, const TextStyle& style) {
    Add(PaintStep::Kind::text, rectangle, style.colour).text = text;
}

void HeadlessPainter::DrawPixels(const Rectangle& rectangle, const Pixels& pixels) {
    PaintStep& step = Add(PaintStep::Kind::pixels, rectangle, {});
    step.pixels.assign(pixels.data.begin(), pixels.data.end());
    step.pixel_size = {pixels.width, pixels.height};
}

}  // namespace hx::ui

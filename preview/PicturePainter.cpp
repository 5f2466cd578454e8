#include "preview/PicturePainter.h"

#include <algorithm>
#include <cmath>

#include "preview/HintText.h"

namespace hx::preview {
namespace {

// In window coordinates.
constexpr double kPointRadius = 1.1;
constexpr double kSaturatedRadius = 1.9;
constexpr double kOutlineWidth = 1.3;
constexpr double kGridWidth = 1;
constexpr int32_t kLegendGap = 6;
constexpr int32_t kLegendBar = 7;           // its height
constexpr int32_t kSmallestLegendBar = 30;  // its width
constexpr int32_t kSaturatedWidth = 9;      // of the part of it that shows the colour of saturated points

// 8K: what is larger is drawn coarser, so that memory is bounded.
constexpr double kMostPixels = 7680.0 * 4320.0;

double AffordableScale(ui::Size size, double scale) {
    const double pixels = static_cast<double>(size.width) * size.height * scale * scale;
    return pixels <= kMostPixels ? scale : scale * std::sqrt(kMostPixels / pixels);
}

}  // namespace

void PicturePainter::Paint(ui::IPainter& painter, ui::Size size, const PreviewScene& scene) {
    if (size.width <= 0 || size.height <= 0) return;
    const Ground ground{size, painter.Scale(), painter.ColourOf(ui::SystemColour::window),
                        painter.ColourOf(ui::SystemColour::window_text), scene.AreasVersion()};
    if (m_ground != ground) {
        MakeGround(painter, ground, scene);
        m_ground = ground;
        m_drawn_version.reset();
    }
    if (m_drawn_version != scene.Version()) {
        m_picture.CopyFrom(m_ground_picture);
        DrawPoints(scene);
        m_drawn_version = scene.Version();
    }
    const ui::Size pixels = m_picture.Size();
    painter.DrawPixels({0, 0, size.width, size.height}, {pixels.width, pixels.height, m_picture.Pixels()});
    PaintTexts(painter);
    PaintHint(painter, scene.CurrentHint());
}

void PicturePainter::MakeGround(const ui::IPainter& painter, const Ground& ground,
                                const PreviewScene& scene) {
    m_colours = MakeSignalColours(ground.window, ground.text, m_blend);
    m_scale = AffordableScale(ground.size, ground.scale > 0 ? ground.scale : 1.0);
    const auto device = [&](int32_t length) {
        return std::max(static_cast<int32_t>(std::lround(length * m_scale)), 1);
    };
    m_ground_picture.Reset({device(ground.size.width), device(ground.size.height)}, m_colours.window);
    m_layout = LayOut(ground.size, scene.Areas(), m_texts.scale, HintLines(painter, ground.size.width),
                      [&](std::wstring_view text) { return painter.TextExtent(text); });
    m_weak = {};
    m_saturated = {};
    if (m_layout.map.scale == 0) return;
    DrawAreas(scene.Areas());
    DrawLegend(painter);
}

// Those of the longest, so that nothing moves when one comes or goes.
int32_t PicturePainter::HintLines(const ui::IPainter& painter, int32_t width) const {
    size_t lines = 0;
    for (const Hint hint : {Hint::too_bright, Hint::too_dark, Hint::nothing_seen}) {
        lines = std::max(lines, WarningLines(painter, m_texts.Of(hint), width).size());
    }
    return static_cast<int32_t>(lines);
}

void PicturePainter::DrawAreas(const std::vector<PlaneArea>& areas) {
    std::vector<std::vector<ui::FinePoint>> polygons;
    for (const PlaneArea& area : areas) {
        std::vector<ui::FinePoint> polygon;
        for (const PlanePoint& corner : area.corners_mm) {
            polygon.push_back(Device(m_layout.map.At(corner.x_mm, corner.y_mm)));
        }
        polygons.push_back(std::move(polygon));
        m_ground_picture.FillPolygon(polygons.back(), m_colours.area);
    }
    DrawGrid();
    for (const auto& polygon : polygons) {
        for (size_t i = 0; i < polygon.size(); ++i) {
            m_ground_picture.DrawLine(polygon[i], polygon[(i + 1) % polygon.size()], m_colours.outline,
                                      kOutlineWidth * m_scale);
        }
    }
}

// Whole pixels: the lines are sharp.
void PicturePainter::DrawGrid() {
    const ui::Rectangle plot = Device(m_layout.plot);
    const auto width = static_cast<int32_t>(std::max(std::lround(kGridWidth * m_scale), 1l));
    for (const double x : m_layout.ticks_x) {
        const auto left = static_cast<int32_t>(std::lround(x * m_scale)) - width / 2;
        m_ground_picture.FillRectangle({left, plot.top, left + width, plot.bottom}, m_colours.grid);
    }
    for (const double y : m_layout.ticks_y) {
        const auto top = static_cast<int32_t>(std::lround(y * m_scale)) - width / 2;
        m_ground_picture.FillRectangle({plot.left, top, plot.right, top + width}, m_colours.grid);
    }
}

// "Weak", a bar of the colours from the weakest signal on, "Saturated".
void PicturePainter::DrawLegend(const ui::IPainter& painter) {
    const ui::Rectangle& row = m_layout.legend;
    if (row.IsEmpty()) return;
    const int32_t weak_width = painter.TextExtent(m_texts.weak).width;
    const int32_t saturated_width = painter.TextExtent(m_texts.saturated).width;
    ui::Rectangle bar = row;
    bar.left += weak_width + kLegendGap;
    bar.right -= saturated_width + kLegendGap;
    bar.top += (row.Height() - kLegendBar) / 2;
    bar.bottom = bar.top + kLegendBar;
    if (bar.Width() < kSmallestLegendBar) return;
    m_weak = {row.left, row.top, bar.left, row.bottom};
    m_saturated = {bar.right, row.top, row.right, row.bottom};
    ui::Rectangle colours = bar;
    colours.right -= kSaturatedWidth;
    const ui::Rectangle device = Device(colours);
    for (int32_t x = device.left; x < device.right; ++x) {
        const int32_t signal = (x - device.left) * (kTrackingSignalSaturated - 1) / device.Width();
        m_ground_picture.FillRectangle({x, device.top, x + 1, device.bottom},
                                       m_colours.points[static_cast<size_t>(signal)]);
    }
    m_ground_picture.FillRectangle(Device({colours.right, bar.top, bar.right, bar.bottom}),
                                   m_colours.points[kTrackingSignalSaturated]);
}

// The saturated ones last, so that no other covers them.
void PicturePainter::DrawPoints(const PreviewScene& scene) {
    if (m_layout.map.scale == 0) return;
    const DotShape point(kPointRadius * m_scale);
    const DotShape saturated(kSaturatedRadius * m_scale);
    for (const VisiblePoint& each : scene.Points()) {
        if (each.signal == kTrackingSignalSaturated) continue;
        m_picture.DrawDot(Device(m_layout.map.At(each.x_mm, each.y_mm)), point,
                          PixelOf(m_colours.points[each.signal]));
    }
    const uint32_t colour = PixelOf(m_colours.points[kTrackingSignalSaturated]);
    for (const VisiblePoint& each : scene.Points()) {
        if (each.signal != kTrackingSignalSaturated) continue;
        m_picture.DrawDot(Device(m_layout.map.At(each.x_mm, each.y_mm)), saturated, colour);
    }
}

void PicturePainter::PaintTexts(ui::IPainter& painter) const {
    const auto paint = [&](const ui::Rectangle& rectangle, const std::wstring& text,
                           ui::TextAlignment alignment) {
        if (!rectangle.IsEmpty()) painter.DrawText(rectangle, text, {m_colours.text, alignment});
    };
    for (const PlacedText& number : m_layout.numbers_x) {
        paint(number.rectangle, number.text, ui::TextAlignment::centre);
    }
    for (const PlacedText& number : m_layout.numbers_y) {
        paint(number.rectangle, number.text, ui::TextAlignment::right);
    }
    paint(m_layout.unit.rectangle, m_layout.unit.text, ui::TextAlignment::right);
    paint(m_weak, m_texts.weak, ui::TextAlignment::left);
    paint(m_saturated, m_texts.saturated, ui::TextAlignment::right);
}

void PicturePainter::PaintHint(ui::IPainter& painter, Hint hint) const {
    if (hint == Hint::none || m_layout.hint.IsEmpty()) return;
    PaintWarning(painter, m_layout.hint, m_texts.Of(hint), m_colours.warning, m_colours.warning_text);
}

ui::FinePoint PicturePainter::Device(ui::FinePoint point) const {
    return {point.x * m_scale, point.y * m_scale};
}

ui::Rectangle PicturePainter::Device(const ui::Rectangle& rectangle) const {
    const auto device = [&](int32_t length) { return static_cast<int32_t>(std::lround(length * m_scale)); };
    return {device(rectangle.left), device(rectangle.top), device(rectangle.right), device(rectangle.bottom)};
}

}  // namespace hx::preview

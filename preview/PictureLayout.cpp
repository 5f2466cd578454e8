#include "preview/PictureLayout.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "preview/MillimetreScale.h"

namespace hx::preview {
namespace {

constexpr int32_t kMargin = 6;           // at the edges of the window and between texts and what they tell of
constexpr double kFill = 0.95;           // of the plot, by the areas
constexpr int32_t kSmallest = 60;        // a window that is smaller shows the areas alone
constexpr int32_t kSmallestRoomy = 140;  // the height from which there is room for hint and legend
constexpr double kTickDistance = 26;     // between two numbers one above the other, at least
constexpr int32_t kNumberGap = 8;        // between two numbers beside each other, at least

struct Bounds {
    double left = std::numeric_limits<double>::max();
    double top = std::numeric_limits<double>::max();
    double right = std::numeric_limits<double>::lowest();
    double bottom = std::numeric_limits<double>::lowest();
};

Bounds BoundsOf(const std::vector<PlaneArea>& areas) {
    Bounds bounds;
    for (const PlaneArea& area : areas) {
        for (const PlanePoint& corner : area.corners_mm) {
            bounds.left = std::min(bounds.left, corner.x_mm);
            bounds.right = std::max(bounds.right, corner.x_mm);
            bounds.top = std::min(bounds.top, corner.y_mm);
            bounds.bottom = std::max(bounds.bottom, corner.y_mm);
        }
    }
    return bounds;
}

// In the middle of the rectangle, and as large as it fits.
PlaneMap Fit(const Bounds& bounds, const ui::Rectangle& into) {
    const double width = bounds.right - bounds.left;
    const double height = bounds.bottom - bounds.top;
    if (into.IsEmpty() || !(width > 0 || height > 0)) return {};
    const double most = std::numeric_limits<double>::max();
    const double scale =
        kFill * std::min(width > 0 ? into.Width() / width : most, height > 0 ? into.Height() / height : most);
    if (!std::isfinite(scale)) return {};
    return {scale, (into.left + into.right - scale * (bounds.left + bounds.right)) / 2,
            (into.top + into.bottom - scale * (bounds.top + bounds.bottom)) / 2};
}

int32_t Rounded(double value) {
    return static_cast<int32_t>(std::lround(value));
}

class Scale {
public:
    Scale(PictureLayout& layout, const LayoutTexts& texts, const MeasureText& measure)
        : m_layout(layout), m_texts(texts), m_measure(measure) {
        const ui::Rectangle& plot = layout.plot;
        m_from_x = (plot.left - layout.map.offset_x) / layout.map.scale;
        m_to_x = (plot.right - layout.map.offset_x) / layout.map.scale;
        m_from_y = (plot.top - layout.map.offset_y) / layout.map.scale;
        m_to_y = (plot.bottom - layout.map.offset_y) / layout.map.scale;
    }

    // One step for both axes, so that the grid's fields are squares: far enough apart for the numbers.
    double Step() const {
        double step = RoundStep(kTickDistance / m_layout.map.scale);
        while (step > 0 && step * m_layout.map.scale < WidestX(step) + kNumberGap) {
            step = RoundStep(step * 1.5);
        }
        return step;
    }
    int32_t WidestY(double step) const { return std::max(Width(m_from_y, step), Width(m_to_y, step)); }

    void Place(double step, int32_t text_height) {
        const ui::Rectangle& plot = m_layout.plot;
        const PlaneMap& map = m_layout.map;
        const int32_t top_x = plot.bottom + kMargin / 2;
        m_layout.unit = {{0, top_x, plot.left - kMargin, top_x + text_height}, m_texts.unit};
        for (const double tick : TicksBetween(m_from_x, m_to_x, step)) {
            const double x = map.At(tick, 0).x;
            m_layout.ticks_x.push_back(x);
            const std::wstring text = TickText(tick, step, m_texts.decimal_separator);
            const int32_t half = (m_measure(text).width + kMargin) / 2;
            const ui::Rectangle place = {Rounded(x) - half, top_x, Rounded(x) + half, top_x + text_height};
            // The line is there without the number that the unit is in the way of.
            if (place.left < m_layout.unit.rectangle.right + kMargin / 2) continue;
            m_layout.numbers_x.push_back({place, text});
        }
        for (const double tick : TicksBetween(m_from_y, m_to_y, step)) {
            const double y = map.At(0, tick).y;
            m_layout.ticks_y.push_back(y);
            const int32_t top = Rounded(y) - text_height / 2;
            m_layout.numbers_y.push_back({{0, top, plot.left - kMargin, top + text_height},
                                          TickText(tick, step, m_texts.decimal_separator)});
        }
    }

private:
    int32_t Width(double value, double step) const {
        const double tick = std::trunc(value / step) * step;
        return m_measure(TickText(tick, step, m_texts.decimal_separator)).width;
    }
    int32_t WidestX(double step) const { return std::max(Width(m_from_x, step), Width(m_to_x, step)); }

    PictureLayout& m_layout;
    const LayoutTexts& m_texts;
    const MeasureText& m_measure;
    double m_from_x;
    double m_to_x;
    double m_from_y;
    double m_to_y;
};

}  // namespace

PictureLayout LayOut(ui::Size size, const std::vector<PlaneArea>& areas, const LayoutTexts& texts,
                     int32_t hint_lines, const MeasureText& measure) {
    PictureLayout layout;
    const Bounds bounds = BoundsOf(areas);
    layout.plot = ui::Rectangle{0, 0, size.width, size.height}.Deflated(kMargin);
    const int32_t text_height = measure(L"0").height;
    if (size.height >= kSmallestRoomy) {
        layout.hint = {0, 0, size.width, hint_lines * text_height + kMargin};
        layout.plot.top = layout.hint.bottom + kMargin;
        layout.legend = {kMargin, size.height - text_height - kMargin, size.width - kMargin,
                         size.height - kMargin};
        layout.plot.bottom = layout.legend.top - kMargin;
    }
    if (std::min(size.width, size.height) >= kSmallest) {
        layout.plot.bottom -= text_height + kMargin / 2;
    }
    layout.map = Fit(bounds, layout.plot);
    if (layout.map.scale == 0 || std::min(size.width, size.height) < kSmallest) return layout;
    // How wide the numbers are depends on the scale, and that on the room that they leave.
    const Scale before(layout, texts, measure);
    const double step_before = before.Step();
    const int32_t unit_width = measure(texts.unit).width;
    const int32_t numbers_width = step_before > 0 ? before.WidestY(step_before) : 0;
    if (numbers_width + 2 * kMargin < size.width / 3) {
        layout.plot.left = std::max(numbers_width, unit_width) + 2 * kMargin;
    }
    layout.map = Fit(bounds, layout.plot);
    Scale scale(layout, texts, measure);
    const double step = scale.Step();
    if (!(step > 0)) return layout;
    scale.Place(step, text_height);
    return layout;
}

}  // namespace hx::preview

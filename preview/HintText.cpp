#include "preview/HintText.h"

#include <algorithm>

#include "preview/PictureLayout.h"

namespace hx::preview {
namespace {

constexpr int32_t kGap = 6;
constexpr int32_t kSign = 22;  // its width
constexpr int32_t kTextLeft = kGap + kSign + kGap;
constexpr std::wstring_view kEllipsis = L"\u2026";

// How many characters from the start fit; at least one.
size_t Fitting(const ui::IPainter& painter, std::wstring_view text, int32_t width) {
    if (painter.TextExtent(text).width <= width) return text.size();
    size_t fits = 1;
    size_t too_long = text.size();
    while (fits + 1 < too_long) {
        const size_t middle = (fits + too_long) / 2;
        (painter.TextExtent(text.substr(0, middle)).width <= width ? fits : too_long) = middle;
    }
    const size_t blank = text.find_last_of(L' ', fits);
    return blank == std::wstring_view::npos || blank == 0 ? fits : blank;
}

void PaintBar(ui::IPainter& painter, double middle, double top, double bottom, double width,
              ui::Colour colour) {
    const ui::FinePoint corners[] = {{middle - width / 2, top},
                                     {middle + width / 2, top},
                                     {middle + width / 2, bottom},
                                     {middle - width / 2, bottom}};
    painter.FillPolygon(corners, colour);
}

// A triangle with an exclamation mark in it.
void PaintSign(ui::IPainter& painter, const ui::Rectangle& band, ui::Colour background, ui::Colour colour) {
    const double side = std::min(band.Height() - kGap / 2, kSign);
    const double middle = band.left + kGap + kSign / 2.0;
    const double top = (band.top + band.bottom - side) / 2.0;
    const ui::FinePoint corners[] = {
        {middle, top}, {middle + side / 2, top + side}, {middle - side / 2, top + side}};
    painter.FillPolygon(corners, colour);
    PaintBar(painter, middle, top + 0.36 * side, top + 0.68 * side, 0.1 * side, background);
    PaintBar(painter, middle, top + 0.78 * side, top + 0.88 * side, 0.1 * side, background);
}

}  // namespace

std::vector<std::wstring> WarningLines(const ui::IPainter& painter, std::wstring_view text,
                                       int32_t band_width) {
    const int32_t width = band_width - kTextLeft - kGap;
    std::vector<std::wstring> lines;
    while (!text.empty()) {
        const bool is_last = lines.size() + 1 == kMostHintLines;
        const bool is_cut = is_last && painter.TextExtent(text).width > width;
        const size_t length =
            Fitting(painter, text, is_cut ? width - painter.TextExtent(kEllipsis).width : width);
        lines.emplace_back(text.substr(0, length));
        if (is_cut) {
            lines.back() += kEllipsis;
            break;
        }
        text.remove_prefix(length);
        text.remove_prefix(std::min(text.find_first_not_of(L' '), text.size()));
    }
    return lines;
}

void PaintWarning(ui::IPainter& painter, const ui::Rectangle& band, std::wstring_view text,
                  ui::Colour background, ui::Colour colour) {
    painter.FillRectangle(band, background);
    PaintSign(painter, band, background, colour);
    const auto lines = WarningLines(painter, text, band.Width());
    const int32_t height = painter.TextExtent(L"0").height;
    ui::Rectangle place = band;
    place.left += kTextLeft;
    place.top += (band.Height() - static_cast<int32_t>(lines.size()) * height) / 2;
    for (const std::wstring& line : lines) {
        place.bottom = place.top + height;
        painter.DrawText(place, line, {colour});
        place.top = place.bottom;
    }
}

}  // namespace hx::preview

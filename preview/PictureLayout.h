// Where everything of the picture is, for one size of the window and one set of areas: the areas as large as
// they fit with equal scales both ways, near the scanner at the top, and around them the numbers of the
// scale, room for a hint, and the explanation of the colours. In window coordinates, which are not device
// pixels. On the thread of the user interface.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/ui/geometry.h"
#include "preview/PlaneArea.h"

namespace hx::preview {

// Of the plane's millimetres to the window.
struct PlaneMap {
    double scale = 0;  // 0 if there is nothing to be mapped
    double offset_x = 0;
    double offset_y = 0;

    ui::FinePoint At(double x_mm, double y_mm) const {
        return {offset_x + scale * x_mm, offset_y + scale * y_mm};
    }
};

struct PlacedText {
    ui::Rectangle rectangle;
    std::wstring text;
};

// A measured text, as a painter does it.
using MeasureText = std::function<ui::Size(std::wstring_view text)>;

struct PictureLayout {
    ui::Rectangle hint;    // for lines of text; empty if the window is too small
    ui::Rectangle plot;    // what the scale surrounds
    ui::Rectangle legend;  // empty if the window is too small
    PlaneMap map;
    std::vector<double> ticks_x;  // where lines of the grid are, in the window
    std::vector<double> ticks_y;
    std::vector<PlacedText> numbers_x;  // centred
    std::vector<PlacedText> numbers_y;  // at the right
    PlacedText unit;
};

struct LayoutTexts {
    std::wstring unit;
    wchar_t decimal_separator = L'.';
};

// How many lines of text a hint may have at most.
inline constexpr int32_t kMostHintLines = 3;

// Room is left for a hint of so many lines, from 0 to kMostHintLines.
PictureLayout LayOut(ui::Size size, const std::vector<PlaneArea>& areas, const LayoutTexts& texts,
                     int32_t hint_lines, const MeasureText& measure);

}  // namespace hx::preview

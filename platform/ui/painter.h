// What draws a picture of a window or of a row: given by a renderer to whoever paints, good during that call
// only. On the thread of the user interface.
#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/ui/geometry.h"

namespace hx::ui {

struct Colour {
    uint8_t red = 0;
    uint8_t green = 0;
    uint8_t blue = 0;

    bool operator==(const Colour&) const = default;
};

// Colours that the person has chosen for the whole desktop, light or dark.
enum class SystemColour {
    window,       // behind what can be entered or chosen
    window_text,  // upon it
    gray_text,    // of what is disabled
    highlight,    // behind what is selected
    highlight_text,
    button_face,  // of dialogs
    button_text,
};

enum class TextAlignment { left, centre, right };

// One line, centred vertically; "&" is a character like any other.
struct TextStyle {
    Colour colour;
    TextAlignment alignment = TextAlignment::left;
    bool expand_tabs = false;
};

// A picture by rows from the top, each pixel 0xAARRGGBB with straight alpha.
struct Pixels {
    int32_t width = 0;
    int32_t height = 0;
    std::span<const uint32_t> data;  // width * height
};

class IPainter {
public:
    virtual Colour ColourOf(SystemColour colour) const = 0;
    virtual Size TextExtent(std::wstring_view text) const = 0;
    // Of the screen's pixels to ours: a picture is sharp if it has so many times the pixels of its place.
    virtual double Scale() const = 0;

    virtual void FillRectangle(const Rectangle& rectangle, Colour colour) = 0;
    // Just inside the rectangle, of single dots.
    virtual void DrawDottedFrame(const Rectangle& rectangle, Colour colour) = 0;
    // Just inside the rectangle; the line is one pixel wide.
    virtual void DrawEllipse(const Rectangle& rectangle, Colour colour) = 0;
    virtual void DrawLine(FinePoint from, FinePoint to, Colour colour, double width) = 0;
    virtual void FillPolygon(std::span<const FinePoint> corners, Colour colour) = 0;
    // Clipped by the rectangle.
    virtual void DrawText(const Rectangle& rectangle, std::wstring_view text, const TextStyle& style) = 0;
    // Stretched to the rectangle.
    virtual void DrawPixels(const Rectangle& rectangle, const Pixels& pixels) = 0;

protected:
    ~IPainter() = default;
};

}  // namespace hx::ui

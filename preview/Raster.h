// A picture in memory, drawn with smooth edges: the preview's own, since thousands of points thirty times a
// second are too many for calls of a painter. Everything is clipped by the picture. Coordinates are pixels,
// those of a pixel's middle end in .5; what is drawn is opaque. One thread at a time.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <vector>

#include "platform/ui/geometry.h"
#include "platform/ui/painter.h"

namespace hx::preview {

inline uint32_t PixelOf(ui::Colour colour) {
    return 0xFF000000u | static_cast<uint32_t>(colour.red) << 16 | static_cast<uint32_t>(colour.green) << 8 |
           colour.blue;
}

// A round dot in all places that it can have between pixels, in quarters.
class DotShape {
public:
    // Radius in pixels, up to kLargestRadius.
    static constexpr double kLargestRadius = 8;
    explicit DotShape(double radius);

private:
    friend class Raster;
    static constexpr int32_t kParts = 4;

    int32_t m_reach;  // pixels on every side of the middle one
    int32_t m_side;
    // How much of each pixel is covered, from 0 to 256.
    std::array<std::vector<uint16_t>, kParts * kParts> m_cover;
};

class Raster {
public:
    // All of it of that colour.
    void Reset(ui::Size size, ui::Colour colour);
    void CopyFrom(const Raster& other);

    ui::Size Size() const { return m_size; }
    std::span<const uint32_t> Pixels() const { return m_pixels; }

    void FillRectangle(const ui::Rectangle& rectangle, ui::Colour colour);
    // What an odd number of its edges surrounds.
    void FillPolygon(std::span<const ui::FinePoint> corners, ui::Colour colour);
    void DrawLine(ui::FinePoint from, ui::FinePoint to, ui::Colour colour, double width);
    void DrawDot(ui::FinePoint middle, const DotShape& shape, uint32_t pixel);

private:
    ui::Size m_size;
    std::vector<uint32_t> m_pixels;
    std::vector<float> m_row_cover;  // of one row of pixels
    std::vector<double> m_crossings;
};

}  // namespace hx::preview

#include "preview/Raster.h"

#include <algorithm>
#include <cmath>

namespace hx::preview {
namespace {

constexpr uint32_t kWhole = 256;
constexpr int32_t kRowParts = 4;  // horizontal cuts through each row of pixels

// `cover` of 256 parts of the pixel become `colour`; two channels at a time.
uint32_t Blend(uint32_t below, uint32_t colour, uint32_t cover) {
    constexpr uint32_t kOuter = 0x00FF00FF;
    const uint32_t rest = kWhole - cover;
    const uint32_t outer = ((below & kOuter) * rest + (colour & kOuter) * cover) >> 8 & kOuter;
    const uint32_t inner = ((below >> 8 & kOuter) * rest + (colour >> 8 & kOuter) * cover) & ~kOuter;
    return outer | inner | 0xFF000000u;
}

// The part of each pixel of a row between two places is added to.
void AddCover(std::vector<float>& cover, double from, double to) {
    const double end = static_cast<double>(cover.size());
    from = std::clamp(from, 0.0, end);
    to = std::clamp(to, 0.0, end);
    if (!(to > from)) return;
    const auto first = static_cast<size_t>(from);
    const auto last = std::min(static_cast<size_t>(to), cover.size() - 1);
    for (size_t x = first; x <= last; ++x) {
        const double left = std::max(from, static_cast<double>(x));
        const double right = std::min(to, static_cast<double>(x + 1));
        cover[x] += static_cast<float>(std::max(right - left, 0.0) / kRowParts);
    }
}

}  // namespace

DotShape::DotShape(double radius) {
    radius = std::clamp(radius, 0.5, kLargestRadius);
    m_reach = static_cast<int32_t>(std::ceil(radius + 0.5));
    m_side = 2 * m_reach + 1;
    for (int32_t part = 0; part < kParts * kParts; ++part) {
        const int32_t column = part % kParts;
        const int32_t row = part / kParts;
        const double middle_x = m_reach + (column + 0.5) / kParts;
        const double middle_y = m_reach + (row + 0.5) / kParts;
        std::vector<uint16_t>& cover = m_cover[static_cast<size_t>(part)];
        for (int32_t y = 0; y < m_side; ++y) {
            for (int32_t x = 0; x < m_side; ++x) {
                const double distance = std::hypot(x + 0.5 - middle_x, y + 0.5 - middle_y);
                const double covered = std::clamp(radius + 0.5 - distance, 0.0, 1.0);
                cover.push_back(static_cast<uint16_t>(std::lround(covered * kWhole)));
            }
        }
    }
}

void Raster::Reset(ui::Size size, ui::Colour colour) {
    m_size = {std::max(size.width, 0), std::max(size.height, 0)};
    m_pixels.assign(static_cast<size_t>(m_size.width) * static_cast<size_t>(m_size.height), PixelOf(colour));
}

void Raster::CopyFrom(const Raster& other) {
    m_size = other.m_size;
    m_pixels.assign(other.m_pixels.begin(), other.m_pixels.end());
}

void Raster::FillRectangle(const ui::Rectangle& rectangle, ui::Colour colour) {
    const int32_t left = std::clamp(rectangle.left, 0, m_size.width);
    const int32_t right = std::clamp(rectangle.right, left, m_size.width);
    for (int32_t y = std::max(rectangle.top, 0); y < std::min(rectangle.bottom, m_size.height); ++y) {
        const auto row = m_pixels.begin() + static_cast<ptrdiff_t>(y) * m_size.width;
        std::fill(row + left, row + right, PixelOf(colour));
    }
}

void Raster::FillPolygon(std::span<const ui::FinePoint> corners, ui::Colour colour) {
    if (corners.size() < 3 || m_pixels.empty()) return;
    const auto by_y = [](const ui::FinePoint& a, const ui::FinePoint& b) { return a.y < b.y; };
    const auto [top, bottom] = std::ranges::minmax_element(corners, by_y);
    const auto first = static_cast<int32_t>(std::clamp(top->y, 0.0, static_cast<double>(m_size.height)));
    const auto end =
        static_cast<int32_t>(std::clamp(std::ceil(bottom->y), 0.0, static_cast<double>(m_size.height)));
    m_row_cover.resize(static_cast<size_t>(m_size.width));
    for (int32_t y = first; y < end; ++y) {
        std::ranges::fill(m_row_cover, 0.0f);
        for (int32_t part = 0; part < kRowParts; ++part) {
            const double cut = y + (part + 0.5) / kRowParts;
            m_crossings.clear();
            for (size_t i = 0; i < corners.size(); ++i) {
                const ui::FinePoint& a = corners[i];
                const ui::FinePoint& b = corners[(i + 1) % corners.size()];
                if ((a.y > cut) == (b.y > cut)) continue;
                m_crossings.push_back(a.x + (cut - a.y) / (b.y - a.y) * (b.x - a.x));
            }
            std::ranges::sort(m_crossings);
            for (size_t i = 0; i + 1 < m_crossings.size(); i += 2) {
                AddCover(m_row_cover, m_crossings[i], m_crossings[i + 1]);
            }
        }
        uint32_t* const row = &m_pixels[static_cast<size_t>(y) * static_cast<size_t>(m_size.width)];
        for (size_t x = 0; x < m_row_cover.size(); ++x) {
            const auto cover = static_cast<uint32_t>(std::lround(std::min(m_row_cover[x], 1.0f) * kWhole));
            if (cover != 0) row[x] = Blend(row[x], PixelOf(colour), cover);
        }
    }
}

void Raster::DrawLine(ui::FinePoint from, ui::FinePoint to, ui::Colour colour, double width) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length > 0)) return;
    const double across_x = (to.y - from.y) / length * width / 2;
    const double across_y = (from.x - to.x) / length * width / 2;
    const ui::FinePoint corners[] = {{from.x + across_x, from.y + across_y},
                                     {to.x + across_x, to.y + across_y},
                                     {to.x - across_x, to.y - across_y},
                                     {from.x - across_x, from.y - across_y}};
    FillPolygon(corners, colour);
}

void Raster::DrawDot(ui::FinePoint middle, const DotShape& shape, uint32_t pixel) {
    const double reach = shape.m_reach + 1;
    // False for what is no number, too.
    const bool meets = middle.x > -reach && middle.x < m_size.width + reach && middle.y > -reach &&
                       middle.y < m_size.height + reach;
    if (!meets) return;
    const double whole_x = std::floor(middle.x);
    const double whole_y = std::floor(middle.y);
    const auto part_x = static_cast<int32_t>((middle.x - whole_x) * DotShape::kParts);
    const auto part_y = static_cast<int32_t>((middle.y - whole_y) * DotShape::kParts);
    const int32_t part = part_y * DotShape::kParts + part_x;
    const std::vector<uint16_t>& cover = shape.m_cover[static_cast<size_t>(part)];
    const int32_t left = static_cast<int32_t>(whole_x) - shape.m_reach;
    const int32_t top = static_cast<int32_t>(whole_y) - shape.m_reach;
    const int32_t first_x = std::max(-left, 0);
    const int32_t end_x = std::min(shape.m_side, m_size.width - left);
    const int32_t end_y = std::min(shape.m_side, m_size.height - top);
    for (int32_t y = std::max(-top, 0); y < end_y; ++y) {
        const uint16_t* const covered = cover.data() + static_cast<ptrdiff_t>(y) * shape.m_side;
        uint32_t* const row = m_pixels.data() + static_cast<ptrdiff_t>(top + y) * m_size.width + left;
        for (int32_t x = first_x; x < end_x; ++x) {
            if (covered[x] != 0) row[x] = Blend(row[x], pixel, covered[x]);
        }
    }
}

}  // namespace hx::preview

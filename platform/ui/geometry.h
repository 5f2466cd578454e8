// Places and sizes of windows and of what is in them, in pixels of a screen at 100 % (96 to the inch): a
// renderer scales them.
#pragma once

#include <cstdint>

namespace hx::ui {

struct Point {
    int32_t x = 0;
    int32_t y = 0;

    bool operator==(const Point&) const = default;
};

// Between pixels, for lines and shapes.
struct FinePoint {
    double x = 0;
    double y = 0;

    bool operator==(const FinePoint&) const = default;
};

struct Size {
    int32_t width = 0;
    int32_t height = 0;

    bool operator==(const Size&) const = default;
};

// The right and bottom edges are not part of it.
struct Rectangle {
    int32_t left = 0;
    int32_t top = 0;
    int32_t right = 0;
    int32_t bottom = 0;

    int32_t Width() const { return right - left; }
    int32_t Height() const { return bottom - top; }
    ui::Size Size() const { return {Width(), Height()}; }
    bool IsEmpty() const { return right <= left || bottom <= top; }
    bool Contains(Point point) const {
        return left <= point.x && point.x < right && top <= point.y && point.y < bottom;
    }
    // Smaller on every side.
    Rectangle Deflated(int32_t by) const { return {left + by, top + by, right - by, bottom - by}; }
    Rectangle Moved(int32_t dx, int32_t dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }

    bool operator==(const Rectangle&) const = default;
};

}  // namespace hx::ui

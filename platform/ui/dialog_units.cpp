#include "platform/ui/dialog_units.h"

#include <algorithm>

namespace hx::ui {
namespace {

constexpr int32_t kUnitsAcross = 4;  // of an average letter
constexpr int32_t kUnitsDown = 8;
constexpr int64_t kFarthest = 1 << 24;

int32_t Scaled(int64_t units, int64_t letter, int64_t parts) {
    const int64_t product = units * letter;
    const int64_t half = parts / 2;
    const int64_t rounded = (product < 0 ? product - half : product + half) / parts;
    return static_cast<int32_t>(std::clamp(rounded, -kFarthest, kFarthest));
}

}  // namespace

Rectangle PixelsOf(const DialogRectangle& units, const Size& letter) {
    const int32_t left = Scaled(units.x, letter.width, kUnitsAcross);
    const int32_t top = Scaled(units.y, letter.height, kUnitsDown);
    return {left, top, left + Scaled(units.width, letter.width, kUnitsAcross),
            top + Scaled(units.height, letter.height, kUnitsDown)};
}

}  // namespace hx::ui

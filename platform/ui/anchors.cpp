#include "platform/ui/anchors.h"

#include <algorithm>
#include <cmath>

namespace hx::ui {
namespace {

int32_t Moved(int32_t edge, double share, int32_t growth) {
    return edge + static_cast<int32_t>(std::lround(share * growth));
}

}  // namespace

Rectangle Anchored(const Rectangle& bounds, const AnchorRule& rule, const Size& template_size,
                   const Size& size) {
    const int32_t wider = std::max(size.width - template_size.width, 0);
    const int32_t higher = std::max(size.height - template_size.height, 0);
    return {Moved(bounds.left, rule.left, wider), Moved(bounds.top, rule.top, higher),
            Moved(bounds.right, rule.right, wider), Moved(bounds.bottom, rule.bottom, higher)};
}

}  // namespace hx::ui

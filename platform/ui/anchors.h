// How the controls of a dialog follow its size. Each edge of a control keeps its distance from a line across
// the dialog, at a share of its width or height: 0 is the left or top edge, 1 the right or bottom one.
#pragma once

#include <cstdint>

#include "platform/api.h"
#include "platform/ui/geometry.h"

namespace hx::ui {

struct AnchorRule {
    uint32_t id = 0;
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
};

// Where a control is in a dialog of this size that lies at `bounds` in one of the template's size. A dialog
// that is smaller than its template is laid out as if it was not.
HX_PLATFORM_API Rectangle Anchored(const Rectangle& bounds, const AnchorRule& rule, const Size& template_size,
                                   const Size& size);

}  // namespace hx::ui

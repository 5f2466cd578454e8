// Which controls of the field of view the measurement page shows, and the room that the preview has. A member
// of the page; on the thread of the user interface.
#pragma once

#include <cstdint>

#include "platform/ui/dialog.h"

namespace hx {

class FieldOfViewLayout {
public:
    explicit FieldOfViewLayout(ui::Dialog& dialog) : m_dialog(dialog) {}

    // As the scanner lets it be chosen: 0 not at all, 1 width, 2 height, 3 both; negative leaves everything
    // as it is. Also after the window was resized, when the preview has the place that its anchors give it.
    void LayOut(int32_t config);

private:
    ui::Dialog& m_dialog;
};

}  // namespace hx

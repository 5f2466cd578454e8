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
    // The place that the preview's anchors give it.
    const ui::Rectangle& PlaceOf(const ui::Control& preview);

    ui::Dialog& m_dialog;
    ui::Rectangle m_place;
    ui::Size m_size;  // of the dialog, when that was its place
};

}  // namespace hx
